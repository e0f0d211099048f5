#pragma once

#include <vector>

#include "platform/window_focus.h"
#include "web/web_page.h"

namespace kvt {

// The focus and the windows of the page, which has no window manager: the page is told of both.
class WebFocus : public WindowFocus {
public:
    explicit WebFocus(WebPage& page) : page_(page) {}

    // A window was hidden: the one that was in front before it comes there.
    void Hidden(Form& form);
    // Tells the page which window is in front and where the focus is: it knows more of them now.
    void TellAgain();

protected:
    void ShowFocus(Control& control) override;
    void ShowFront(Form& form) override;

private:
    void TellFocus(const Control& control);
    void TellFront(const Form& form);

    WebPage& page_;
    std::vector<Form*> order_;  // the one in front last
};

}  // namespace kvt
