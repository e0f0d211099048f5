#include "web/plain_views.h"

#include <algorithm>

#include "web/web_keyboard.h"
#include "web/web_system.h"

namespace kvt {

bool WebCaptionView::Write(Message& message, PropertyId id) const {
    if (id != PropertyId::Caption) return WebView::Write(message, id);
    message.Shown("Caption", caption_);
    return true;
}

void WebLabelView::Describe(Message& message) const {
    message.Add("atRight", label_.AtRight).Add("announced", label_.Announced);
}

bool WebLabelView::Write(Message& message, PropertyId id) const {
    if (id != PropertyId::ForeColor) return WebCaptionView::Write(message, id);
    message.Add("ForeColor", label_.ForeColor.Get());
    return true;
}

void WebCommandButtonView::Describe(Message& message) const { message.Text("picture", button_.Picture); }

bool WebCheckBoxView::Write(Message& message, PropertyId id) const {
    if (id != PropertyId::Value) return WebCaptionView::Write(message, id);
    message.Add("Value", box_.Value != 0);
    return true;
}

bool WebOptionButtonView::Write(Message& message, PropertyId id) const {
    if (id != PropertyId::Value) return WebCaptionView::Write(message, id);
    message.Add("Value", option_.Value.Get());
    return true;
}

bool WebFrameView::Write(Message& message, PropertyId id) const {
    if (id != PropertyId::Lead) return WebCaptionView::Write(message, id);
    message.Code("Lead", frame_.Lead);
    return true;
}

void WebMenuView::Describe(Message& message) const {
    message.Text("shortcut", menu_.Shortcut).Text("shownShortcut", menu_.ShownShortcut);
}

bool WebMenuView::Write(Message& message, PropertyId id) const {
    if (id != PropertyId::Checked) return WebCaptionView::Write(message, id);
    message.Add("Checked", menu_.Checked.Get());
    return true;
}

void WebMenuView::Take(const PageEvent& event) {
    const bool atPointer =
        menu_.Container && menu_.Container->Kind() == ControlKind::Menu && !menu_.Container->Visible.Get();
    if (!atPointer) return WebCaptionView::Take(event);
    if (menu_.Visible && menu_.Enabled) Act(event);
}

void WebMenuView::Act(const PageEvent& event) {
    if (!event.Is("menu")) return;
    Web.System.Run(menu_, "Click", [this] { menu_.Click(); });
    Web.System.SendKeys();
}

// The controls of the pages come into sight and go.
void WebTabStripView::PropertyChanged(Control& control, PropertyId id) {
    WebView::PropertyChanged(control, id);
    if (id == PropertyId::Value) MarkInside(PropertyId::Visible);
}

bool WebTabStripView::Write(Message& message, PropertyId id) const {
    if (id == PropertyId::Caption) {
        message.Name("Captions").BeginArray();
        for (const std::string& caption : strip_.Captions) message.PutCode(caption);
        message.EndArray();
        return true;
    }
    if (id != PropertyId::Value) return WebView::Write(message, id);
    message.Add("Value", strip_.Value.Get());
    return true;
}

void WebTabStripView::Act(const PageEvent& event) {
    if (!event.Is("tab")) return WebView::Act(event);
    const int page = event.Number("page");
    if (page < 0 || page >= static_cast<int>(strip_.Captions.size()) || page == strip_.Value) return;
    Web.System.Run(strip_, "Click", [&] {
        strip_.Value = page;
        strip_.Click();
    });
}

void WebRangeView::Describe(Message& message) const {
    const auto* const bar = dynamic_cast<const ScrollBar*>(&range_);
    if (!bar) return;
    message.Add("vertical", bar->Vertical).Add("small", bar->SmallChange).Add("large", bar->LargeChange);
}

bool WebRangeView::Write(Message& message, PropertyId id) const {
    switch (id) {
        case PropertyId::Bounds:
            message.Add("Min", range_.Min.Get()).Add("Max", range_.Max.Get());
            return true;
        case PropertyId::Value: message.Add("Value", range_.Value.Get()); return true;
        default: return WebView::Write(message, id);
    }
}

void WebRangeView::Act(const PageEvent& event) {
    if (!event.Is("range") || range_.Kind() == ControlKind::ProgressBar) return;
    Web.System.Run(range_, "Change", [&] { range_.SetValue(event.Number("value")); });
    Mark(PropertyId::Value);
}

}  // namespace kvt
