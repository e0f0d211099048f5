#pragma once

#include "platform/picture_box.h"

namespace kvt {

// Pictures of the axes: which way a positive value moves the tool. Each is drawn anew to the size of its field.

// The lathe from above: chuck and work on the left, Z to the right along the spindle, X across it.
void DrawLatheAxes(PictureBox& field);
// The mill from above, with Z standing up.
void DrawMillAxes(PictureBox& field);

}  // namespace kvt
