#include "program/limits.h"

#include <cstdlib>

namespace kvt {

namespace {

constexpr std::array<std::int32_t, LimitTable::Size> machineLimits = {
    0,    2,     10,   199,   221,  499,    999,   -1999,  1999,  -3999,  3999, -5999,
    5999, -7999, 7999, -9999, 9999, -12900, 12900, -19999, 19999, -32760, 32760};

}  // namespace

std::int32_t MachineLimit(int index) { return machineLimits[static_cast<std::size_t>(index) - 1]; }

void LimitTable::Fill(bool disableLimitsCheck) {
    values_ = machineLimits;
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
