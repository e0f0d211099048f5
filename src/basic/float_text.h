#pragma once

#include <string>

namespace kvt {

// Writes the shortest text without an exponent that reads back as the same number, as std::to_chars does; for standard
// libraries that cannot do it yet. The number is finite, not negative and, but for 0, not below 1e-27. Returns the end of what was written.
char* WriteShortest(char* first, char* last, float magnitude);

// The number nearest to decimal digits with a point or none in front of, between or behind them; infinite where it is
// too large.
double NearestDouble(const std::string& digits);

}  // namespace kvt
