#include "platform/picture_painter.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "platform/operations.h"
#include "platform/twips.h"

namespace kvt {

namespace {

using OperationKind = DrawOperation::Kind;

constexpr double hatchStep = 8;  // widths of the thinnest pen
constexpr double dashes = 2;     // as long as the gaps between them
constexpr double fullTurn = 2 * std::numbers::pi;
// From this width on a stroke along an axis is as smooth at its ends as any other.
constexpr double wide = 3;

struct Place {
    double X, Y;
};

double Cross(const Place& a, const Place& b) { return a.X * b.Y - a.Y * b.X; }
double Length(double x, double y) { return std::sqrt(x * x + y * y); }

// The points from first to last of a row; none where last is below first.
struct Span {
    int First, Last;
};

class PicturePainter {
public:
    PicturePainter(const PictureBox& field, const FieldArea& area, double pointsPerTwip)
        : field_(field),
          scale_(pointsPerTwip),
          penScale_(std::max(1.0, pointsPerTwip * TwipsPerPixel)),
          originX_(std::round(area.Left * pointsPerTwip)),
          originY_(std::round(area.Top * pointsPerTwip)) {
        picture_.Width = std::max(1, static_cast<int>(std::lround(area.Width * scale_)));
        picture_.Height = std::max(1, static_cast<int>(std::lround(area.Height * scale_)));
        picture_.Points.assign(Size(), field.BackColor);
    }

    // What the field has kept of operations that are in its list no more.
    void PaintFlattened() {
        const Pixels& flattened = field_.Flattened;
        if (flattened.Points.empty()) return;
        const auto source = [this](int at, double origin, int points, int twips) {
            return static_cast<int>(std::floor((at + 0.5 + origin) / scale_ * points / std::max(1, twips)));
        };
        for (int y = 0; y < picture_.Height; ++y) {
            const int fromY = source(y, originY_, flattened.Height, field_.Height);
            if (fromY < 0 || fromY >= flattened.Height) continue;
            for (int x = 0; x < picture_.Width; ++x) {
                const int fromX = source(x, originX_, flattened.Width, field_.Width);
                if (fromX < 0 || fromX >= flattened.Width) continue;
                picture_.Points[At(x, y)] =
                    flattened
                        .Points[static_cast<std::size_t>(fromY) * static_cast<std::size_t>(flattened.Width) +
                                static_cast<std::size_t>(fromX)];
            }
        }
    }

    void Paint(const DrawOperation& one) {
        pen_ = one;
        width_ = std::max(1.0, std::round(one.Width * penScale_));
        dotted_ = one.Style != draw_style::Solid && one.Width == 1;
        inverts_ = one.Mode == draw_mode::Invert;
        if (inverts_) {
            inverted_.resize(Size());
            ++inversion_;
        }
        switch (one.What) {
            case OperationKind::Line: Stroke(X(one.X1), Y(one.Y1), X(one.X2), Y(one.Y2)); break;
            case OperationKind::Box: PaintBox(); break;
            case OperationKind::Circle: PaintCircle(); break;
            case OperationKind::Clear:
            case OperationKind::Picture: break;
        }
    }

    Pixels Take() { return std::move(picture_); }

private:
    double X(double twips) const { return twips * scale_ - originX_; }
    double Y(double twips) const { return twips * scale_ - originY_; }
    std::size_t Size() const {
        return static_cast<std::size_t>(picture_.Width) * static_cast<std::size_t>(picture_.Height);
    }
    std::size_t At(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(picture_.Width) +
               static_cast<std::size_t>(x);
    }

    // The points whose middle may lie between two places, as far as the picture goes.
    static Span Between(double low, double high, int count) {
        return {static_cast<int>(std::clamp(std::floor(low - 0.5), 0.0, double{1} * count)),
                static_cast<int>(std::clamp(std::ceil(high - 0.5), -1.0, double{1} * count - 1))};
    }
    Span Rows(double low, double high) const { return Between(low, high, picture_.Height); }
    Span Columns(double low, double high) const { return Between(low, high, picture_.Width); }

    // Lays ink over a point as far as it covers it. An inversion is all or nothing, and once an operation, so that a
    // second one leaves nothing behind.
    void Put(int x, int y, double cover, Color ink) {
        if (cover <= 0) return;
        const std::size_t at = At(x, y);
        Color& point = picture_.Points[at];
        if (inverts_) {
            if (cover < 0.5 || std::exchange(inverted_[at], inversion_) == inversion_) return;
            point = ~point & 0xFFFFFF;
            return;
        }
        if (cover >= 1) {
            point = ink;
            return;
        }
        Color mixed = 0;
        for (const int shift : {0, 8, 16}) {
            const double below = point >> shift & 0xFF;
            const double above = ink >> shift & 0xFF;
            mixed |= static_cast<Color>(std::lround(below + (above - below) * cover)) << shift;
        }
        point = mixed;
    }

    void FillPoints(double left, double top, double right, double bottom) {
        const Span rows = Rows(top + 0.5, bottom + 0.5);
        const Span columns = Columns(left + 0.5, right + 0.5);
        for (int y = rows.First; y <= rows.Last; ++y) {
            for (int x = columns.First; x <= columns.Last; ++x) Put(x, y, 1, pen_.Ink);
        }
    }

    void Stroke(double x1, double y1, double x2, double y2) {
        const bool alongAxis = x1 == x2 || y1 == y2;
        if (!alongAxis || width_ >= wide) return SmoothStroke({x1 + 0.5, y1 + 0.5}, {x2 + 0.5, y2 + 0.5});
        x1 = std::round(x1);
        y1 = std::round(y1);
        x2 = std::round(x2);
        y2 = std::round(y2);
        if (dotted_) return SmoothStroke({x1 + 0.5, y1 + 0.5}, {x2 + 0.5, y2 + 0.5});
        const auto [left, right] = std::minmax({x1, x2});
        const auto [top, bottom] = std::minmax({y1, y2});
        FillPoints(left, top, right + width_ - 1, bottom + width_ - 1);
    }

    // With round ends; dashes have flat ones.
    void SmoothStroke(const Place& from, const Place& to) {
        const double length = Length(to.X - from.X, to.Y - from.Y);
        const Place along =
            length > 0 ? Place{(to.X - from.X) / length, (to.Y - from.Y) / length} : Place{1, 0};
        const double reach = width_ / 2 + 0.5;
        const Span rows = Rows(std::min(from.Y, to.Y) - reach, std::max(from.Y, to.Y) + reach);
        for (int y = rows.First; y <= rows.Last; ++y) {
            const double down = y + 0.5 - from.Y;
            double left = std::min(from.X, to.X) - reach;
            double right = std::max(from.X, to.X) + reach;
            if (along.Y != 0) {
                // Where the row comes as near to the line as the pen reaches.
                const double middle = from.X + down * along.X / along.Y;
                const double aside = reach / std::abs(along.Y);
                left = std::max(left, middle - aside);
                right = std::min(right, middle + aside);
            }
            const Span columns = Columns(left, right);
            for (int x = columns.First; x <= columns.Last; ++x) {
                const double across = x + 0.5 - from.X;
                const double place = across * along.X + down * along.Y;
                const bool beyond = place < 0 || place > length;
                if (dotted_ && (beyond || IsGap(place))) continue;
                const double distance = !beyond     ? std::abs(across * along.Y - down * along.X)
                                        : place < 0 ? Length(across, down)
                                                    : Length(x + 0.5 - to.X, y + 0.5 - to.Y);
                Put(x, y, reach - distance, pen_.Ink);
            }
        }
    }

    bool IsGap(double place) const { return std::fmod(place / penScale_, 2 * dashes) >= dashes; }

    // Counted from the field's corner, so that two fills of one box are the same.
    bool IsFilled(int x, int y) const {
        if (pen_.Fill == fill_style::Solid) return true;
        const double step = std::round(hatchStep * penScale_);
        const double place = std::fmod(x + originX_ - y - originY_, step);
        return (place < 0 ? place + step : place) < std::round(penScale_);
    }

    template <class Inside>
    void Fill(double left, double top, double right, double bottom, const Inside& inside) {
        if (pen_.Fill == fill_style::Transparent || inverts_) return;
        const Span rows = Rows(top, bottom);
        const Span columns = Columns(left, right);
        for (int y = rows.First; y <= rows.Last; ++y) {
            for (int x = columns.First; x <= columns.Last; ++x) {
                if (inside(x + 0.5, y + 0.5) && IsFilled(x, y)) Put(x, y, 1, pen_.FillInk);
            }
        }
    }

    void PaintBox() {
        // Clang 14 takes no structured binding into a lambda.
        const double left = std::min(X(pen_.X1), X(pen_.X2)), right = std::max(X(pen_.X1), X(pen_.X2));
        const double top = std::min(Y(pen_.Y1), Y(pen_.Y2)), bottom = std::max(Y(pen_.Y1), Y(pen_.Y2));
        Fill(left, top, right, bottom,
             [&](double x, double y) { return x >= left && x <= right && y >= top && y <= bottom; });
        Stroke(left, top, right, top);
        Stroke(left, bottom, right, bottom);
        Stroke(left, top, left, bottom);
        Stroke(right, top, right, bottom);
    }

    void PaintCircle() {
        const Place centre{X(pen_.X1) + 0.5, Y(pen_.Y1) + 0.5};
        const double radius = std::abs(pen_.Radius()) * scale_;
        const double reach = width_ / 2 + 0.5;
        const double outer = radius + reach;
        const double inner = radius - reach;
        BeginSweep(radius);
        if (pen_.IsFullCircle()) {
            Fill(centre.X - radius, centre.Y - radius, centre.X + radius, centre.Y + radius,
                 [&](double x, double y) { return Length(x - centre.X, y - centre.Y) <= radius; });
        }
        const Span rows = Rows(centre.Y - outer, centre.Y + outer);
        for (int y = rows.First; y <= rows.Last; ++y) {
            const double up = centre.Y - (y + 0.5);
            if (std::abs(up) > outer) continue;
            const double far = std::sqrt(outer * outer - up * up);
            const double near = std::abs(up) < inner ? std::sqrt(inner * inner - up * up) : 0;
            const Span left = Columns(centre.X - far, centre.X - near);
            Span right = Columns(centre.X + near, centre.X + far);
            right.First = std::max(right.First, left.Last + 1);
            for (const Span& columns : {left, right}) {
                for (int x = columns.First; x <= columns.Last; ++x)
                    Put(x, y, CoverOfArc({x + 0.5 - centre.X, up}, radius, reach), pen_.Ink);
            }
        }
    }

    void BeginSweep(double radius) {
        sweep_ = fullTurn;
        if (pen_.IsFullCircle()) return;
        sweep_ = std::fmod(double{pen_.End} - pen_.Start, fullTurn);
        if (sweep_ <= 1e-6) sweep_ += fullTurn;
        const double end = pen_.Start + sweep_;
        arcStart_ = {radius * std::cos(pen_.Start), radius * std::sin(pen_.Start)};
        arcEnd_ = {radius * std::cos(end), radius * std::sin(end)};
    }

    // How far the pen covers a point of the field, whose place is told from the centre, upwards.
    double CoverOfArc(const Place& at, double radius, double reach) const {
        if (InSweep(at)) {
            if (dotted_ && IsGap(radius * AngleFromStart(at))) return 0;
            return reach - std::abs(Length(at.X, at.Y) - radius);
        }
        if (dotted_) return 0;
        return reach - std::min(Length(at.X - arcStart_.X, at.Y - arcStart_.Y),
                                Length(at.X - arcEnd_.X, at.Y - arcEnd_.Y));
    }

    bool InSweep(const Place& at) const {
        if (sweep_ >= fullTurn) return true;
        if (sweep_ <= std::numbers::pi) return Cross(arcStart_, at) >= 0 && Cross(at, arcEnd_) >= 0;
        return !(Cross(arcEnd_, at) > 0 && Cross(at, arcStart_) > 0);
    }

    double AngleFromStart(const Place& at) const {
        const double start = pen_.IsFullCircle() ? 0 : double{pen_.Start};
        const double angle = std::fmod(std::atan2(at.Y, at.X) - start, fullTurn);
        return angle < 0 ? angle + fullTurn : angle;
    }

    const PictureBox& field_;
    const double scale_;
    const double penScale_;
    const double originX_, originY_;
    Pixels picture_;
    DrawOperation pen_;
    double width_ = 1;
    bool dotted_ = false;
    bool inverts_ = false;
    // Which inversion a point was turned by last.
    std::vector<std::uint32_t> inverted_;
    std::uint32_t inversion_ = 0;
    // Of an arc: radians, and its ends from the centre, upwards.
    double sweep_ = fullTurn;
    Place arcStart_{}, arcEnd_{};
};

}  // namespace

Pixels PaintPicture(const PictureBox& field, const FieldArea& area, double pointsPerTwip) {
    PicturePainter painter(field, area, pointsPerTwip);
    painter.PaintFlattened();
    for (const DrawOperation& one : SeenIn(field.Operations(), area)) painter.Paint(one);
    return painter.Take();
}

}  // namespace kvt
