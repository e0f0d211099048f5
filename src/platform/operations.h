#pragma once

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

// The operations that are to be seen in an area, in their order. What a later operation covers exactly is left out,
// so that a path that was run through many times stays small.
std::vector<DrawOperation> SeenIn(std::span<const DrawOperation> operations, const FieldArea& area);

}  // namespace kvt
