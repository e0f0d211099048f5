#include "desktop/paper_painter.h"

#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "desktop/colors.h"
#include "desktop/pixel_image.h"
#include "platform/operations.h"
#include "platform/twips.h"

namespace kvt {

namespace {

using Kind = DrawOperation::Kind;

constexpr double hatchStep = 120;  // twips
constexpr double dotLength = 30;   // twips
constexpr double degree = 180 / std::numbers::pi;

QPainterPath PathOf(const DrawOperation& one) {
    QPainterPath path(QPointF(one.X1, one.Y1));
    if (one.What == Kind::Line) path.lineTo(one.X2, one.Y2);
    if (one.What == Kind::Box) {
        path = {};
        path.addRect(QRectF(QPointF(one.X1, one.Y1), QPointF(one.X2, one.Y2)).normalized());
    }
    if (one.What != Kind::Circle) return path;
    path = {};
    const double radius = std::abs(double{one.Radius()});
    const QRectF around(one.X1 - radius, one.Y1 - radius, 2 * radius, 2 * radius);
    if (one.IsFullCircle()) {
        path.addEllipse(around);
        return path;
    }
    double sweep = std::fmod((double{one.End} - one.Start) * degree, 360);
    if (sweep <= 1e-4) sweep += 360;
    path.arcMoveTo(around, one.Start * degree);
    path.arcTo(around, one.Start * degree, sweep);
    return path;
}

class PaperPainter {
public:
    PaperPainter(QPainter& painter, const PaperDrawing& drawing) : painter_(painter), drawing_(drawing) {}

    void Paint(const DrawOperation& one) {
        if (one.What == Kind::Clear) {
            const FieldArea& area = drawing_.Area;
            painter_.fillRect(QRectF(area.Left, area.Top, area.Width, area.Height), ColorOf(one.Ink));
            return;
        }
        if (one.What == Kind::Picture) {
            if (!drawing_.Kept.isNull()) painter_.drawImage(QRectF(QPointF(), drawing_.Field), drawing_.Kept);
            return;
        }
        const QPainterPath path = PathOf(one);
        const bool closed = one.What == Kind::Box || (one.What == Kind::Circle && one.IsFullCircle());
        if (closed) Fill(one, path);
        const double width = one.Width * TwipsPerPixel;
        const bool inverts = one.Mode == draw_mode::Invert;
        QPen pen(inverts ? QColor(Qt::black) : ColorOf(one.Ink), width, Qt::SolidLine, Qt::RoundCap,
                 Qt::RoundJoin);
        if (one.Style != draw_style::Solid && one.Width == 1) {
            pen.setCapStyle(Qt::FlatCap);
            pen.setDashPattern({dotLength / width, dotLength / width});
        }
        painter_.strokePath(path, pen);
    }

private:
    void Fill(const DrawOperation& one, const QPainterPath& path) {
        if (one.Fill == fill_style::Transparent) return;
        if (one.Fill == fill_style::Solid) return painter_.fillPath(path, ColorOf(one.FillInk));
        painter_.save();
        painter_.setClipPath(path, Qt::IntersectClip);
        painter_.setPen(QPen(ColorOf(one.FillInk), TwipsPerPixel));
        const QRectF around = path.boundingRect();
        const double height = around.height();
        for (double x = std::floor((around.left() - height) / hatchStep) * hatchStep; x <= around.right();
             x += hatchStep) {
            painter_.drawLine(QPointF(x, around.top()), QPointF(x + height, around.bottom()));
        }
        painter_.restore();
    }

    QPainter& painter_;
    const PaperDrawing& drawing_;
};

}  // namespace

PaperDrawing TakenFrom(const PictureBox& field, const FieldArea& area) {
    PaperDrawing drawing{SeenIn(field.Operations(), area), area, {}, QSizeF(field.Width, field.Height)};
    const bool keeps = std::any_of(drawing.Operations.begin(), drawing.Operations.end(),
                                   [](const DrawOperation& one) { return one.What == Kind::Picture; });
    if (keeps && field.Flattened.Width > 0) drawing.Kept = ImageOf(field.Flattened);
    return drawing;
}

void PaintOnPaper(QPainter& painter, const PaperDrawing& drawing, const QRectF& place) {
    painter.save();
    painter.setClipRect(place);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(place.topLeft());
    painter.scale(place.width() / drawing.Area.Width, place.height() / drawing.Area.Height);
    painter.translate(-drawing.Area.Left, -drawing.Area.Top);
    PaperPainter paper(painter, drawing);
    for (const DrawOperation& one : drawing.Operations) paper.Paint(one);
    painter.restore();
}

}  // namespace kvt
