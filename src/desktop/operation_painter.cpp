#include "desktop/operation_painter.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include "desktop/colors.h"
#include "platform/operations.h"

namespace kvt {

namespace {

using Kind = DrawOperation::Kind;

constexpr double flatness = 0.1;  // pixels that a chord may leave its arc
constexpr double mostSteps = 20'000;

// The part of a line inside a rectangle; none where it misses it. Lines can be longer than a painter bears.
std::optional<QLineF> Clipped(QLineF line, const QRectF& inside) {
    const auto part = PartInside(line.x1(), line.y1(), line.x2(), line.y2(),
                                 {inside.left(), inside.top(), inside.right(), inside.bottom()});
    if (!part) return std::nullopt;
    return QLineF(line.pointAt(part->From), line.pointAt(part->To));
}

class OperationPainter {
public:
    OperationPainter(QImage& image, const FieldPiece& piece, const QRect& part, const QImage& kept)
        : piece_(piece), part_(part), kept_(kept), painter_(&image) {
        painter_.setClipRect(part);
    }

    void Paint(const DrawOperation& operation) {
        switch (operation.What) {
            case Kind::Clear: painter_.fillRect(part_, ColorOf(operation.Ink)); return;
            case Kind::Picture: PaintKept(); return;
            case Kind::Line: break;
            case Kind::Box: break;
            case Kind::Circle: break;
        }
        width_ = std::max(1.0, std::round(operation.Width * piece_.PenWidth));
        const double margin = width_ + 2;
        sight_ = QRectF(part_).adjusted(-margin, -margin, margin, margin);
        color_ = ColorOf(operation.Ink);
        dotted_ = operation.Style != draw_style::Solid && operation.Width == 1;
        inverts_ = operation.Mode == draw_mode::Invert;
        painter_.setCompositionMode(inverts_ ? QPainter::RasterOp_NotDestination
                                             : QPainter::CompositionMode_SourceOver);
        if (operation.What == Kind::Line) PaintLine(operation);
        if (operation.What == Kind::Box) PaintBox(operation);
        if (operation.What == Kind::Circle) PaintCircle(operation);
    }

private:
    double X(double twips) const { return twips * piece_.PixelsATwip - piece_.Origin.x(); }
    double Y(double twips) const { return twips * piece_.PixelsATwip - piece_.Origin.y(); }

    void PaintLine(const DrawOperation& line) { Stroke({X(line.X1), Y(line.Y1), X(line.X2), Y(line.Y2)}); }

    void Stroke(const QLineF& line) {
        const bool alongAxis = line.dx() == 0 || line.dy() == 0;
        if (alongAxis && !dotted_ && width_ < 3) return StrokeAlongAxis(line);
        const std::optional<QLineF> seen = Clipped(line.translated(0.5, 0.5), sight_);
        if (!seen) return;
        SetPen(!alongAxis);
        painter_.drawLine(*seen);
    }

    // Whole pixels, both ends with it.
    void StrokeAlongAxis(const QLineF& line) {
        const std::optional<QLineF> seen = Clipped(line, sight_);
        if (!seen) return;
        const int x1 = static_cast<int>(std::lround(std::min(seen->x1(), seen->x2())));
        const int y1 = static_cast<int>(std::lround(std::min(seen->y1(), seen->y2())));
        const int x2 = static_cast<int>(std::lround(std::max(seen->x1(), seen->x2())));
        const int y2 = static_cast<int>(std::lround(std::max(seen->y1(), seen->y2())));
        const int width = static_cast<int>(width_);
        painter_.fillRect(QRect(x1, y1, x2 - x1 + width, y2 - y1 + width), color_);
    }

    void SetPen(bool smooth) {
        QPen pen(color_, width_, dotted_ ? Qt::DotLine : Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        if (dotted_) {
            pen.setCapStyle(Qt::FlatCap);
            pen.setDashPattern({2, 2});
        }
        painter_.setPen(pen);
        // An inversion that is done twice must leave nothing behind.
        painter_.setRenderHint(QPainter::Antialiasing, smooth && !inverts_);
    }

    QBrush FillOf(const DrawOperation& operation) const {
        if (operation.Fill == fill_style::Transparent) return Qt::NoBrush;
        if (operation.Fill == fill_style::Solid) return ColorOf(operation.FillInk);
        QBrush hatch(ColorOf(operation.FillInk), Qt::FDiagPattern);
        hatch.setTransform(QTransform::fromScale(piece_.PenWidth, piece_.PenWidth));
        return hatch;
    }

    void PaintBox(const DrawOperation& box) {
        const QRectF whole =
            QRectF(QPointF(X(box.X1), Y(box.Y1)), QPointF(X(box.X2), Y(box.Y2))).normalized();
        const QRectF seen = whole.intersected(sight_);
        if (!seen.isEmpty()) painter_.fillRect(seen, FillOf(box));
        Stroke({whole.topLeft(), whole.topRight()});
        Stroke({whole.bottomLeft(), whole.bottomRight()});
        Stroke({whole.topLeft(), whole.bottomLeft()});
        Stroke({whole.topRight(), whole.bottomRight()});
    }

    void PaintCircle(const DrawOperation& circle) {
        const double radius = circle.Radius() * piece_.PixelsATwip;
        const QPointF center(X(circle.X1) + 0.5, Y(circle.Y1) + 0.5);
        const QRectF around(center.x() - radius, center.y() - radius, 2 * radius, 2 * radius);
        if (!around.adjusted(-1, -1, 1, 1).intersects(sight_)) return;
        constexpr double full = 2 * std::numbers::pi;
        double sweep = full;
        if (!circle.IsFullCircle()) {
            sweep = std::fmod(double{circle.End} - circle.Start, full);
            if (sweep <= 1e-6) sweep += full;
        }
        const double start = circle.IsFullCircle() ? 0 : circle.Start;
        const double step = 2 * std::acos(std::max(0.0, 1 - flatness / std::max(radius, flatness)));
        const int steps = static_cast<int>(std::clamp(std::ceil(sweep / step), 1.0, mostSteps));
        QPolygonF points;
        for (int i = 0; i <= steps; ++i) {
            const double angle = start + sweep * i / steps;
            points << QPointF(center.x() + radius * std::cos(angle), center.y() - radius * std::sin(angle));
        }
        SetPen(true);
        if (sight_.contains(around)) {
            painter_.setBrush(circle.IsFullCircle() ? FillOf(circle) : QBrush());
            circle.IsFullCircle() ? painter_.drawPolygon(points) : painter_.drawPolyline(points);
            painter_.setBrush(Qt::NoBrush);
            return;
        }
        // What is in sight of it, piece by piece; the pieces join where they are cut.
        QPolygonF run;
        const auto finish = [&] {
            if (run.size() > 1) painter_.drawPolyline(run);
            run.clear();
        };
        for (qsizetype i = 1; i < points.size(); ++i) {
            const std::optional<QLineF> piece = Clipped({points[i - 1], points[i]}, sight_);
            if (!piece) {
                finish();
                continue;
            }
            if (run.isEmpty()) run << piece->p1();
            run << piece->p2();
        }
        finish();
    }

    void PaintKept() {
        if (kept_.isNull()) return;
        const QRectF field(-piece_.Origin.x(), -piece_.Origin.y(), KeptWidth(), KeptHeight());
        painter_.setCompositionMode(QPainter::CompositionMode_Source);
        painter_.setRenderHint(QPainter::SmoothPixmapTransform);
        painter_.drawImage(field, kept_);
    }
    // The picture covers the field; its text key tells how large that was, in twips.
    double KeptWidth() const { return kept_.text(QStringLiteral("width")).toDouble() * piece_.PixelsATwip; }
    double KeptHeight() const { return kept_.text(QStringLiteral("height")).toDouble() * piece_.PixelsATwip; }

    const FieldPiece& piece_;
    QRect part_;
    const QImage& kept_;
    QPainter painter_;
    QRectF sight_;
    QColor color_;
    double width_ = 1;
    bool dotted_ = false;
    bool inverts_ = false;
};

}  // namespace

void PaintOperations(QImage& image, const FieldPiece& piece, const QRect& part,
                     std::span<const DrawOperation> operations, const QImage& kept) {
    OperationPainter painter(image, piece, part, kept);
    for (const DrawOperation& operation : operations) painter.Paint(operation);
}

}  // namespace kvt
