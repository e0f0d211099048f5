#include "files/iso/arcs.h"

#include <cmath>
#include <numbers>

namespace kvt::iso {

namespace {

constexpr double quarter = std::numbers::pi / 2;
constexpr double same = 1e-9;

}  // namespace

double Distance(Point one, Point other) { return std::hypot(one.A - other.A, one.B - other.B); }

bool CenterFromRadius(Point start, Point end, double radius, bool clockwise, Point& center) {
    const double chord = Distance(start, end);
    // Posts round the ends and the radius, so a half circle may be a little too wide.
    constexpr double tolerance = 1.002;
    if (chord < same || chord > 2 * std::abs(radius) * tolerance) return false;
    const double height = std::sqrt(std::fmax(0, radius * radius - chord * chord / 4));
    // To the left of the way for the short arc against the clock.
    const double side = (clockwise ? -1 : 1) * (radius < 0 ? -1 : 1);
    center.A = (start.A + end.A) / 2 - side * height * (end.B - start.B) / chord;
    center.B = (start.B + end.B) / 2 + side * height * (end.A - start.A) / chord;
    return true;
}

std::vector<Point> SplitAtQuadrants(const Arc& arc, double least) {
    const double radius = Distance(arc.Start, arc.Center);
    const double direction = arc.Clockwise ? -1 : 1;
    // Angles grow along the way.
    const auto angleOf = [&](Point point) {
        return direction * std::atan2(point.B - arc.Center.B, point.A - arc.Center.A);
    };
    const double start = angleOf(arc.Start);
    double end = angleOf(arc.End);
    if (Distance(arc.Start, arc.End) < same) end = start;
    while (end <= start + same) end += 4 * quarter;

    std::vector<Point> ends;
    for (double limit = (std::floor(start / quarter) + 1) * quarter; limit < end; limit += quarter) {
        if ((limit - start) * radius < least || (end - limit) * radius < least) continue;
        ends.push_back({arc.Center.A + radius * std::cos(direction * limit),
                        arc.Center.B + radius * std::sin(direction * limit)});
    }
    ends.push_back(arc.End);
    return ends;
}

}  // namespace kvt::iso
