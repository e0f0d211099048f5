#include "draw/geometry.h"

#include <cmath>

namespace kvt {

double Atan2(double x, double y) {
    if (y == 0 && x > 0) return 0;
    if (x == 0 && y > 0) return 1.5707963267949;
    if (y == 0 && x <= 0) return Pi;
    if (x == 0 && y <= 0) return 4.71238898038469;
    const double angle = std::abs(std::atan(y / x));
    if (x > 0) return y > 0 ? angle : 6.28318530717959 - angle;
    return y > 0 ? Pi - angle : angle + Pi;
}

}  // namespace kvt
