#include "platform/operations.h"
#include "platform/twips.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <unordered_set>

namespace kvt {

namespace {

using OperationKind = DrawOperation::Kind;

struct BytesHash {
    std::size_t operator()(const DrawOperation& one) const {
        const float places[] = {one.X1, one.Y1, one.X2, one.Y2, one.Start, one.End};
        std::size_t hash = one.Ink * 31U + static_cast<std::size_t>(one.What);
        for (const float place : places) {
            std::uint32_t bits = 0;
            std::memcpy(&bits, &place, sizeof bits);
            hash = (hash ^ bits) * 0x9E3779B97F4A7C15U;
        }
        return hash;
    }
};

struct SameOperation {
    bool operator()(const DrawOperation& a, const DrawOperation& b) const {
        return a.What == b.What && a.Style == b.Style && a.Mode == b.Mode && a.Fill == b.Fill &&
               a.Ink == b.Ink && a.FillInk == b.FillInk && a.X1 == b.X1 && a.Y1 == b.Y1 && a.X2 == b.X2 &&
               a.Y2 == b.Y2 && a.Start == b.Start && a.End == b.End && a.Width == b.Width;
    }
};

}  // namespace

Extent ExtentOf(const DrawOperation& one) {
    const double half = one.Width * TwipsPerPixel / 2.0;
    if (one.What == OperationKind::Circle) {
        const double r = std::abs(one.Radius()) + half;
        return {one.X1 - r, one.Y1 - r, one.X1 + r, one.Y1 + r};
    }
    const auto [left, right] = std::minmax(one.X1, one.X2);
    const auto [top, bottom] = std::minmax(one.Y1, one.Y2);
    return {left - half, top - half, right + half, bottom + half};
}

double SweepOf(float start, float end) {
    constexpr double circle = 2 * std::numbers::pi;
    const double sweep = std::fmod(double{end} - start, circle);
    return sweep <= 1e-6 ? sweep + circle : sweep;
}

std::optional<LinePart> PartInside(double x1, double y1, double x2, double y2, const Extent& inside) {
    LinePart part;
    const auto cut = [&](double start, double length, double low, double high) {
        if (length == 0) return start >= low && start <= high;
        const auto [first, last] = std::minmax({(low - start) / length, (high - start) / length});
        part.From = std::max(part.From, first);
        part.To = std::min(part.To, last);
        return part.From <= part.To;
    };
    const bool seen =
        cut(x1, x2 - x1, inside.Left, inside.Right) && cut(y1, y2 - y1, inside.Top, inside.Bottom);
    return seen ? std::optional(part) : std::nullopt;
}

std::vector<DrawOperation> SeenIn(std::span<const DrawOperation> operations, const FieldArea& area) {
    std::unordered_set<DrawOperation, BytesHash, SameOperation> known;
    std::vector<DrawOperation> seen;
    for (auto one = operations.rbegin(); one != operations.rend(); ++one) {
        if (one->What == OperationKind::Clear || one->What == OperationKind::Picture) continue;
        const Extent extent = ExtentOf(*one);
        const bool outside = extent.Right < area.Left || extent.Left > area.Left + area.Width ||
                             extent.Bottom < area.Top || extent.Top > area.Top + area.Height;
        if (outside || (one->Mode == draw_mode::Copy && !known.insert(*one).second)) continue;
        seen.push_back(*one);
    }
    std::reverse(seen.begin(), seen.end());
    return seen;
}

}  // namespace kvt
