#pragma once

#include "web/web_view.h"

namespace kvt {

// A list of texts, open or behind its selected entry.
class WebListBoxView : public WebView {
public:
    WebListBoxView(WebContext& web, ListBox& control) : WebView(web, control), list_(control) {}

protected:
    void Describe(Message& message) const override;
    bool Write(Message& message, PropertyId id) const override;
    void Act(const PageEvent& event) override;

private:
    void Choose(int index);

    ListBox& list_;
};

}  // namespace kvt
