#pragma once

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/property.h"

namespace kvt {

class Form;

enum class ControlKind : std::uint8_t {
    Form,
    Label,
    TextBox,
    CheckBox,
    OptionButton,
    CommandButton,
    Frame,
    ListBox,
    ListView,
    Menu,
    PictureBox,
    RichText,
    FileDialog,
    TabStrip,
    Timer,
    ComboBox,
    ScrollBar,
    UpDown,
    ProgressBar,
};

// Colours have red in the low byte.
using Color = std::uint32_t;

namespace pointer {
inline constexpr int Usual = 0, Cross = 2, ArrowAndHourglass = 13;
}  // namespace pointer

// Watches one control and shows it. The logic never looks at views.
class ControlView {
public:
    virtual ~ControlView() = default;
    virtual void PropertyChanged(Control& control, PropertyId id) = 0;
};

// What every control has. A control registers with its form under its name; an element of a control array has
// an index, others -1. Lengths are twips.
class Control {
public:
    Control(Form& form, ControlKind kind, std::string_view name, int index = -1);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    ControlKind Kind() const { return kind_; }
    const std::string& Name() const { return name_; }
    int Index() const { return index_; }
    Form& OwningForm() const { return form_; }

    // The frame, tab strip, menu or form that the control lies in; the form where nothing was set.
    Control* Container = nullptr;
    // Which page of a tab strip the control lies on, from 0; -1 elsewhere.
    int Page = -1;
    ControlView* View = nullptr;

    Property<int> Left{*this, PropertyId::Left};
    Property<int> Top{*this, PropertyId::Top};
    Property<int> Width{*this, PropertyId::Width};
    Property<int> Height{*this, PropertyId::Height};
    Property<bool> Visible{*this, PropertyId::Visible, true};
    Property<bool> Enabled{*this, PropertyId::Enabled, true};
    // The pointer of the mouse over it, one of pointer::... .
    Property<int> MousePointer{*this, PropertyId::MousePointer};
    Property<int> TabIndex{*this, PropertyId::TabIndex, -1};
    TextProperty Tag{*this, PropertyId::Tag};
    TextProperty ToolTip{*this, PropertyId::ToolTip};
    // What a screen reader calls the control where nothing that is to be seen tells it; see AccessibleNameOf.
    TextProperty AccessibleName{*this, PropertyId::AccessibleName};

    std::function<void()> OnClick;
    // A hand has tried it, by a click or its key, while it is disabled: to tell why.
    std::function<void()> OnRefused;
    std::function<void()> OnGotFocus;
    std::function<void()> OnLostFocus;
    // A key goes down (a number of keys.h, and what is held), then a character arrives. The handler may change
    // the character; 0 cancels it.
    std::function<void(int key, int held)> OnKeyDown;
    std::function<void(int& character)> OnKeyPress;

    // What a click does, by hand or by code.
    void Click() {
        if (OnClick) OnClick();
    }
    // Whether the control lies on the page that is in front, where it lies on one.
    bool OnFrontPage() const;
    // Whether the control and all that it lies in are visible (or enabled).
    bool EffectivelyVisible() const;
    bool EffectivelyEnabled() const;

protected:
    friend void detail::TellChanged(Control& owner, PropertyId id);
    virtual void Changed(PropertyId id);

private:
    Form& form_;
    ControlKind kind_;
    int index_;
    std::string name_;
};

enum class WindowState { Normal, Minimised, Maximised };

// Where a window lies, and how large it is, in twips.
struct WindowPlace {
    int Height, Left, Top, Width;
    bool operator==(const WindowPlace&) const = default;
};

// A window. Keeps the list of its controls in the order of their making.
class Form : public Control {
public:
    explicit Form(std::string_view name);

    TextProperty Caption{*this, PropertyId::Caption};
    // What the window shows is in no file: its title has a star behind the caption.
    Property<bool> Unsaved{*this, PropertyId::Caption};
    Property<WindowState> State{*this, PropertyId::WindowState, WindowState::Normal};

    const std::vector<Control*>& Controls() const { return controls_; }
    // The control of a name (case ignored) and index; null where there is none.
    Control* FindControl(std::string_view name, int index = -1) const;

    // The size has changed, by hand or by code; the form has come to the front.
    std::function<void()> OnResize;
    std::function<void()> OnActivate;
    // A window that stays above the others of the program and takes no activation; set before it is shown.
    bool TopMost = false;
    // What of the form's size the window's edges, title and menus take; 0 where the size is that of the field
    // alone. Set before it is shown.
    int EdgeWidth = 0, EdgeHeight = 0;
    // The size that the user cannot draw it below; 0 where there is none. Set before it is shown.
    int SmallestWidth = 0, SmallestHeight = 0;
    // What its controls are laid out for on a screen that is lower than the smallest height; 0 for that height itself.
    // A window that is smaller still shows a part, and the user can scroll. Set before it is shown.
    int LeastHeight = 0;

    // The window's place; for one that is maximised or minimised that to which it goes back.
    WindowPlace RestoredPlace() const;
    // Moves it there; one that is maximised or minimised goes there when it is restored.
    void SetRestoredPlace(const WindowPlace& place);
    // Restores the window to a part of the screen, which it takes with all that it has: title, edges and menus. Its
    // place follows when its system has told how large these are.
    void FillArea(const WindowPlace& area);
    // The area that it is still to take.
    const std::optional<WindowPlace>& AreaToFill() const { return areaToFill_; }
    // Whether the window is maximised, or is minimised and was so before.
    bool FillsScreen() const { return fillsScreen_; }
    // Brings the window in front of the others, with the keys.
    void BringToFront() { Control::Changed(PropertyId::Front); }
    // Shows the window behind the one in front, which keeps the keys.
    void ShowBehind();
    bool ComesBehind() const { return comesBehind_; }
    // The window's own close control was used. The form decides what happens; by itself nothing does.
    std::function<void()> OnQueryUnload;
    // A file was dropped on the window.
    std::function<void(const std::string& path)> OnDropFile;

    // Puts a window that has no place of its own yet in front of another one.
    void PlaceOver(const Form& other);
    // Controls were made after the window: it shows them too from now on.
    void TellControlsAdded() { Changed(PropertyId::Entries); }
    // Takes on the size that its window has got. OnResize is left to the caller; true where the size is another.
    bool ApplySize(int width, int height);

protected:
    void Changed(PropertyId id) override;

private:
    friend class Control;
    void NoteState();

    std::vector<Control*> controls_;
    bool applyingSize_ = false;
    WindowState lastState_ = WindowState::Normal;
    WindowPlace restored_ = {};
    std::optional<WindowPlace> areaToFill_;
    bool fillsScreen_ = false;
    bool comesBehind_ = false;
};

// One that can be clicked has a tab index: the Tab key stops at it while it has a caption, and Enter clicks it.
class Label : public Control {
public:
    Label(Form& form, std::string_view name, std::string_view caption = {})
        : Control(form, ControlKind::Label, name), Caption(*this, PropertyId::Caption, caption) {}
    TextProperty Caption;
    Property<Color> ForeColor{*this, PropertyId::ForeColor};
    // Numbers below one another are aligned at the right edge. Set before it is shown.
    bool AtRight = false;
    // A screen reader tells each new text of it. Set before it is shown.
    bool Announced = false;
};

// Selection positions count from 0, as characters in front.
struct TextSelection {
    int Start = 0;
    int Length = 0;
    // The caret, where the next move begins, is in front of the selection and not behind it.
    bool CaretFirst = false;
    bool operator==(const TextSelection&) const = default;
};

// One edit of a text by hand: what went at a place, what came for it, and the selection on the other side of it.
struct TextChange {
    std::size_t At = 0;
    std::string Removed, Inserted;
    TextSelection Selection;
    bool Typed = false;
};

// The edits of a text that can be taken back, and those that have been; the latest is the last.
struct TextEdits {
    std::vector<TextChange> Done, Undone;
};

class TextBox : public Control {
public:
    TextBox(Form& form, std::string_view name) : Control(form, ControlKind::TextBox, name) {}
    TextProperty Text{*this, PropertyId::Text};
    Property<TextSelection> Selection{*this, PropertyId::Selection};
    Property<Color> ForeColor{*this, PropertyId::ForeColor};
    // Takes several lines: Enter and pasted line ends (CR LF) go in. Set before it is shown.
    bool MultiLine = false;
    // All characters have the same width, for columns of numbers. Set before it is shown.
    bool FixedPitch = false;
    // Takes numbers and their signs: a keyboard on the screen shows these. Set before it is shown.
    bool Numeric = false;
    // Has the colour of buttons and can be copied from; the user's hands change nothing. Set before it is shown.
    bool ReadOnly = false;
    // The edits by hand since the program has set the text last; kept by the editing alone.
    TextEdits Edits;

    std::function<void()> OnChange;

    // Sets the text as an edit of the user's: those in front of it can still be taken back.
    void SetByHand(const std::string& text, TextSelection selection);

    void SelectAll() { Selection = TextSelection{0, static_cast<int>(Text.Get().size())}; }
    // Adds to the end, where the selection goes too. The view is told of it as one change, Appended, and the cost
    // is that of the piece alone.
    void Append(std::string_view more);

protected:
    void Changed(PropertyId id) override;

private:
    bool appending_ = false;
    bool byHand_ = false;
};

class CommandButton : public Control {
public:
    CommandButton(Form& form, std::string_view name, std::string_view caption = {}, int index = -1)
        : Control(form, ControlKind::CommandButton, name, index),
          Caption(*this, PropertyId::Caption, caption) {}
    TextProperty Caption;
    // Strokes on a field of 24 by 24, y down: "M x y" goes there, "L x y" draws a line, "C" a curve by three points,
    // "O x y r" a circle, "Z" closes. Shown above the caption; empty for none. Set before it is shown.
    std::string Picture;
};

// Value is 0 or 1.
class CheckBox : public Control {
public:
    CheckBox(Form& form, std::string_view name, std::string_view caption = {}, int value = 0)
        : Control(form, ControlKind::CheckBox, name),
          Caption(*this, PropertyId::Caption, caption),
          Value(*this, PropertyId::Value, value) {}
    TextProperty Caption;
    Property<int> Value;
};

class OptionButton : public Control {
public:
    OptionButton(Form& form, std::string_view name, std::string_view caption = {}, int index = -1)
        : Control(form, ControlKind::OptionButton, name, index),
          Caption(*this, PropertyId::Caption, caption) {}
    TextProperty Caption;
    Property<bool> Value{*this, PropertyId::Value};
};

class Frame : public Control {
public:
    Frame(Form& form, std::string_view name, std::string_view caption = {})
        : Control(form, ControlKind::Frame, name), Caption(*this, PropertyId::Caption, caption) {}
    TextProperty Caption;
    // Highlighted in front of the caption; empty for none.
    TextProperty Lead{*this, PropertyId::Lead};
};

class Menu : public Control {
public:
    Menu(Form& form, std::string_view name, std::string_view caption = {}, int index = -1)
        : Control(form, ControlKind::Menu, name, index), Caption(*this, PropertyId::Caption, caption) {}
    TextProperty Caption;
    Property<bool> Checked{*this, PropertyId::Checked};
    // The key that chooses the entry, as it is shown: "Ctrl+S", "F5". Empty for none.
    std::string Shortcut;
    // A key that is shown beside the entry and handled elsewhere. Set before it is shown.
    std::string ShownShortcut;
};

// Pages of controls behind tabs. Value is the page in front, from 0.
class TabStrip : public Control {
public:
    TabStrip(Form& form, std::string_view name) : Control(form, ControlKind::TabStrip, name) {}
    Property<int> Value{*this, PropertyId::Value};
    std::vector<std::string> Captions;
    // Lies over the other controls of its form: while it can be seen the Tab key stays within it.
    bool KeepsTab = false;
    void SetCaption(int page, std::string_view caption) {
        Captions.at(static_cast<std::size_t>(page)) = caption;
        Changed(PropertyId::Caption);
    }
};

// Runs OnTimer every Interval milliseconds while it is enabled; 0 is never.
class Timer : public Control {
public:
    Timer(Form& form, std::string_view name, int interval) : Control(form, ControlKind::Timer, name) {
        Interval = interval;
        Visible = false;
    }
    Property<int> Interval{*this, PropertyId::Value};
    std::function<void()> OnTimer;
};

// A document laid over the program list.
class RichText : public Control {
public:
    RichText(Form& form, std::string_view name) : Control(form, ControlKind::RichText, name) {}
    // Nothing in the text is markup. Set before it is shown.
    bool Plain = false;
    // Where the pictures of the text lie, with a separator at its end. Set before the text.
    std::string Folder;
    TextProperty Text{*this, PropertyId::Text};

    // Brings the place with a name, <a name="...">, to the top. An unknown one changes nothing.
    void ShowSection(std::string_view name) {
        Section = name;
        Changed(PropertyId::Section);
    }
    // Looks for a text (case ignored) behind the place that was found last, and from the beginning when the end has
    // been reached. Without a view it looks at the text as it stands.
    void Find(std::string_view sought);

    std::string Section, Sought;
    bool WasFound = false;
};

// An ordered list of texts with a selected index; both count from 0, -1 for no selection.
class ListBox : public Control {
public:
    ListBox(Form& form, std::string_view name) : ListBox(form, name, ControlKind::ListBox) {}
    Property<int> ListIndex{*this, PropertyId::ListIndex, -1};
    Property<Color> ForeColor{*this, PropertyId::ForeColor};

    int Count() const { return static_cast<int>(entries_.size()); }
    // The entry at an index, error 9 outside the list.
    const std::string& Entry(int index) const;
    void SetEntry(int index, std::string_view text);
    void AddEntry(std::string_view text);
    void Clear();
    // Puts these in the place of all entries; none is selected.
    void SetEntries(std::vector<std::string> entries);
    const std::vector<std::string>& Entries() const { return entries_; }
    // How many entries are in sight, at least 1: those that a view has told, or what the list's height shows.
    int EntriesInSight() const {
        return std::max(1, entriesInSight_ > 0 ? entriesInSight_ : Height / EntryHeight);
    }
    void SetEntriesInSight(int entries) { entriesInSight_ = entries; }
    // Characters of one width; set before it is shown.
    bool FixedPitch = false;
    // Lies over other lists that it reaches into. Set before it is shown.
    bool InFront = false;
    // The keys that move go from entry to entry and no more; Enter, the blank and a click choose one. Otherwise moving
    // chooses too.
    bool EnterChooses = false;

    static constexpr int EntryHeight = 240;  // twips

protected:
    ListBox(Form& form, std::string_view name, ControlKind kind) : Control(form, kind, name) {}

private:
    std::vector<std::string> entries_;
    int entriesInSight_ = 0;
};

// A list of which the selected entry alone is seen until it is opened.
class ComboBox : public ListBox {
public:
    ComboBox(Form& form, std::string_view name) : ListBox(form, name, ControlKind::ComboBox) {}
};

// A number between two bounds, whichever is the greater; values beyond them are held to them. OnChange runs at each new value, by hand or by
// code.
class RangeControl : public Control {
public:
    Property<int> Min{*this, PropertyId::Bounds};
    Property<int> Max{*this, PropertyId::Bounds};
    Property<int> Value{*this, PropertyId::Value};
    std::function<void()> OnChange;

    // Sets the value within the bounds, whichever of them is the greater.
    void SetValue(int value) { Value = std::clamp(value, Lowest(), Highest()); }

    int Lowest() const { return std::min(Min.Get(), Max.Get()); }
    int Highest() const { return std::max(Min.Get(), Max.Get()); }

protected:
    RangeControl(Form& form, ControlKind kind, std::string_view name) : Control(form, kind, name) {}
    void Changed(PropertyId id) override;
};

class ScrollBar : public RangeControl {
public:
    ScrollBar(Form& form, std::string_view name, bool vertical)
        : RangeControl(form, ControlKind::ScrollBar, name), Vertical(vertical) {}
    const bool Vertical;
    // How far a click on an arrow, and one beside the thumb, goes.
    int SmallChange = 1;
    int LargeChange = 10;
};

// How much of something is done; the user cannot change it.
class ProgressBar : public RangeControl {
public:
    ProgressBar(Form& form, std::string_view name) : RangeControl(form, ControlKind::ProgressBar, name) {}
};

// Two arrows, up and down.
class UpDown : public RangeControl {
public:
    UpDown(Form& form, std::string_view name) : RangeControl(form, ControlKind::UpDown, name) {}
};

// What the user chose for a file. FileName is the whole path, FileTitle the name without its folder.
class FileDialog : public Control {
public:
    FileDialog(Form& form, std::string_view name) : Control(form, ControlKind::FileDialog, name) {
        Visible = false;
    }
    std::string FileName;
    std::string Filter;
    bool CancelError = false;

    std::string_view FileTitle() const;
};

}  // namespace kvt
