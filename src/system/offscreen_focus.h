#pragma once

#include <map>

#include "platform/focus_keeper.h"

namespace kvt {

// The focus without a display, and which window is in front with it: a window comes there when a control of it gets
// the focus, and when it is shown or brought up. It hears of it, and so does the one that was there before.
class OffscreenFocus : public FocusKeeper {
public:
    void SetFocus(Control& control) override;
    // The keys go to the control that had them last there. The first window of all is brought up by the start of the
    // program, which hears of nothing.
    void BringToFront(Form& form);
    // A window was hidden. The keys stay where they are until they are given to another window.
    void WindowHidden(const Form& form);

protected:
    void ShowFocus(Control& control) override;

private:
    Form* front_ = nullptr;
    bool begun_ = false;
    // The control of each form that had the focus last.
    std::map<const Form*, Control*> last_;
};

}  // namespace kvt
