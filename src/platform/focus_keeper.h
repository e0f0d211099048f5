#pragma once

#include "platform/services.h"

namespace kvt {

// Which control has the focus, and who is told of it, the same in both halves. The old control's LostFocus runs
// when the focus has moved already; where it sends the focus elsewhere, the control in between hears nothing.
class FocusKeeper : public FocusService {
public:
    // A hidden or disabled control does not take the focus, and a form leaves it where it is.
    void SetFocus(Control& control) override;
    Control* Focused() override { return focused_; }

protected:
    // Lets the control that has the focus now show it.
    virtual void ShowFocus(Control&) {}

private:
    Control* focused_ = nullptr;
    bool arrived_ = false;
};

}  // namespace kvt
