#include "platform/tab_order.h"

#include <algorithm>

#include "platform/clicks.h"

namespace kvt {

namespace {

bool Before(const Control* a, const Control* b) { return a->TabIndex.Get() < b->TabIndex.Get(); }

bool LiesIn(const Control* control, const Control& container) {
    while (control->Container && control != &container) control = control->Container;
    return control == &container;
}

// What the Tab key stays within: pages that keep it, or the whole form.
const Control& ScopeOf(const Form& form) {
    for (const Control* control : form.Controls()) {
        if (control->Kind() != ControlKind::TabStrip || !control->EffectivelyVisible()) continue;
        if (static_cast<const TabStrip*>(control)->KeepsTab) return *control;
    }
    return form;
}

// Whether another option beside one is chosen, and can have the keys.
bool AnotherIsChosen(const OptionButton& option) {
    if (option.Value) return false;
    const std::vector<OptionButton*> options = OptionsBeside(option);
    return std::any_of(options.begin(), options.end(), [](const OptionButton* one) {
        return one->Value && one->TabIndex >= 0 && one->EffectivelyVisible() && one->EffectivelyEnabled();
    });
}

}  // namespace

bool AcceptsKeys(ControlKind kind) {
    switch (kind) {
        case ControlKind::TextBox:
        case ControlKind::CheckBox:
        case ControlKind::OptionButton:
        case ControlKind::CommandButton:
        case ControlKind::ListBox:
        case ControlKind::ListView:
        case ControlKind::ComboBox:
        case ControlKind::TabStrip: return true;
        default: return false;
    }
}

bool AcceptsTab(const Control& control) {
    const auto* const option = dynamic_cast<const OptionButton*>(&control);
    if (option && AnotherIsChosen(*option)) return false;
    // A scroll bar that the mouse moves leaves the keys where they are; Tab alone goes there.
    const bool scrolls = control.Kind() == ControlKind::ScrollBar || control.Kind() == ControlKind::UpDown;
    const bool words =
        control.Kind() == ControlKind::Label && !static_cast<const Label&>(control).Caption.Get().empty();
    return (AcceptsKeys(control.Kind()) || scrolls || words) && control.TabIndex >= 0 &&
           control.EffectivelyVisible() && control.EffectivelyEnabled();
}

Control* NextInTabOrder(Control& from, bool backwards) {
    const Control& scope = ScopeOf(from.OwningForm());
    if (!LiesIn(&from, scope)) return FirstInTabOrder(from.OwningForm());
    std::vector<Control*> stops;
    for (Control* control : from.OwningForm().Controls()) {
        if (control == &from || (LiesIn(control, scope) && AcceptsTab(*control))) stops.push_back(control);
    }
    std::stable_sort(stops.begin(), stops.end(), Before);
    if (backwards) std::reverse(stops.begin(), stops.end());
    const auto at = std::find(stops.begin(), stops.end(), &from);
    Control* const next = std::next(at) == stops.end() ? stops.front() : *std::next(at);
    return next != &from ? next : nullptr;
}

Control* FirstInTabOrder(const Control& container) {
    const bool whole = container.Kind() == ControlKind::Form;
    const Control& scope = whole ? ScopeOf(static_cast<const Form&>(container)) : container;
    std::vector<Control*> stops;
    const std::vector<Control*>& all = container.OwningForm().Controls();
    std::copy_if(all.begin(), all.end(), std::back_inserter(stops), [&](const Control* control) {
        return control != &container && LiesIn(control, scope) && AcceptsTab(*control);
    });
    const auto first = std::min_element(stops.begin(), stops.end(), Before);
    return first == stops.end() ? nullptr : *first;
}

}  // namespace kvt
