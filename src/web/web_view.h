#pragma once

#include <bitset>

#include "platform/controls.h"
#include "web/message.h"
#include "web/page_event.h"
#include "web/web_context.h"

namespace kvt {

// Shows a control in the page. It tells the page what the control is, then each property that changes, at most once
// between two events, and takes what the user does with it.
class WebView : public ControlView {
public:
    WebView(WebContext& web, Control& control);
    ~WebView() override;
    WebView(const WebView&) = delete;
    WebView& operator=(const WebView&) = delete;

    Control& Subject() const { return control_; }
    int Number() const { return number_; }

    void PropertyChanged(Control& control, PropertyId id) override;
    // Has the page make it, with all properties.
    void Make();
    // Tells what has changed.
    void Tell();

    // The view of a control, null where it has none.
    static WebView* Of(const Control& control) { return dynamic_cast<WebView*>(control.View); }

protected:
    static constexpr std::size_t PropertyCount = static_cast<std::size_t>(PropertyId::MarkedRow) + 1;
    using Properties = std::bitset<PropertyCount>;
    static bool Holds(const Properties& changed, PropertyId id) {
        return changed.test(static_cast<std::size_t>(id));
    }

    // Adds a property under its name; false for one that this kind does not have.
    virtual bool Write(Message& message, PropertyId id) const;
    // Adds what does not change to the message that makes it.
    virtual void Describe(Message&) const {}
    // Tells what is no property by itself, behind the properties.
    virtual void TellMore(const Properties&) {}
    // Takes an event of a control that can be seen and used.
    virtual void Act(const PageEvent& event);

    void Mark(PropertyId id);
    // Marks a property of all controls that lie in this one.
    void MarkInside(PropertyId id) const;
    // The mouse goes down on it. False where the press is used up: the control has not got the focus, or something was
    // asked.
    bool Press();
    bool Usable() const { return control_.EffectivelyVisible() && control_.EffectivelyEnabled(); }

    WebContext& Web;

public:
    // Something was done with it; what the control cannot have now changes nothing.
    virtual void Take(const PageEvent& event);

private:
    void Refuse() const;
    void MarkName();

    Control& control_;
    int number_;
    Properties changed_;
    bool made_ = false;
    bool pressUsed_ = false;
};

// The name of a kind, as the page knows it.
const char* NameOf(ControlKind kind);

}  // namespace kvt
