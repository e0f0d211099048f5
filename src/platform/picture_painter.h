#pragma once

#include "platform/picture_box.h"

namespace kvt {

// Paints an area of a field (twips), at least one point, without a toolkit. Slanting strokes and arcs are smooth; what
// lies along the axes falls on whole points, whatever area it is in.
Pixels PaintPicture(const PictureBox& field, const FieldArea& area, double pointsPerTwip);

}  // namespace kvt
