#pragma once

#include "basic/number.h"

namespace kvt {

// The angle of a direction, from 0 up to two pi, counter-clockwise with Y up. Both 0 give pi.
double Atan2(double x, double y);

// Radians as degrees, in 32-bit floats.
float RadToDeg(float angle);

}  // namespace kvt
