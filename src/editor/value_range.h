#pragma once

#include <cstdint>

#include "platform/controls.h"
#include "program/limits.h"
#include "program/texts.h"

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

// From one bound of the machines to another; up to one from 0; and as far on either side of 0.
constexpr UnitRanges Between(limit::ByUnits low, limit::ByUnits high) {
    return {{MachineLimit(low.Inch), MachineLimit(high.Inch)},
            {MachineLimit(low.Metric), MachineLimit(high.Metric)}};
}
constexpr UnitRanges UpTo(limit::ByUnits high) { return Between(limit::Both(limit::Zero), high); }
constexpr UnitRanges EitherSide(limit::ByUnits high) {
    return {{-MachineLimit(high.Inch), MachineLimit(high.Inch)},
            {-MachineLimit(high.Metric), MachineLimit(high.Metric)}};
}

inline constexpr UnitRanges FeedRange = Between(limit::Both(limit::Two), limit::Feed);

// Gives a field its range: two numbers joined by "TO" in the Tag, which the check of the field reads, and the tool tip.
void SetRange(TextBox& field, const ValueRange& range, const Texts& texts);

}  // namespace kvt
