#include "platform/clicks.h"

#include "platform/tab_order.h"

namespace kvt {

bool TakesFocus(const Control& control) {
    switch (control.Kind()) {
        case ControlKind::RichText: return true;
        case ControlKind::Label:
        case ControlKind::PictureBox: return control.TabIndex >= 0;
        default: return AcceptsKeys(control.Kind());
    }
}

bool FocusByHand(Control& control, FocusService& focus) {
    if (!TakesFocus(control)) return true;
    focus.SetFocus(control);
    // The control before may have kept the focus, or taken this one away.
    return focus.Focused() == &control && control.EffectivelyVisible() && control.EffectivelyEnabled();
}

std::vector<OptionButton*> OptionsBeside(const OptionButton& option) {
    std::vector<OptionButton*> options;
    for (Control* control : option.OwningForm().Controls()) {
        auto* const one = dynamic_cast<OptionButton*>(control);
        if (one && one->Container == option.Container) options.push_back(one);
    }
    return options;
}

void ChooseAndClick(Control& control) {
    if (auto* check = dynamic_cast<CheckBox*>(&control)) {
        check->Value = check->Value == 0 ? 1 : 0;
    } else if (auto* option = dynamic_cast<OptionButton*>(&control)) {
        for (OptionButton* other : OptionsBeside(*option)) {
            if (other != option) other->Value = false;
        }
        option->Value = true;
    }
    control.Click();
}

bool ClickByHand(Control& control, FocusService& focus) {
    if (!control.EffectivelyVisible() || !control.EffectivelyEnabled()) return false;
    if (!FocusByHand(control, focus)) return false;
    ChooseAndClick(control);
    return true;
}

}  // namespace kvt
