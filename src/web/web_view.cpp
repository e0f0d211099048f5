#include "web/web_view.h"

#include "platform/accessible_name.h"
#include "platform/clicks.h"
#include "web/web_focus.h"
#include "web/web_page.h"
#include "web/web_system.h"

namespace kvt {

const char* NameOf(ControlKind kind) {
    switch (kind) {
        case ControlKind::Form: return "Form";
        case ControlKind::Label: return "Label";
        case ControlKind::TextBox: return "TextBox";
        case ControlKind::CheckBox: return "CheckBox";
        case ControlKind::OptionButton: return "OptionButton";
        case ControlKind::CommandButton: return "CommandButton";
        case ControlKind::Frame: return "Frame";
        case ControlKind::ListBox: return "ListBox";
        case ControlKind::ListView: return "ListView";
        case ControlKind::Menu: return "Menu";
        case ControlKind::PictureBox: return "PictureBox";
        case ControlKind::RichText: return "RichText";
        case ControlKind::FileDialog: return "FileDialog";
        case ControlKind::TabStrip: return "TabStrip";
        case ControlKind::Timer: return "Timer";
        case ControlKind::ComboBox: return "ComboBox";
        case ControlKind::ScrollBar: return "ScrollBar";
        case ControlKind::UpDown: return "UpDown";
        case ControlKind::ProgressBar: return "ProgressBar";
    }
    return "";
}

WebView::WebView(WebContext& web, Control& control)
    : Web(web), control_(control), number_(web.Page.Add(*this)) {
    control.View = this;
}

WebView::~WebView() {
    control_.View = nullptr;
    Web.Page.Remove(*this);
}

void WebView::Make() {
    Message message("make");
    message.Add("id", number_).Add("kind", NameOf(control_.Kind())).Text("name", control_.Name());
    if (control_.Index() >= 0) message.Add("index", control_.Index());
    if (const WebView* const form = Of(control_.OwningForm())) message.Add("form", form->Number());
    const WebView* const around = control_.Container ? Of(*control_.Container) : nullptr;
    if (around) message.Add("parent", around->Number());
    if (control_.Page >= 0) message.Add("page", control_.Page);
    Describe(message);
    message.Name("p").BeginObject();
    for (std::size_t id = 0; id < PropertyCount; ++id) Write(message, static_cast<PropertyId>(id));
    message.EndObject();
    Web.Page.Send(message);
    made_ = true;
    TellMore(Properties().set());
}

void WebView::PropertyChanged(Control&, PropertyId id) {
    Mark(id);
    if (id == PropertyId::Caption || id == PropertyId::ToolTip || id == PropertyId::AccessibleName)
        MarkName();
    if (id == PropertyId::Enabled) MarkInside(id);
}

void WebView::Mark(PropertyId id) {
    if (!made_) return;
    if (changed_.none()) Web.Page.Mark(*this);
    changed_.set(static_cast<std::size_t>(id));
}

void WebView::MarkInside(PropertyId id) const {
    for (const Control* one : control_.OwningForm().Controls()) {
        const Control* around = one->Container;
        while (around && around != &control_) around = around->Container;
        WebView* const view = around ? Of(*one) : nullptr;
        if (view && view != this) view->Mark(id);
    }
}

// Its own, and that of the field that goes by it.
void WebView::MarkName() {
    Mark(PropertyId::AccessibleName);
    const Control* const field = NamedBy(control_);
    WebView* const other = field ? Of(*field) : nullptr;
    if (other) other->Mark(PropertyId::AccessibleName);
}

void WebView::Tell() {
    const Properties changed = std::exchange(changed_, {});
    Message message("set");
    message.Add("id", number_).Name("p").BeginObject();
    bool tells = false;
    for (std::size_t id = 0; id < PropertyCount; ++id) {
        if (changed.test(id)) tells |= Write(message, static_cast<PropertyId>(id));
    }
    message.EndObject();
    if (tells) Web.Page.Link().Send(message.End());
    TellMore(changed);
}

bool WebView::Write(Message& message, PropertyId id) const {
    switch (id) {
        case PropertyId::Left: message.Add("Left", control_.Left.Get()); return true;
        case PropertyId::Top: message.Add("Top", control_.Top.Get()); return true;
        case PropertyId::Width: message.Add("Width", control_.Width.Get()); return true;
        case PropertyId::Height: message.Add("Height", control_.Height.Get()); return true;
        case PropertyId::Visible:
            message.Add("Visible", control_.Visible && control_.OnFrontPage());
            return true;
        case PropertyId::Enabled: message.Add("Enabled", control_.EffectivelyEnabled()); return true;
        case PropertyId::MousePointer: message.Add("MousePointer", control_.MousePointer.Get()); return true;
        case PropertyId::TabIndex: message.Add("TabIndex", control_.TabIndex.Get()); return true;
        case PropertyId::ToolTip: message.Shown("ToolTip", control_.ToolTip); return true;
        case PropertyId::AccessibleName:
            message.Shown("AccessibleName", AccessibleNameOf(control_));
            return true;
        default: return false;
    }
}

void WebView::Refuse() const {
    if (control_.EffectivelyVisible() && control_.OnRefused)
        Web.System.Run(control_, "Refused", [this] { control_.OnRefused(); });
}

bool WebView::Press() {
    if (!TakesFocus(control_)) return true;
    const int questions = Web.System.Questions();
    bool stays = false;
    Web.System.Run(control_, "GotFocus", [&] { stays = FocusByHand(control_, Web.Focus); });
    return stays && Web.System.Questions() == questions && !Web.System.Ended();
}

// A click whose press was used up is no click; those of hands that do not press come alone. What is only looked at may
// be disabled.
void WebView::Take(const PageEvent& event) {
    if (event.Is("sight") || event.Is("tooltip") || event.Is("found")) return Act(event);
    if (!Usable()) {
        if (event.Is("press") || event.Is("menu")) Refuse();
        // One that was only not up to date has been clicked by that.
        pressUsed_ = event.Is("press") && Usable();
        return;
    }
    if (event.Is("press")) {
        pressUsed_ = !Press();
    } else if (!std::exchange(pressUsed_, false)) {
        Act(event);
    }
}

void WebView::Act(const PageEvent& event) {
    if (!event.Is("click") || !Press() || !Usable()) return;
    Web.System.Run(control_, "Click", [this] { ChooseAndClick(control_); });
    // The page may have changed a mark by itself; the control has the last word.
    Mark(PropertyId::Value);
}

}  // namespace kvt
