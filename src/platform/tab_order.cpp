#include "platform/tab_order.h"

#include <algorithm>

namespace kvt {

namespace {

bool Before(const Control* a, const Control* b) { return a->TabIndex.Get() < b->TabIndex.Get(); }

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
    // A scroll bar that the mouse moves leaves the keys where they are; Tab alone goes there.
    const bool scrolls = control.Kind() == ControlKind::ScrollBar || control.Kind() == ControlKind::UpDown;
    return (AcceptsKeys(control.Kind()) || scrolls) && control.TabIndex >= 0 &&
           control.EffectivelyVisible() && control.EffectivelyEnabled();
}

Control* NextInTabOrder(Control& from, bool backwards) {
    std::vector<Control*> stops;
    for (Control* control : from.OwningForm().Controls()) {
        if (control == &from || AcceptsTab(*control)) stops.push_back(control);
    }
    std::stable_sort(stops.begin(), stops.end(), Before);
    if (backwards) std::reverse(stops.begin(), stops.end());
    const auto at = std::find(stops.begin(), stops.end(), &from);
    Control* const next = std::next(at) == stops.end() ? stops.front() : *std::next(at);
    return next != &from ? next : nullptr;
}

Control* FirstInTabOrder(const Control& container) {
    const auto lies = [&](const Control* control) {
        while (control->Container && control != &container) control = control->Container;
        return control == &container;
    };
    std::vector<Control*> stops;
    const std::vector<Control*>& all = container.OwningForm().Controls();
    std::copy_if(all.begin(), all.end(), std::back_inserter(stops), [&](const Control* control) {
        return control != &container && lies(control) && AcceptsTab(*control);
    });
    const auto first = std::min_element(stops.begin(), stops.end(), Before);
    return first == stops.end() ? nullptr : *first;
}

}  // namespace kvt
