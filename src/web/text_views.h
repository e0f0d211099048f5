#pragma once

#include "web/web_view.h"

namespace kvt {

// A field of one line or several. The page counts a line end as one character, the control as two.
class WebTextBoxView : public WebView {
public:
    WebTextBoxView(WebContext& web, TextBox& control) : WebView(web, control), box_(control) {}

protected:
    void Describe(Message& message) const override;
    bool Write(Message& message, PropertyId id) const override;
    void TellMore(const Properties& changed) override;
    void Act(const PageEvent& event) override;

private:
    int PlaceInPage(int place) const;
    static int PlaceIn(std::string_view text, int place);
    TextSelection SelectionOf(const PageEvent& event, std::string_view text) const;
    void TakeText(const PageEvent& event);

    TextBox& box_;
    // How much of the text the page has: what is added behind is told alone.
    std::size_t told_ = 0;
};

class WebRichTextView : public WebView {
public:
    WebRichTextView(WebContext& web, RichText& control) : WebView(web, control), document_(control) {}

protected:
    void Describe(Message& message) const override { message.Add("plain", document_.Plain); }
    bool Write(Message& message, PropertyId id) const override;
    void TellMore(const Properties& changed) override;
    void Act(const PageEvent& event) override;

private:
    RichText& document_;
};

}  // namespace kvt
