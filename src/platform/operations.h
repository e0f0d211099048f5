#pragma once

#include <optional>
#include <span>
#include <vector>

#include "platform/picture_box.h"

namespace kvt {

// The edges of a rectangle, twips.
struct Extent {
    double Left, Top, Right, Bottom;
};

// The rectangle around a line, a box or a whole circle, with the width of the pen.
Extent ExtentOf(const DrawOperation& operation);

// How far an arc goes counter-clockwise from its start to its end, above 0 up to two pi.
double SweepOf(float start, float end);

// A part of a line, in shares of its length from its start.
struct LinePart {
    double From = 0, To = 1;
};

// The part of a line that lies inside a rectangle; none where it misses it.
std::optional<LinePart> PartInside(double x1, double y1, double x2, double y2, const Extent& inside);

// The operations that are to be seen in an area, in their order. What a later operation covers exactly is left out,
// so that a path that was run through many times stays small.
std::vector<DrawOperation> SeenIn(std::span<const DrawOperation> operations, const FieldArea& area);

}  // namespace kvt
