#include <algorithm>

#include "basic/text.h"
#include "platform/clicks.h"
#include "platform/keyboard.h"
#include "platform/keys.h"
#include "platform/list_view.h"

// What a control does by itself with a key that its handlers have let pass.
namespace kvt {

namespace {

// What is typed into a list with longer pauses begins anew.
constexpr long long typingPause = 1000;
// How far a page of a closed combo box is.
constexpr int comboPage = 10;

// Where a key of moving leads in a row of places from first to last; from itself for other keys.
int Moved(int key, int from, int first, int last, int page) {
    int to = from;
    switch (key) {
        case key::Up: --to; break;
        case key::Down: ++to; break;
        case key::PageUp: to -= page; break;
        case key::PageDown: to += page; break;
        case key::Home: to = first; break;
        case key::End: to = last; break;
        default: return from;
    }
    return std::clamp(to, first, last);
}

bool Moves(int key) { return key == key::Up || key == key::Down || (key >= key::PageUp && key <= key::Home); }

}  // namespace

bool Keyboard::Act(Control& target, const KeyPress& press) {
    const int key = press.Stroke.Key;
    switch (target.Kind()) {
        case ControlKind::TextBox: return Edit(static_cast<TextBox&>(target), press);
        case ControlKind::ListBox: return MoveInList(static_cast<ListBox&>(target), press);
        case ControlKind::ComboBox: return MoveInCombo(static_cast<ComboBox&>(target), press);
        case ControlKind::ListView: return MoveInRows(static_cast<ListView&>(target), key);
        case ControlKind::TabStrip: return MoveTabs(static_cast<TabStrip&>(target), key);
        case ControlKind::ScrollBar:
        case ControlKind::UpDown: return ChangeValue(static_cast<RangeControl&>(target), key);
        case ControlKind::OptionButton:
            if (MoveOption(static_cast<OptionButton&>(target), key)) return true;
            [[fallthrough]];
        case ControlKind::CheckBox:
        case ControlKind::Label:
        case ControlKind::CommandButton: return PressButton(target, press);
        default: return false;
    }
}

bool Keyboard::Edit(TextBox& box, const KeyPress& press) {
    const std::optional<TextEdit> edit = EditOf(box, press);
    if (!edit) return true;
    host_.Run(box, "Change", [&] {
        if (!host_.EditInWidget(box, *edit)) EditText(box, *edit, clipboard_);
    });
    return true;
}

// The blank presses all of them, Enter a command button and a label. A blank that is held presses once.
bool Keyboard::PressButton(Control& button, const KeyPress& press) {
    const bool takesEnter =
        button.Kind() == ControlKind::CommandButton || button.Kind() == ControlKind::Label;
    const bool enter = press.Stroke.Key == key::Enter && takesEnter;
    const bool blank = press.Character == key::Space && !press.Repeats;
    if (enter || blank) host_.Run(button, "Click", [&] { ChooseAndClick(button); });
    return true;
}

// The arrows choose the next of the options that lie together, round their ends.
bool Keyboard::MoveOption(OptionButton& option, int key) {
    const bool back = key == key::Up || key == key::Left;
    if (!back && key != key::Down && key != key::Right) return false;
    std::vector<OptionButton*> options = OptionsBeside(option);
    std::erase_if(options, [](const OptionButton* one) {
        return !one->EffectivelyVisible() || !one->EffectivelyEnabled();
    });
    if (back) std::reverse(options.begin(), options.end());
    const auto at = std::find(options.begin(), options.end(), &option);
    OptionButton& next = std::next(at) == options.end() ? *options.front() : **std::next(at);
    if (&next == &option) return true;
    host_.Run(next, "GotFocus", [&] { focus_.SetFocus(next); });
    if (StillAt(&next)) host_.Run(next, "Click", [&] { ChooseAndClick(next); });
    return true;
}

void Keyboard::Choose(ListBox& list, int index) {
    if (index == list.ListIndex) return;
    host_.Run(list, "Click", [&] {
        list.ListIndex = index;
        if (!list.EnterChooses) list.Click();
    });
}

// Enter and the blank count as a click, and so does moving the selection where a list does not leave it at that.
bool Keyboard::MoveInList(ListBox& list, const KeyPress& press) {
    const int key = press.Stroke.Key;
    if (key == key::Enter || key == key::Space) {
        if (list.ListIndex >= 0) host_.Run(list, "Click", [&] { list.Click(); });
    } else if (list.Count() > 0 && Moves(key)) {
        const int page = std::max(1, list.EntriesInSight() - 1);
        Choose(list, Moved(key, list.ListIndex, 0, list.Count() - 1, page));
    } else if (const int found = FindTyped(list, press); found >= 0) {
        Choose(list, found);
    }
    return true;
}

bool Keyboard::MoveInCombo(ComboBox& box, const KeyPress& press) {
    const KeyStroke stroke = press.Stroke;
    const bool opens = stroke == KeyStroke{key::F4, 0} || stroke == KeyStroke{key::Space, 0} ||
                       stroke == KeyStroke{key::Down, key::AltHeld} ||
                       stroke == KeyStroke{key::Up, key::AltHeld};
    if (opens) {
        host_.OpenList(box);
        return true;
    }
    if ((stroke.Held & key::AltHeld) != 0) return false;
    if (box.Count() > 0 && Moves(stroke.Key)) {
        Choose(box, Moved(stroke.Key, box.ListIndex, 0, box.Count() - 1, comboPage));
    } else if (const int found = FindTyped(box, press); found >= 0) {
        Choose(box, found);
    }
    return true;
}

// Characters that follow one another soon make a text, and the list goes to the entry that begins with it. The same
// character over and over goes from one such entry to the next. -1 where there is none.
int Keyboard::FindTyped(const ListBox& list, const KeyPress& press) {
    if (press.Character <= key::Space) return -1;
    if (typedInto_ != &list || press.Time - typedAt_ > typingPause) typed_.clear();
    typedInto_ = &list;
    typedAt_ = press.Time;
    typed_ += UpperChar(static_cast<char>(press.Character));
    const bool sameAgain = typed_.find_first_not_of(typed_[0]) == std::string::npos;
    const std::string_view sought = sameAgain ? std::string_view(typed_).substr(0, 1) : typed_;
    const int count = list.Count();
    // A text that grows may stay where it is.
    const int first = std::max(0, list.ListIndex + (sameAgain ? 1 : 0));
    for (int i = 0; i < count; ++i) {
        const int index = (first + i) % count;
        if (BeginsWithIgnoringCase(TrimLeft(list.Entry(index)), sought)) return index;
    }
    return -1;
}

bool Keyboard::MoveInRows(ListView& list, int key) {
    if (list.Count() == 0 || !Moves(key)) return false;
    const int row = Moved(key, list.SelectedRow(), 1, list.Count(), list.VisibleRows());
    list.Select(row);
    list.EnsureVisible(row);
    return true;
}

void Keyboard::ShowPage(TabStrip& tabs, int page) {
    if (page == tabs.Value) return;
    host_.Run(tabs, "Click", [&] {
        tabs.Value = page;
        tabs.Click();
    });
}

bool Keyboard::MoveTabs(TabStrip& tabs, int key) {
    const int last = static_cast<int>(tabs.Captions.size()) - 1;
    int page = tabs.Value;
    switch (key) {
        case key::Left: --page; break;
        case key::Right: ++page; break;
        case key::Home: page = 0; break;
        case key::End: page = last; break;
        default: return true;
    }
    if (last >= 0) ShowPage(tabs, std::clamp(page, 0, last));
    return true;
}

// A scroll bar runs from its Min, at the top or the left, to its Max; an up-down counts upwards.
bool Keyboard::ChangeValue(RangeControl& range, int key) {
    const auto* const bar = dynamic_cast<const ScrollBar*>(&range);
    const int direction = bar && bar->Max >= bar->Min ? 1 : -1;
    const int small = bar ? bar->SmallChange : 1;
    const int large = bar ? bar->LargeChange : 1;
    const int sideways = bar ? direction * small : small;
    int value = range.Value;
    switch (key) {
        case key::Up: value -= direction * small; break;
        case key::Down: value += direction * small; break;
        case key::Left: value -= sideways; break;
        case key::Right: value += sideways; break;
        case key::PageUp: value -= direction * large; break;
        case key::PageDown: value += direction * large; break;
        case key::Home: value = bar ? range.Min : range.Highest(); break;
        case key::End: value = bar ? range.Max : range.Lowest(); break;
        default: return true;
    }
    host_.Run(range, "Change", [&] { range.SetValue(value); });
    return true;
}

}  // namespace kvt
