#include "web/picture_box_view.h"

#include <algorithm>
#include <span>
#include <utility>

#include "platform/picture_painter.h"
#include "platform/pointed_operation.h"
#include "platform/twips.h"
#include "web/web_page.h"
#include "web/web_system.h"

namespace kvt {

namespace {

constexpr int largestKept = 2048;  // points of the picture that takes the place of a full list

// A place or a turn of the wheel that no mouse tells would be counted with ever after.
double Held(double value) { return std::clamp(value, -1e6, 1e6); }

std::vector<float> NumbersOf(std::span<const DrawOperation> operations) {
    std::vector<float> numbers;
    numbers.reserve(operations.size() * OperationNumbers);
    for (const DrawOperation& one : operations) {
        const auto kind = static_cast<float>(one.What);
        const float values[OperationNumbers] = {
            kind,
            static_cast<float>(one.Style),
            static_cast<float>(one.Mode),
            static_cast<float>(one.Fill),
            static_cast<float>(one.Ink),
            static_cast<float>(one.FillInk),
            one.X1,
            one.Y1,
            one.X2,
            one.Y2,
            one.IsFullCircle() ? std::numeric_limits<float>::quiet_NaN() : one.Start,
            one.IsFullCircle() ? std::numeric_limits<float>::quiet_NaN() : one.End,
            static_cast<float>(one.Width)};
        numbers.insert(numbers.end(), std::begin(values), std::end(values));
    }
    return numbers;
}

}  // namespace

WebPictureBoxView::WebPictureBoxView(WebContext& web, PictureBox& control)
    : WebView(web, control), box_(control) {
    box_.OnFull = [this] { return KeepAsPicture(); };
}

bool WebPictureBoxView::Write(Message& message, PropertyId id) const {
    switch (id) {
        case PropertyId::BackColor: message.Add("BackColor", box_.BackColor.Get()); return true;
        case PropertyId::Cross: {
            const FieldPlace cross = box_.Cross;
            message.Name("Cross");
            if (cross.Shown) {
                message.BeginArray().Put(double{cross.X}).Put(double{cross.Y}).EndArray();
            } else {
                message.PutNothing();
            }
            return true;
        }
        case PropertyId::Lit: message.Add("LitColor", box_.LitColor.Get()); return true;
        default: return WebView::Write(message, id);
    }
}

void WebPictureBoxView::TellMore(const Properties& changed) {
    const bool drawn = Holds(changed, PropertyId::Operations) || Holds(changed, PropertyId::BackColor);
    if (drawn) SendOperations();
    if (Holds(changed, PropertyId::Lit) || (drawn && box_.Lit.Get() != SourceRange())) SendLit();
}

void WebPictureBoxView::SendOperations() {
    const std::vector<DrawOperation>& operations = box_.Operations();
    if (operations.empty()) return box_.Cls();
    if (std::exchange(first_, box_.OperationsBefore()) != box_.OperationsBefore()) {
        told_ = 0;
        if (operations.front().What == DrawOperation::Kind::Picture)
            Web.Page.Link().SendPicture(Number(), box_.Flattened);
    }
    const std::vector<float> numbers = NumbersOf(std::span(operations).subspan(told_));
    if (!numbers.empty()) Web.Page.Link().SendNumbers(Number(), static_cast<int>(told_), numbers);
    told_ = operations.size();
}

void WebPictureBoxView::SendLit() const {
    const std::vector<DrawOperation> lit = LitOperations(box_);
    Web.Page.Link().SendNumbers(Number(), PageLink::LitOperations, NumbersOf(lit));
}

bool WebPictureBoxView::KeepAsPicture() {
    const double longer = std::max({1, box_.Width.Get(), box_.Height.Get()});
    const FieldArea whole{0, 0, 1.0 * box_.Width, 1.0 * box_.Height};
    box_.Flattened = PaintPicture(box_, whole, std::min(1.0 / TwipsPerPixel, largestKept / longer));
    return true;
}

void WebPictureBoxView::Act(const PageEvent& event) {
    if (event.Is("mouse")) {
        TakeMouse(event);
    } else {
        WebView::Act(event);
    }
}

void WebPictureBoxView::TakeMouse(const PageEvent& event) {
    const std::string_view what = event.Raw("what");
    const int button = event.Number("button");
    const int held = event.Number("held");
    const auto x = static_cast<float>(Held(event.Real("x")));
    const auto y = static_cast<float>(Held(event.Real("y")));
    if (what == "move") {
        if (box_.OnMouseMove)
            Web.System.Run(box_, "MouseMove", [&] { box_.OnMouseMove(button, held, x, y); });
        return;
    }
    if (what == "wheel") {
        const WheelTurn turn{held, Held(event.Real("notches")), event.Flag("sideways"), x, y};
        if (box_.OnMouseWheel) Web.System.Run(box_, "MouseWheel", [&] { box_.OnMouseWheel(turn); });
        return;
    }
    if ((what != "down" && what != "double") || !Press() || !Usable()) return;
    const bool twice = what == "double" && button == mouse::Left && box_.OnDoubleClick;
    const MouseHandler& handler = twice ? box_.OnDoubleClick : box_.OnMouseDown;
    if (handler) Web.System.Run(box_, "MouseDown", [&] { handler(button, held, x, y); });
}

}  // namespace kvt
