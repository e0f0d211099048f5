#include "headless/text_editing.h"

#include <algorithm>

#include "basic/run_time_error.h"
#include "platform/keys.h"
#include "platform/tab_order.h"

namespace kvt {

namespace {

void PutIn(TextBox& box, std::size_t start, std::size_t length, std::string_view text) {
    std::string changed = box.Text.Get();
    changed.replace(start, length, text);
    const int caret = static_cast<int>(start + text.size());
    box.Selection = TextSelection{0, 0};
    box.Text = changed;
    box.Selection = TextSelection{std::min(caret, static_cast<int>(box.Text.Get().size())), 0};
}

// How many characters at a place go together: a line end is two.
std::size_t Behind(const std::string& text, std::size_t at) {
    return text.compare(at, 2, "\r\n") == 0 ? 2 : 1;
}
std::size_t InFront(const std::string& text, std::size_t at) {
    return at >= 2 && text.compare(at - 2, 2, "\r\n") == 0 ? 2 : 1;
}

// The line ends that a box with one line has no place for go; one with several takes each kind as CR LF.
std::string Fitting(const TextBox& box, const std::string& text) {
    std::string fitting;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool lineEnd = text[i] == '\r' || text[i] == '\n';
        if (!lineEnd) fitting += text[i];
        if (!lineEnd || !box.MultiLine) continue;
        fitting += "\r\n";
        i += Behind(text, i) - 1;
    }
    return fitting;
}

}  // namespace

void EditByCharacter(TextBox& box, int character) {
    if (box.ShownOnly) return;
    const TextSelection selection = box.Selection;
    const auto start = static_cast<std::size_t>(selection.Start);
    const auto length = static_cast<std::size_t>(selection.Length);
    if (character == key::Backspace) {
        if (length > 0) {
            PutIn(box, start, length, "");
        } else if (start > 0) {
            const std::size_t one = InFront(box.Text.Get(), start);
            PutIn(box, start - one, one, "");
        }
    } else if (character == key::Enter && box.MultiLine) {
        PutIn(box, start, length, "\r\n");
    } else if (character >= 32 && character <= 255) {
        PutIn(box, start, length, std::string(1, static_cast<char>(character)));
    }
}

void EditByKey(TextBox& box, int pressed) {
    const TextSelection selection = box.Selection;
    const int size = static_cast<int>(box.Text.Get().size());
    const auto caret = [&](int at) { box.Selection = TextSelection{std::clamp(at, 0, size), 0}; };
    switch (pressed) {
        case key::Left: return caret(selection.Length > 0 ? selection.Start : selection.Start - 1);
        case key::Right:
            return caret(selection.Length > 0 ? selection.Start + selection.Length : selection.Start + 1);
        case key::Home: return caret(0);
        case key::End: return caret(size);
        case key::Delete: {
            if (box.ShownOnly) return;
            const auto start = static_cast<std::size_t>(selection.Start);
            if (selection.Length == 0 && selection.Start >= size) return;
            return PutIn(box, start,
                         selection.Length > 0 ? static_cast<std::size_t>(selection.Length)
                                              : Behind(box.Text.Get(), start),
                         "");
        }
        default: return;
    }
}

void EditByClipboard(TextBox& box, int character, ClipboardService& clipboard) {
    if (box.ShownOnly && character != key::CtrlC) return;
    const TextSelection selection = box.Selection;
    const auto start = static_cast<std::size_t>(selection.Start);
    const auto length = static_cast<std::size_t>(selection.Length);
    try {
        if (character == key::CtrlV) {
            const std::string text = Fitting(box, clipboard.GetText());
            if (!text.empty()) PutIn(box, start, length, text);
        } else if (length > 0) {
            const std::string text = box.Text.Get().substr(start, length);
            clipboard.Clear();
            clipboard.SetText(text);
            if (character == key::CtrlX) PutIn(box, start, length, "");
        }
    } catch (const RunTimeError&) {
        // The box itself has nobody to tell.
    }
}

bool TakesFocus(const Control& control) { return TakesKeys(control.Kind()) || control.TabIndex >= 0; }

bool FocusByHand(Control& control, FocusService& focus) {
    if (!TakesFocus(control)) return true;
    focus.SetFocus(control);
    // The control before may have kept the focus, or taken this one away.
    return focus.Focused() == &control && control.ReallyVisible() && control.ReallyEnabled();
}

bool ClickByHand(Control& control, FocusService& focus) {
    if (!control.ReallyVisible() || !control.ReallyEnabled()) return false;
    if (!FocusByHand(control, focus)) return false;
    Form& form = control.OwningForm();
    if (auto* check = dynamic_cast<CheckBox*>(&control)) {
        check->Value = check->Value == 0 ? 1 : 0;
    } else if (auto* option = dynamic_cast<OptionButton*>(&control)) {
        // The others in the same frame go out.
        for (Control* other : form.Controls()) {
            auto* beside = dynamic_cast<OptionButton*>(other);
            if (beside && beside != option && beside->Container == option->Container) beside->Value = false;
        }
        option->Value = true;
    }
    control.Click();
    return true;
}

}  // namespace kvt
