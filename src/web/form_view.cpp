#include "web/form_view.h"

#include <algorithm>

#include "basic/stack_guard.h"
#include "web/view_factory.h"
#include "web/web_focus.h"
#include "web/web_page.h"
#include "web/web_system.h"

namespace kvt {

namespace {

const char* NameOf(WindowState state) {
    switch (state) {
        case WindowState::Normal: return "Normal";
        case WindowState::Minimised: return "Minimised";
        case WindowState::Maximised: return "Maximised";
    }
    return "";
}

}  // namespace

WebFormView::WebFormView(WebContext& web, Form& form, ScreenService& screen, const WindowPlace& edges)
    : WebView(web, form), form_(form), screen_(screen), edges_(edges) {
    Make();
    MakeViews();
    if (form.State == WindowState::Maximised) FollowScreen();
    if (form.Visible) Show();
}

void WebFormView::Describe(Message& message) const {
    message.Add("topMost", form_.TopMost);
    message.Add("edgeWidth", form_.EdgeWidth).Add("edgeHeight", form_.EdgeHeight);
    const int least = form_.LeastHeight > 0 ? form_.LeastHeight : form_.SmallestHeight;
    message.Add("smallestWidth", form_.SmallestWidth).Add("smallestHeight", least);
}

// What contains a control gets its view first.
void WebFormView::MakeViews() {
    for (Control* control : form_.Controls()) MakeView(*control);
}

ControlView* WebFormView::MakeView(Control& control) {
    if (control.View || &control == &form_) return control.View;
    if (control.Container) MakeView(*control.Container);
    auto view = NewView(Web, control);
    if (!view) return nullptr;
    if (auto* const shown = dynamic_cast<WebView*>(view.get())) shown->Make();
    views_.push_back(std::move(view));
    return views_.back().get();
}

bool WebFormView::Write(Message& message, PropertyId id) const {
    switch (id) {
        case PropertyId::Caption:
            message.Shown("Caption", form_.Caption.Get() + (form_.Unsaved ? " *" : ""));
            return true;
        case PropertyId::WindowState: message.Add("WindowState", NameOf(form_.State)); return true;
        default: return WebView::Write(message, id);
    }
}

void WebFormView::PropertyChanged(Control& control, PropertyId id) {
    WebView::PropertyChanged(control, id);
    if (putting_) return;
    switch (id) {
        case PropertyId::Entries: return MakeViews();
        case PropertyId::Visible: return form_.Visible ? Show() : Web.Focus.Hidden(form_);
        case PropertyId::Front: return Show();
        case PropertyId::Area: return FillArea();
        case PropertyId::WindowState:
            if (form_.State == WindowState::Maximised) FollowScreen();
            if (form_.State == WindowState::Normal) FillPageSoon();
            return TellResize();
        default: break;
    }
}

void WebFormView::Show() {
    if (!form_.TopMost && !form_.ComesBehind()) Web.Focus.BringToFront(form_);
}

void WebFormView::FillArea() {
    WindowPlace place = *form_.AreaToFill();
    place.Width -= edges_.Width - form_.EdgeWidth;
    place.Height -= edges_.Height - form_.EdgeHeight;
    part_ = *form_.AreaToFill();
    form_.SetRestoredPlace(place);
    hasPart_ = true;
    partOf_ = {screen_.Height(), 0, 0, screen_.Width()};
}

void WebFormView::TakePart() {
    const auto share = [](int place, int of, int now) {
        return of > 0 ? static_cast<int>(1LL * place * now / of) : place;
    };
    const int left = share(part_.Left, partOf_.Width, screen_.Width());
    const int right = share(part_.Left + part_.Width, partOf_.Width, screen_.Width());
    const int top = share(part_.Top, partOf_.Height, screen_.Height());
    const int bottom = share(part_.Top + part_.Height, partOf_.Height, screen_.Height());
    TakeField(right - left - edges_.Width, bottom - top - edges_.Height, {0, left, top, 0});
}

void WebFormView::FillPage() {
    fillsPage_ = true;
    form_.State = WindowState::Maximised;
}

// What has restored it may give it a part of the page next.
void WebFormView::FillPageSoon() {
    hasPart_ = false;
    if (!fillsPage_) return;
    Web.System.Later([this] {
        if (!hasPart_ && form_.State == WindowState::Normal) form_.State = WindowState::Maximised;
    });
}

void WebFormView::Put(const WindowPlace& place) {
    const StackGuard guard(putting_);
    form_.Left = place.Left;
    form_.Top = place.Top;
    if (form_.ApplySize(place.Width, place.Height) && form_.OnResize)
        Web.System.Run(form_, "Resize", form_.OnResize);
}

void WebFormView::FollowScreen() {
    if (form_.State == WindowState::Maximised)
        TakeField(screen_.Width() - edges_.Width, screen_.Height() - edges_.Height, {});
    if (form_.State == WindowState::Normal && hasPart_) TakePart();
}

void WebFormView::TellResize() {
    if (form_.OnResize) Web.System.Run(form_, "Resize", form_.OnResize);
}

void WebFormView::Drop(const std::string& path) {
    if (Usable() && form_.OnDropFile) Web.System.Run(form_, "OLEDragDrop", [&] { form_.OnDropFile(path); });
}

// The field is never smaller than its controls need; the page scrolls to the rest.
void WebFormView::TakeField(int width, int height, const WindowPlace& corner) {
    if (width <= 0 || height <= 0) return;
    const int least = form_.LeastHeight > 0 ? form_.LeastHeight : form_.SmallestHeight;
    Put({std::max(height + form_.EdgeHeight, least), corner.Left, corner.Top,
         std::max(width + form_.EdgeWidth, form_.SmallestWidth)});
}

void WebFormView::TakeState(const PageEvent& event) {
    for (const WindowState state : {WindowState::Normal, WindowState::Minimised, WindowState::Maximised}) {
        if (event.Raw("state") == NameOf(state)) form_.State = state;
    }
}

void WebFormView::Take(const PageEvent& event) {
    if (!form_.Visible) return;
    if (event.Is("resize")) {
        TakeField(event.Number("width"), event.Number("height"), {0, form_.Left, form_.Top, 0});
    } else if (event.Is("place")) {
        hasPart_ = false;
        form_.Left = event.Number("left");
        form_.Top = event.Number("top");
    } else if (event.Is("state")) {
        TakeState(event);
    } else if (event.Is("activate")) {
        Web.System.Run(form_, "Activate", [this] { Web.Focus.BringToFront(form_); });
    } else if (event.Is("close")) {
        if (form_.OnQueryUnload) Web.System.Run(form_, "QueryUnload", form_.OnQueryUnload);
    }
}

}  // namespace kvt
