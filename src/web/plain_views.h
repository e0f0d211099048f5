#pragma once

#include "web/web_view.h"

// Views of what shows a caption or a value and is clicked.
namespace kvt {

// A label, a button or an entry of a menu: what has a caption.
class WebCaptionView : public WebView {
public:
    WebCaptionView(WebContext& web, Control& control, const TextProperty& caption)
        : WebView(web, control), caption_(caption) {}

protected:
    bool Write(Message& message, PropertyId id) const override;

private:
    const TextProperty& caption_;
};

class WebLabelView : public WebCaptionView {
public:
    WebLabelView(WebContext& web, Label& control)
        : WebCaptionView(web, control, control.Caption), label_(control) {}

protected:
    void Describe(Message& message) const override;
    bool Write(Message& message, PropertyId id) const override;

private:
    const Label& label_;
};

class WebCommandButtonView : public WebCaptionView {
public:
    WebCommandButtonView(WebContext& web, CommandButton& control)
        : WebCaptionView(web, control, control.Caption), button_(control) {}

protected:
    void Describe(Message& message) const override;

private:
    const CommandButton& button_;
};

class WebCheckBoxView : public WebCaptionView {
public:
    WebCheckBoxView(WebContext& web, CheckBox& control)
        : WebCaptionView(web, control, control.Caption), box_(control) {}

protected:
    bool Write(Message& message, PropertyId id) const override;

private:
    const CheckBox& box_;
};

class WebOptionButtonView : public WebCaptionView {
public:
    WebOptionButtonView(WebContext& web, OptionButton& control)
        : WebCaptionView(web, control, control.Caption), option_(control) {}

protected:
    bool Write(Message& message, PropertyId id) const override;

private:
    const OptionButton& option_;
};

class WebFrameView : public WebCaptionView {
public:
    WebFrameView(WebContext& web, Frame& control)
        : WebCaptionView(web, control, control.Caption), frame_(control) {}

protected:
    bool Write(Message& message, PropertyId id) const override;

private:
    const Frame& frame_;
};

class WebMenuView : public WebCaptionView {
public:
    WebMenuView(WebContext& web, Menu& control)
        : WebCaptionView(web, control, control.Caption), menu_(control) {}

    // The entries of a menu at the pointer are there although that menu has no place in the menu bar.
    void Take(const PageEvent& event) override;

protected:
    void Describe(Message& message) const override;
    bool Write(Message& message, PropertyId id) const override;
    void Act(const PageEvent& event) override;

private:
    Menu& menu_;
};

class WebTabStripView : public WebView {
public:
    WebTabStripView(WebContext& web, TabStrip& control) : WebView(web, control), strip_(control) {}
    void PropertyChanged(Control& control, PropertyId id) override;

protected:
    void Describe(Message& message) const override { message.Add("keepsTab", strip_.KeepsTab); }
    bool Write(Message& message, PropertyId id) const override;
    void Act(const PageEvent& event) override;

private:
    TabStrip& strip_;
};

// A scroll bar, two arrows, or how much of something is done.
class WebRangeView : public WebView {
public:
    WebRangeView(WebContext& web, RangeControl& control) : WebView(web, control), range_(control) {}

protected:
    void Describe(Message& message) const override;
    bool Write(Message& message, PropertyId id) const override;
    void Act(const PageEvent& event) override;

private:
    RangeControl& range_;
};

}  // namespace kvt
