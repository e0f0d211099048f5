#include "web/web_page.h"

#include <utility>

#include "web/web_view.h"

namespace kvt {

void WebPage::Send(Message& message) {
    TellChanges();
    link_.Send(message.End());
}

int WebPage::Add(WebView& view) {
    views_.emplace(++last_, &view);
    return last_;
}

void WebPage::Remove(WebView& view) {
    views_.erase(view.Number());
    std::erase(changed_, &view);
}

WebView* WebPage::Find(int number) const {
    const auto found = views_.find(number);
    return found == views_.end() ? nullptr : found->second;
}

void WebPage::TellChanges() {
    for (WebView* view : std::exchange(changed_, {})) view->Tell();
}

}  // namespace kvt
