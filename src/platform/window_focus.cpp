#include "platform/window_focus.h"

#include <utility>

#include "platform/controls.h"
#include "platform/tab_order.h"

namespace kvt {

void WindowFocus::SetFocus(Control& control) {
    FocusKeeper::SetFocus(control);
    if (Focused()) BringToFront(Focused()->OwningForm());
}

void WindowFocus::BringToFront(Form& form) {
    if (front_ == &form || !form.Visible) return;
    Form* const before = std::exchange(front_, &form);
    ShowFront(form);
    if (!std::exchange(begun_, true)) return;
    const auto giveFocus = [this, &form](Control* control) {
        const bool hasThem = Focused() && &Focused()->OwningForm() == &form;
        if (!hasThem && control) FocusKeeper::SetFocus(*control);
    };
    const auto last = last_.find(&form);
    if (last != last_.end()) giveFocus(last->second);
    // A control that kept the keys has its own window in front again; so can a handler.
    if (front_ != &form) return;
    if (before && before->OnLostFocus) before->OnLostFocus();
    // A window that never had them may know whom to give them to.
    if (form.OnActivate) form.OnActivate();
    if (front_ == &form) giveFocus(FirstInTabOrder(form));
}

void WindowFocus::WindowHidden(const Form& form) {
    if (front_ == &form) front_ = nullptr;
}

void WindowFocus::ShowFocus(Control& control) { last_[&control.OwningForm()] = &control; }

}  // namespace kvt
