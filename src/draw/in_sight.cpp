#include "draw/in_sight.h"

#include <algorithm>
#include <cmath>

#include "draw/geometry.h"
#include "platform/operations.h"

namespace kvt {

namespace {

using Kind = DrawOperation::Kind;

// An arc is tested as chords, so many for a full turn: they differ from it by less than a pixel at any scale of the menu.
constexpr int chordsPerTurn = 720;

bool LineIsInSight(double x1, double y1, double x2, double y2, const FieldArea& area) {
    const Extent inside{area.Left, area.Top, area.Left + area.Width, area.Top + area.Height};
    return PartInside(x1, y1, x2, y2, inside).has_value();
}

bool ArcIsInSight(const DrawOperation& arc, const FieldArea& area) {
    double start = 0;
    double sweep = 2 * Pi;
    if (!arc.IsFullCircle()) {
        start = arc.Start;
        sweep = SweepOf(arc.Start, arc.End);
    }
    const int pieces = std::max(1, static_cast<int>(std::ceil(sweep / (2 * Pi) * chordsPerTurn)));
    const auto x = [&](int i) { return arc.X1 + arc.Radius() * std::cos(start + sweep * i / pieces); };
    const auto y = [&](int i) { return arc.Y1 - arc.Radius() * std::sin(start + sweep * i / pieces); };
    for (int i = 0; i < pieces; ++i) {
        if (LineIsInSight(x(i), y(i), x(i + 1), y(i + 1), area)) return true;
    }
    return false;
}

}  // namespace

bool IsInSight(const DrawOperation& one, const FieldArea& area) {
    switch (one.What) {
        case Kind::Line: return LineIsInSight(one.X1, one.Y1, one.X2, one.Y2, area);
        case Kind::Box:
            return LineIsInSight(one.X1, one.Y1, one.X2, one.Y1, area) ||
                   LineIsInSight(one.X1, one.Y2, one.X2, one.Y2, area) ||
                   LineIsInSight(one.X1, one.Y1, one.X1, one.Y2, area) ||
                   LineIsInSight(one.X2, one.Y1, one.X2, one.Y2, area);
        case Kind::Circle: return ArcIsInSight(one, area);
        case Kind::Clear:
        case Kind::Picture: break;
    }
    return false;
}

}  // namespace kvt
