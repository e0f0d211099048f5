#pragma once

#include <span>

#include "platform/picture_box.h"

namespace kvt {

// Paints an area of a field (twips), at least one point, without a toolkit. The ground is the field's; the operations
// are those of its list, or those of them that the area needs. Slanting strokes and arcs are smooth; what lies along
// the axes falls on whole points, whatever area it is in.
Pixels PaintPicture(const PictureBox& field, const FieldArea& area, double pointsATwip,
                    std::span<const DrawOperation> operations);

}  // namespace kvt
