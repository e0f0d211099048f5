#pragma once

#include <map>
#include <vector>

#include "web/message.h"
#include "web/page_link.h"

namespace kvt {

class WebView;

// What the page shows: the views by the numbers that the page knows them by, and what is on its way to it. Changes of
// properties are gathered; what is sent besides finds all of them told.
class WebPage {
public:
    explicit WebPage(PageLink& link) : link_(link) {}

    PageLink& Link() const { return link_; }
    // Sends a message behind all changes.
    void Send(Message& message);
    void Send(Message&& message) { Send(message); }

    // Gives a view its number, from 1.
    int Add(WebView& view);
    void Remove(WebView& view);
    WebView* Find(int number) const;
    // A view has a change to tell.
    void Mark(WebView& view) { changed_.push_back(&view); }
    // Tells all changes.
    void TellChanges();

private:
    PageLink& link_;
    std::map<int, WebView*> views_;
    std::vector<WebView*> changed_;
    int last_ = 0;
};

}  // namespace kvt
