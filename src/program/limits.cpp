#include "program/limits.h"

#include <algorithm>
#include <cstdlib>

namespace kvt {

void LimitTable::Fill(bool disableLimitsCheck) {
    std::copy(std::begin(MachineLimits), std::end(MachineLimits), values_.begin());
    if (!disableLimitsCheck) return;
    for (std::int32_t& value : values_) value = NoLimit(value);
}

std::int32_t NoLimit(std::int32_t value) {
    if (value == 0) return 0;
    std::int64_t widest = 9;
    while (widest < std::abs(static_cast<std::int64_t>(value))) widest = widest * 10 + 9;
    if (widest > INT32_MAX) return value;
    return static_cast<std::int32_t>(value < 0 ? -widest : widest);
}

}  // namespace kvt
