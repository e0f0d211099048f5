#pragma once

#include "basic/number.h"
#include "platform/twips.h"

namespace kvt {

// The angle of a direction, from 0 up to two pi, counter-clockwise with Y up. Both 0 give pi.
double Atan2(double x, double y);

}  // namespace kvt
