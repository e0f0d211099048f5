#pragma once

#include "platform/picture_box.h"

namespace kvt {

// Whether something of a line, a box's outline or an arc lies in an area (twips).
bool IsInSight(const DrawOperation& operation, const FieldArea& area);

}  // namespace kvt
