#pragma once

#include <map>

#include "platform/focus_keeper.h"

namespace kvt {

// The focus where no window manager takes part, and which window is in front with it: a window comes there when a control of it gets
// the focus, and when it is shown or brought up. It hears of it, and so does the one that was there before.
class WindowFocus : public FocusKeeper {
public:
    void SetFocus(Control& control) override;
    // The keys go to the control that had them last there. The first window of all is brought up by the start of the
    // program, which hears of nothing.
    void BringToFront(Form& form);
    // A window was hidden. The keys stay where they are until they are given to another window.
    void WindowHidden(const Form& form);
    // The window in front; null where none is.
    Form* Front() const { return front_; }

protected:
    void ShowFocus(Control& control) override;
    // Lets another window be seen in front.
    virtual void ShowFront(Form&) {}

private:
    Form* front_ = nullptr;
    bool begun_ = false;
    // The control of each form that had the focus last.
    std::map<const Form*, Control*> last_;
};

}  // namespace kvt
