#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "platform/picture_box.h"

namespace kvt {

// How far a place lies from the middle of a line, an outline or an arc, in twips.
double DistanceTo(const DrawOperation& operation, double x, double y);

// The place in the list of the operation nearest to a place, among those with a source that lie no farther than a
// distance from it (twips, to the edge of the pen). Of several as near, the one drawn last; none where none is near.
std::optional<std::size_t> OperationAt(const PictureBox& field, double x, double y, double within);

// The operations that came from the lit sources, in their order.
std::vector<DrawOperation> LitOperations(const PictureBox& field);

}  // namespace kvt
