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

}  // namespace

void EditByCharacter(TextBox& box, int character) {
    const TextSelection selection = box.Selection;
    const auto start = static_cast<std::size_t>(selection.Start);
    const auto length = static_cast<std::size_t>(selection.Length);
    if (character == key::Backspace) {
        if (length > 0) {
            PutIn(box, start, length, "");
        } else if (start > 0) {
            PutIn(box, start - 1, 1, "");
        }
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
            const auto start = static_cast<std::size_t>(selection.Start);
            const int length = selection.Length > 0 ? selection.Length : std::min(1, size - selection.Start);
            return PutIn(box, start, static_cast<std::size_t>(length), "");
        }
        default: return;
    }
}

void EditByClipboard(TextBox& box, int character, ClipboardService& clipboard) {
    const TextSelection selection = box.Selection;
    const auto start = static_cast<std::size_t>(selection.Start);
    const auto length = static_cast<std::size_t>(selection.Length);
    try {
        if (character == key::CtrlV) {
            std::string text = clipboard.GetText();
            std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
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

bool ClickByHand(Control& control, FocusService& focus) {
    if (!control.ReallyVisible() || !control.ReallyEnabled()) return false;
    if (TakesFocus(control)) focus.SetFocus(control);
    // Leaving the control before may have taken this one away.
    if (!control.ReallyVisible() || !control.ReallyEnabled()) return false;
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
