#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The one place where numbers are read from and written to texts.
namespace kvt {

// To the digits that the arcs and times of the machines are worked out with.
inline constexpr double Pi = 3.14159265358979;

// The longest numeric beginning: blanks, tabs and line ends are skipped wherever they are, then an optional
// sign, digits, at most one point. 0 for nothing numeric; a number beyond every float is error 6.
double Val(std::string_view text);

// Whether the trimmed text is a sign (or none), digits and at most one point, and nothing else.
bool IsNumeric(std::string_view text);

// To the nearest whole number, halves to even; outside the 32-bit or 16-bit range error 6.
std::int32_t ToLong(double value);
std::int16_t ToInteger(double value);

// Rounded to a 32-bit float; beyond its range error 6.
float ToSingle(double value);

// The whole part, towards zero.
double WholePart(double value);

// The remainder of the division of both operands rounded to whole numbers; a divisor of 0 is error 11.
std::int32_t Remainder(double dividend, double divisor);

// dividend / divisor; a divisor of 0 is error 11. SquareRoot of a negative number is error 5.
double Divide(double dividend, double divisor);
double SquareRoot(double value);

// Writes a number with a digit pattern ("0" always filled, "#" only when needed, other characters as they
// are), rounded to the pattern's decimals, halves away from zero. Zero has no sign.
std::string Format(double value, std::string_view pattern);
// The same for a text: a blank text, and one that fails the numeric test, stays as it is.
std::string FormatText(std::string_view text, std::string_view pattern);

// Number to text with its sign place: a blank or "-", the shortest decimal text that reads back as the same
// 32-bit float, without a 0 in front of the point, never an exponent.
std::string NumberText(float value);

// NumberText right-justified in a field of six: where it is longer the sign's blank gives way, then decimals
// are rounded off until it fits; a whole part that does not fit loses characters on the left.
struct SixCharacters {
    char Text[6];
    operator std::string_view() const { return {Text, sizeof Text}; }
};
SixCharacters FieldOfSix(float value);

// No blank in front, "-" when negative, a 0 in front of a leading point.
std::string PlainNumber(float value);
std::string PlainNumber(std::int64_t value);
inline std::string PlainNumber(std::int32_t value) { return PlainNumber(static_cast<std::int64_t>(value)); }

}  // namespace kvt
