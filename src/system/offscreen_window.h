#pragma once

#include "platform/controls.h"
#include "platform/services.h"
#include "platform/window_focus.h"

namespace kvt {

// A window without a display: a maximised form has the work area, a restored one the place that it had before,
// and a form hears of every new size, by hand or by code. One that is shown or brought up comes to the front, unless it
// stays above the others anyway.
class OffscreenWindow : public ControlView {
public:
    OffscreenWindow(Form& form, ScreenService& screen, WindowFocus& focus);
    ~OffscreenWindow() override;
    OffscreenWindow(const OffscreenWindow&) = delete;
    OffscreenWindow& operator=(const OffscreenWindow&) = delete;

    const Form& Shown() const { return form_; }
    // Draws the window to a size in twips, which it hears of once.
    void Resize(int width, int height);

    void PropertyChanged(Control& control, PropertyId id) override;

private:
    void Put(const WindowPlace& place);
    void TellResize() const;

    Form& form_;
    ScreenService& screen_;
    WindowFocus& focus_;
    bool placing_ = false;
};

}  // namespace kvt
