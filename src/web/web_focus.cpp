#include "web/web_focus.h"

#include "web/web_view.h"

namespace kvt {

void WebFocus::Hidden(Form& form) {
    WindowHidden(form);
    std::erase(order_, &form);
    if (!Front() && !order_.empty()) BringToFront(*order_.back());
}

void WebFocus::TellAgain() {
    if (Front()) TellFront(*Front());
    if (Focused()) TellFocus(*Focused());
}

void WebFocus::ShowFocus(Control& control) {
    WindowFocus::ShowFocus(control);
    TellFocus(control);
}

void WebFocus::TellFocus(const Control& control) {
    if (const WebView* const view = WebView::Of(control))
        page_.Send(Message("focus").Add("id", view->Number()));
}

void WebFocus::ShowFront(Form& form) {
    std::erase(order_, &form);
    order_.push_back(&form);
    TellFront(form);
}

void WebFocus::TellFront(const Form& form) {
    if (const WebView* const view = WebView::Of(form)) page_.Send(Message("front").Add("id", view->Number()));
}

}  // namespace kvt
