#pragma once

#include <array>
#include <cstdint>
#include <iterator>

namespace kvt {

// The bounds of the machines, in program units (1/100 mm or 1/1000 inch).
inline constexpr std::int32_t MachineLimits[] = {0,    2,      10,    199,    221,   499,    999,  -1999,
                                                 1999, -3999,  3999,  -5999,  5999,  -7999,  7999, -9999,
                                                 9999, -12900, 12900, -19999, 19999, -32760, 32760};

// The same as the check holds them, indexed from 1.
class LimitTable {
public:
    static constexpr int Size = std::size(MachineLimits);

    // Fills the table; with limits disabled each entry passes through NoLimit.
    void Fill(bool disableLimitsCheck);
    // The entry of an index, 1 to 23.
    std::int32_t operator()(int index) const { return values_[static_cast<std::size_t>(index) - 1]; }

private:
    std::array<std::int32_t, Size> values_ = {};
};

// Indices of LimitTable by the number that stands there.
namespace limit {
inline constexpr int Zero = 1, Two = 2, Ten = 3, N199 = 4, N221 = 5, N499 = 6, N999 = 7, Minus1999 = 8,
                     Plus1999 = 9, Minus3999 = 10, Plus3999 = 11, Minus5999 = 12, Plus5999 = 13,
                     Minus7999 = 14, Plus7999 = 15, Minus9999 = 16, Plus9999 = 17, Minus12900 = 18,
                     Plus12900 = 19, Minus19999 = 20, Plus19999 = 21, Minus32760 = 22, Plus32760 = 23;

// The entries of a bound that differs with the units. That in front of an axis bound holds the same number negated.
struct ByUnits {
    int Metric;
    int Inch;

    constexpr int In(bool metric) const { return metric ? Metric : Inch; }
};
constexpr ByUnits Both(int index) { return {index, index}; }
inline constexpr ByUnits LatheX{Plus5999, Plus1999}, LatheZ{Plus32760, Plus12900}, Feed{N499, N199},
    MillShort{Plus9999, Plus3999}, MillLong{Plus19999, Plus7999};
}  // namespace limit

// The number of an entry, 1 to 23, whether limits are disabled or not.
constexpr std::int32_t MachineLimit(int index) { return MachineLimits[index - 1]; }

// Widens a bound to the largest number of the same decimal width. Positive lower bounds rise with it, 2 to 9 and 10 to
// 99: one rule for every entry of the table.
std::int32_t NoLimit(std::int32_t value);

}  // namespace kvt
