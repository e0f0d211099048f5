#include "desktop/picture_box_view.h"

#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/colors.h"
#include "desktop/lit_painter.h"
#include "desktop/pixel_image.h"
#include "platform/picture_painter.h"
#include "platform/pointed_operation.h"
#include "platform/twips.h"

namespace kvt {

namespace {

constexpr int largestKept = 4096;  // pixels of the picture that takes the place of a full list
constexpr double anglesANotch = 120;
constexpr double crossArm = 120;  // twips

class PictureFace : public QWidget {
public:
    explicit PictureFace(QWidget* parent) : QWidget(parent) {
        setAttribute(Qt::WA_OpaquePaintEvent);
        setMouseTracking(true);
    }
    PictureBoxView* View = nullptr;

protected:
    void paintEvent(QPaintEvent*) override {
        if (View) View->Paint();
    }
};

int ButtonsOf(Qt::MouseButtons buttons) {
    return (buttons & Qt::LeftButton ? mouse::Left : 0) | (buttons & Qt::RightButton ? mouse::Right : 0) |
           (buttons & Qt::MiddleButton ? mouse::Middle : 0);
}

int HeldOf(Qt::KeyboardModifiers held) {
    return (held & Qt::ShiftModifier ? mouse::ShiftHeld : 0) |
           (held & Qt::ControlModifier ? mouse::CtrlHeld : 0) | (held & Qt::AltModifier ? mouse::AltHeld : 0);
}

}  // namespace

PictureBoxView::PictureBoxView(DesktopContext& desktop, PictureBox& control, QWidget* parent)
    : View(desktop, control, new PictureFace(parent)), box_(control) {
    static_cast<PictureFace*>(Widget())->View = this;
    box_.OnFull = [this] { return KeepAsPicture(); };
}

void PictureBoxView::Follow(PropertyId id) {
    switch (id) {
        case PropertyId::BackColor:
        case PropertyId::Cross:
        case PropertyId::Lit:
        case PropertyId::Operations: Widget()->update(); break;
        case PropertyId::ToolTip:
            View::Follow(id);
            FollowToolTip();
            break;
        default: View::Follow(id);
    }
}

// One that is up goes on with what the mouse is over now.
void PictureBoxView::FollowToolTip() {
    if (!QToolTip::isVisible() || !Widget()->underMouse()) return;
    QToolTip::showText(QCursor::pos(), Widget()->toolTip(), Widget());
}

double PictureBoxView::PixelRatio() const { return Widget()->devicePixelRatioF(); }

QRect PictureBoxView::InSight(double ratio) const {
    const QRect seen = Widget()->visibleRegion().boundingRect();
    const QPoint from(static_cast<int>(std::floor(seen.left() * ratio)),
                      static_cast<int>(std::floor(seen.top() * ratio)));
    const QPoint to(static_cast<int>(std::ceil((seen.left() + seen.width()) * ratio)),
                    static_cast<int>(std::ceil((seen.top() + seen.height()) * ratio)));
    return {from, to - QPoint(1, 1)};
}

void PictureBoxView::Paint() {
    const double ratio = PixelRatio();
    const QRect area = InSight(ratio);
    if (area.isEmpty()) return;
    const std::vector<DrawOperation>& operations = box_.Operations();
    if (operations.empty()) box_.Cls();
    if (std::exchange(first_, box_.OperationsBefore()) != box_.OperationsBefore()) painted_ = 0;
    if (area != area_ || ratio != ratio_) ShowArea(area, ratio);
    PaintPart(shown_.rect(), std::span(operations).subspan(painted_));
    painted_ = operations.size();
    QPainter painter(Widget());
    painter.drawImage(QPointF(area_.topLeft()) / ratio, WithLit());
    if (box_.Cross.Get().Shown) PaintCross(painter);
}

// Light on a dark ground and dark on a light one, with an edge of the ground's colour, so that it stands out from
// whatever is drawn there.
void PictureBoxView::PaintCross(QPainter& painter) const {
    const QColor ground = ColorOf(box_.BackColor);
    const QColor ink = ground.lightness() < 128 ? Qt::white : Qt::black;
    const double pixelsPerTwip = Desktop.Lengths.Exact(1);
    const QPointF place(box_.Cross.Get().X * pixelsPerTwip + 0.5, box_.Cross.Get().Y * pixelsPerTwip + 0.5);
    const double arm = crossArm * pixelsPerTwip;
    for (const auto& [color, width] : {std::pair(ground, 5.0), std::pair(ink, 2.0)}) {
        painter.setPen(
            QPen(color, width * std::max(1.0, pixelsPerTwip * TwipsPerPixel), Qt::SolidLine, Qt::FlatCap));
        for (const QPointF side : {QPointF(arm, 0), QPointF(0, arm)})
            painter.drawLine(QLineF(place - side, place + side));
    }
}

// Another part of the field comes into sight: what was in sight already moves over.
void PictureBoxView::ShowArea(const QRect& area, double ratio) {
    QImage before = std::exchange(shown_, QImage(area.size(), QImage::Format_RGB32));
    const QRect areaBefore = std::exchange(area_, area);
    const bool anew = std::exchange(ratio_, ratio) != ratio || painted_ == 0;
    if (anew) painted_ = 0;
    if (!anew) {
        before.setDevicePixelRatio(1);
        QPainter(&shown_).drawImage(areaBefore.topLeft() - area.topLeft(), before);
        const auto painted = std::span(box_.Operations()).first(painted_);
        for (const QRect& part : QRegion(area) - QRegion(areaBefore))
            PaintPart(part.translated(-area.topLeft()), painted);
    }
}

FieldPiece PictureBoxView::Piece() const {
    const double pixelsPerTwip = Desktop.Lengths.Exact(1) * ratio_;
    return {pixelsPerTwip, std::max(1.0, pixelsPerTwip * TwipsPerPixel), area_.topLeft()};
}

QImage PictureBoxView::WithLit() const {
    std::vector<DrawOperation> lit = LitOperations(box_);
    if (lit.empty()) return shown_;
    QImage image = shown_;
    image.setDevicePixelRatio(1);
    PaintLit(image, Piece(), std::move(lit), box_.LitColor);
    image.setDevicePixelRatio(ratio_);
    return image;
}

void PictureBoxView::PaintPart(const QRect& part, std::span<const DrawOperation> operations) {
    shown_.setDevicePixelRatio(1);
    if (!operations.empty()) PaintOperations(shown_, Piece(), part, operations, kept_);
    shown_.setDevicePixelRatio(ratio_);
}

// The whole field, at most so large that the picture takes no more than its share of the memory.
bool PictureBoxView::KeepAsPicture() {
    const double longer = std::max({1, box_.Width.Get(), box_.Height.Get()});
    const double pixelsPerTwip = std::min(Desktop.Lengths.Exact(1) * PixelRatio(), largestKept / longer);
    const FieldArea whole{0, 0, 1.0 * box_.Width, 1.0 * box_.Height};
    box_.Flattened = PaintPicture(box_, whole, pixelsPerTwip);
    kept_ = ImageOf(box_.Flattened);
    kept_.setText(QStringLiteral("width"), QString::number(box_.Width));
    kept_.setText(QStringLiteral("height"), QString::number(box_.Height));
    return true;
}

// Whole ones: what is read off a drawing is as round as its scale lets it be.
float PictureBoxView::TwipsAt(double pixel) const {
    return static_cast<float>(std::round(pixel / Desktop.Lengths.Exact(1)));
}

void PictureBoxView::Moved(const QMouseEvent& event) {
    if (!box_.OnMouseMove) return;
    const QPointF place = event.position();
    Desktop.System.Run(box_, "MouseMove", [&] {
        box_.OnMouseMove(ButtonsOf(event.buttons()), HeldOf(event.modifiers()), TwipsAt(place.x()),
                         TwipsAt(place.y()));
    });
}

void PictureBoxView::Pressed(const QMouseEvent& event) {
    const bool twice = event.type() == QEvent::MouseButtonDblClick && event.button() == Qt::LeftButton;
    const MouseHandler& handler = twice && box_.OnDoubleClick ? box_.OnDoubleClick : box_.OnMouseDown;
    if (!handler) return;
    const QPointF place = event.position();
    Desktop.System.Run(box_, "MouseDown", [&] {
        handler(ButtonsOf(event.button()), HeldOf(event.modifiers()), TwipsAt(place.x()), TwipsAt(place.y()));
    });
}

void PictureBoxView::Turned(const QWheelEvent& event) {
    const QPoint turned = event.angleDelta();
    const QPointF place = event.position();
    const bool sideways = std::abs(turned.x()) > std::abs(turned.y());
    const WheelTurn turn{HeldOf(event.modifiers()), (sideways ? turned.x() : turned.y()) / anglesANotch,
                         sideways, TwipsAt(place.x()), TwipsAt(place.y())};
    Desktop.System.Run(box_, "MouseWheel", [&] { box_.OnMouseWheel(turn); });
}

bool PictureBoxView::eventFilter(QObject* watched, QEvent* event) {
    if (!box_.EffectivelyEnabled()) return View::eventFilter(watched, event);
    switch (event->type()) {
        case QEvent::MouseMove: Moved(*static_cast<QMouseEvent*>(event)); return true;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            if (View::eventFilter(watched, event)) return true;
            Pressed(*static_cast<QMouseEvent*>(event));
            return true;
        case QEvent::MouseButtonRelease: {
            const auto& release = *static_cast<QMouseEvent*>(event);
            const bool inside = Widget()->rect().contains(release.position().toPoint());
            if (release.button() == Qt::LeftButton && inside)
                Desktop.System.Run(box_, "Click", [this] { box_.Click(); });
            return true;
        }
        case QEvent::Wheel:
            if (!box_.OnMouseWheel) break;
            Turned(*static_cast<QWheelEvent*>(event));
            return true;
        default: break;
    }
    return View::eventFilter(watched, event);
}

}  // namespace kvt
