#include "basic/float_text.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace kvt {

namespace {

// The decimals of nearly all numbers of programs; the products below are exact up to here.
constexpr int usualDecimals = 6;
constexpr float usualBelow = 1e6F;

char* WritePrinted(char* first, char* last, int decimals, float magnitude) {
    const auto room = static_cast<std::size_t>(last - first);
    return first + std::snprintf(first, room, "%.*f", decimals, static_cast<double>(magnitude));
}

// Whole digits and the point behind them; true where they read back as the number.
bool WriteUsual(char*& first, char* last, float magnitude) {
    double power = 1;
    for (int decimals = 1; decimals <= usualDecimals; ++decimals) {
        power *= 10;
        const double scaled = std::nearbyint(static_cast<double>(magnitude) * power);
        if (static_cast<float>(scaled / power) != magnitude) continue;
        const auto digits = static_cast<std::uint64_t>(scaled);
        const auto whole = digits / static_cast<std::uint64_t>(power);
        std::uint64_t rest = digits % static_cast<std::uint64_t>(power);
        char* const point = std::to_chars(first, last, whole).ptr;
        *point = '.';
        for (int i = decimals; i > 0; --i, rest /= 10) point[i] = static_cast<char>('0' + rest % 10);
        first = point + decimals + 1;
        return true;
    }
    return false;
}

}  // namespace

char* WriteShortest(char* first, char* last, float magnitude) {
    // Whole numbers have all their digits, also those that a shorter text would not need.
    if (magnitude == std::trunc(magnitude)) return WritePrinted(first, last, 0, magnitude);
    if (magnitude < usualBelow && WriteUsual(first, last, magnitude)) return first;
    constexpr int mostDigits = 9;
    const int exponent = static_cast<int>(std::floor(std::log10(magnitude)));
    for (int decimals = 1;; ++decimals) {
        char* const end = WritePrinted(first, last, decimals, magnitude);
        if (decimals >= mostDigits - exponent || std::strtof(first, nullptr) == magnitude) return end;
    }
}

double NearestDouble(const std::string& digits) { return std::strtod(digits.c_str(), nullptr); }

}  // namespace kvt
