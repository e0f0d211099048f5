#include "platform/pointed_operation.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/operations.h"
#include "platform/twips.h"

namespace kvt {

namespace {

using Kind = DrawOperation::Kind;

constexpr double fullTurn = 2 * std::numbers::pi;

double ToLine(double x1, double y1, double x2, double y2, double x, double y) {
    const double dx = x2 - x1;
    const double dy = y2 - y1;
    const double square = dx * dx + dy * dy;
    const double share = square == 0 ? 0 : std::clamp(((x - x1) * dx + (y - y1) * dy) / square, 0.0, 1.0);
    return std::hypot(x1 + share * dx - x, y1 + share * dy - y);
}

double ToBox(const DrawOperation& box, double x, double y) {
    return std::min(
        {ToLine(box.X1, box.Y1, box.X2, box.Y1, x, y), ToLine(box.X1, box.Y2, box.X2, box.Y2, x, y),
         ToLine(box.X1, box.Y1, box.X1, box.Y2, x, y), ToLine(box.X2, box.Y1, box.X2, box.Y2, x, y)});
}

// The way from one angle to another, counter-clockwise.
double Turn(double from, double to) {
    const double turn = std::fmod(to - from, fullTurn);
    return turn < 0 ? turn + fullTurn : turn;
}

double ToCircle(const DrawOperation& circle, double x, double y) {
    const double radius = std::abs(circle.Radius());
    // The field's Y grows downwards, angles upwards.
    const double right = x - circle.X1;
    const double up = circle.Y1 - y;
    const double sweep = circle.IsFullCircle() ? fullTurn : Turn(circle.Start, circle.End);
    const bool inSweep =
        circle.IsFullCircle() || sweep < 1e-6 || Turn(circle.Start, std::atan2(up, right)) <= sweep;
    if (inSweep) return std::abs(std::hypot(right, up) - radius);
    const auto toEnd = [&](double angle) {
        return std::hypot(right - radius * std::cos(angle), up - radius * std::sin(angle));
    };
    return std::min(toEnd(circle.Start), toEnd(circle.End));
}

}  // namespace

double DistanceTo(const DrawOperation& one, double x, double y) {
    switch (one.What) {
        case Kind::Line: return ToLine(one.X1, one.Y1, one.X2, one.Y2, x, y);
        case Kind::Box: return ToBox(one, x, y);
        case Kind::Circle: return ToCircle(one, x, y);
        case Kind::Clear:
        case Kind::Picture: break;
    }
    return std::numeric_limits<double>::infinity();
}

std::optional<std::size_t> OperationAt(const PictureBox& field, double x, double y, double within) {
    const std::vector<DrawOperation>& all = field.Operations();
    const OperationSources& sources = field.Sources();
    std::optional<std::size_t> nearest;
    double least = std::numeric_limits<double>::infinity();
    for (const SourceRun& run : sources.Runs()) {
        if (run.Source <= 0) continue;
        const std::size_t end = sources.EndOf(run, all.size());
        for (std::size_t i = run.FirstOperation; i < end; ++i) {
            const Extent extent = ExtentOf(all[i]);
            if (x < extent.Left - within || x > extent.Right + within || y < extent.Top - within ||
                y > extent.Bottom + within)
                continue;
            const double distance = DistanceTo(all[i], x, y);
            if (distance > within + all[i].Width * TwipsPerPixel / 2.0 || distance > least) continue;
            least = distance;
            nearest = i;
        }
    }
    return nearest;
}

std::vector<DrawOperation> LitOperations(const PictureBox& field) {
    const std::vector<DrawOperation>& all = field.Operations();
    const OperationSources& sources = field.Sources();
    std::vector<DrawOperation> lit;
    for (const SourceRun& run : sources.Runs()) {
        if (!field.Lit.Get().Holds(run.Source)) continue;
        const auto begin = all.begin();
        lit.insert(lit.end(), begin + static_cast<std::ptrdiff_t>(run.FirstOperation),
                   begin + static_cast<std::ptrdiff_t>(sources.EndOf(run, all.size())));
    }
    return lit;
}

}  // namespace kvt
