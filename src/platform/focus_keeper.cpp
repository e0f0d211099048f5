#include "platform/focus_keeper.h"

#include <utility>

namespace kvt {

void FocusKeeper::SetFocus(Control& control) {
    if (control.Kind() == ControlKind::Form || &control == focused_) return;
    if (!control.EffectivelyVisible() || !control.EffectivelyEnabled()) return;
    Control* const before = std::exchange(focused_, &control);
    const bool beforeArrived = std::exchange(arrived_, false);
    ShowFocus(control);
    if (before && beforeArrived && before->OnLostFocus) before->OnLostFocus();
    if (focused_ != &control || arrived_) return;
    arrived_ = true;
    if (control.OnGotFocus) control.OnGotFocus();
}

}  // namespace kvt
