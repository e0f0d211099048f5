#pragma once

#include <string>

#include "platform/text_editing.h"

namespace kvt {

class ListView;

// What a half of the platform brings to its keyboard.
class KeyboardHost {
public:
    virtual ~KeyboardHost() = default;
    // Runs what an event of a control sets off, a handler or what changes the control.
    virtual void Run(const Control& control, const char* event, const std::function<void()>& act) = 0;
    // The program has ended: nothing goes anywhere any more.
    virtual bool HasEnded() const = 0;
    // Whether the entries of a menu are shown, which have the keys then. Escape closes them.
    virtual bool MenuIsOpen() const { return false; }
    virtual void CloseMenu() {}
    // Opens a combo box, where it can be seen.
    virtual void OpenList(ComboBox&) {}
    // Lets a widget with an editor of its own do an edit; false leaves it to the box.
    virtual bool EditInWidget(TextBox&, const TextEdit&) { return false; }
};

// Decides what a key does, for both halves. The order: a menu that is open, a field's edits that are to be taken back,
// the shortcuts of the form's menus, Tab, the handlers of the form and of the control with the focus (a key that goes down, then its character, which they
// may change or take away), then what the control does by itself. A handler that moves the focus, hides or disables
// the control or ends the program ends it there.
class Keyboard {
public:
    // Without a clipboard the keys of copying and pasting do nothing.
    Keyboard(FocusService& focus, ClipboardService* clipboard, KeyboardHost& host)
        : focus_(focus), clipboard_(clipboard), host_(host) {}
    void UseClipboard(ClipboardService& clipboard) { clipboard_ = &clipboard; }

    // A key that goes down in the window of a form. The form alone hears of it where the control with the focus lies
    // in another form, is hidden or disabled. False where nothing has a use for it, so that a widget may scroll by it.
    bool Press(Form& form, KeyPress press);

private:
    Control* Target(const Form& form) const;
    bool StillAt(const Control* target) const;
    bool UndoInField(Control* target, KeyStroke stroke);
    bool ChooseMenu(const Form& form, const Control* target, KeyStroke stroke);
    bool Offer(Form& form, Control* target, KeyPress& press);
    void MoveOn(Form& form, KeyStroke stroke);
    bool TurnPage(Control& target, bool backwards);

    // What controls do by themselves.
    bool Act(Control& target, const KeyPress& press);
    bool Edit(TextBox& box, const KeyPress& press);
    bool MoveInList(ListBox& list, const KeyPress& press);
    bool MoveInCombo(ComboBox& box, const KeyPress& press);
    bool MoveInRows(ListView& list, int key);
    bool MoveOption(OptionButton& option, int key);
    bool MoveTabs(TabStrip& tabs, int key);
    bool ChangeValue(RangeControl& range, int key);
    bool PressButton(Control& button, const KeyPress& press);
    void ShowPage(TabStrip& tabs, int page);
    void Choose(ListBox& list, int index);
    int FindTyped(const ListBox& list, const KeyPress& press);

    FocusService& focus_;
    ClipboardService* clipboard_;
    KeyboardHost& host_;

    // What was typed last into a list, which goes to the entry that begins with it.
    std::string typed_;
    const ListBox* typedInto_ = nullptr;
    long long typedAt_ = 0;
};

}  // namespace kvt
