#pragma once

#include <cstdint>

#include "platform/controls.h"

namespace kvt {

// The values that a field takes, bounds included, in program units (1/100 mm or 1/1000 inch).
struct ValueRange {
    std::int32_t Low;
    std::int32_t High;
};

// A range in both units.
struct UnitRanges {
    ValueRange Inch;
    ValueRange Metric;

    constexpr const ValueRange& In(bool metric) const { return metric ? Metric : Inch; }
};

inline constexpr UnitRanges FeedRange{{2, 199}, {2, 499}};

// Gives a field its range: two numbers joined by "TO" in the Tag, which the check of the field reads, and the tool tip.
void SetRange(TextBox& field, const ValueRange& range);

}  // namespace kvt
