#include "basic/number.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

#include "basic/float_text.h"
#include "basic/run_time_error.h"
#include "basic/text.h"

namespace kvt {

namespace {

constexpr double powersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                  1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

constexpr bool IsSkipped(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// Reads a number of more digits than a double holds exactly.
double ValOfLongText(std::string_view text) {
    std::string compact;
    bool point = false;
    for (const char c : text) {
        if (IsSkipped(c)) continue;
        if (compact.empty() && (c == '-' || c == '+')) {
            compact += c;
        } else if (c == '.' && !point) {
            point = true;
            compact += c;
        } else if (IsDigit(c)) {
            compact += c;
        } else {
            break;
        }
    }
#ifndef __cpp_lib_to_chars
    const double nearest = NearestDouble(compact);
    if (std::isinf(nearest)) throw RunTimeError(fault::Overflow);
    return nearest;
#else
    const char* first = compact.data() + (compact[0] == '+' ? 1 : 0);
    double value = 0;
    const auto result =
        std::from_chars(first, compact.data() + compact.size(), value, std::chars_format::fixed);
    if (result.ec == std::errc::result_out_of_range && std::abs(value) != 0.0)
        throw RunTimeError(fault::Overflow);
    if (result.ec == std::errc::result_out_of_range) {
        // from_chars leaves value alone: tell what is too large from what is too small by the whole part.
        const std::string_view digits(first,
                                      static_cast<std::size_t>(compact.data() + compact.size() - first));
        if (digits.substr(0, digits.find('.')).find_first_of("123456789") != std::string_view::npos)
            throw RunTimeError(fault::Overflow);
    }
    return value;
#endif
}

}  // namespace

double Val(std::string_view text) {
    bool negative = false;
    bool started = false;
    bool point = false;
    int digits = 0;
    int decimals = 0;
    std::uint64_t mantissa = 0;
    for (const char c : text) {
        if (IsDigit(c)) {
            if (++digits > 15) return ValOfLongText(text);
            mantissa = mantissa * 10 + static_cast<unsigned>(c - '0');
            if (point) ++decimals;
            started = true;
        } else if (IsSkipped(c)) {
            continue;
        } else if (c == '.' && !point) {
            point = true;
            started = true;
        } else if ((c == '-' || c == '+') && !started) {
            negative = c == '-';
            started = true;
        } else {
            break;
        }
    }
    const double value = static_cast<double>(mantissa) / powersOfTen[decimals];
    return negative && mantissa != 0 ? -value : value;
}

bool IsNumeric(std::string_view text) {
    text = Trim(text);
    if (!text.empty() && (text[0] == '-' || text[0] == '+')) text.remove_prefix(1);
    bool digit = false;
    bool point = false;
    for (const char c : text) {
        if (IsDigit(c)) {
            digit = true;
        } else if (c == '.' && !point) {
            point = true;
        } else {
            return false;
        }
    }
    return digit;
}

std::int32_t ToLong(double value) {
    if (value >= -2147483648.0 && value <= 2147483647.0) {
        const auto truncated = static_cast<std::int32_t>(value);
        if (static_cast<double>(truncated) == value) return truncated;
    }
    const double whole = std::nearbyint(value);
    if (!(whole >= std::numeric_limits<std::int32_t>::min() &&
          whole <= std::numeric_limits<std::int32_t>::max()))
        throw RunTimeError(fault::Overflow);
    return static_cast<std::int32_t>(whole);
}

std::int16_t ToInteger(double value) {
    const double whole = std::nearbyint(value);
    if (!(whole >= std::numeric_limits<std::int16_t>::min() &&
          whole <= std::numeric_limits<std::int16_t>::max()))
        throw RunTimeError(fault::Overflow);
    return static_cast<std::int16_t>(whole);
}

float ToSingle(double value) {
    const auto rounded = static_cast<float>(value);
    if (!std::isfinite(rounded)) throw RunTimeError(fault::Overflow);
    return rounded;
}

double WholePart(double value) { return std::trunc(value); }

std::int32_t Remainder(double dividend, double divisor) {
    const std::int64_t a = ToLong(dividend);
    const std::int64_t b = ToLong(divisor);
    if (b == 0) throw RunTimeError(fault::DivisionByZero);
    return static_cast<std::int32_t>(a % b);
}

double Divide(double dividend, double divisor) {
    if (divisor == 0) throw RunTimeError(fault::DivisionByZero);
    return dividend / divisor;
}

double SquareRoot(double value) {
    if (value < 0) throw RunTimeError(fault::InvalidCall);
    return std::sqrt(value);
}

std::string Format(double value, std::string_view pattern) {
    const std::size_t pointAt = pattern.find('.');
    const std::string_view wholePattern = pattern.substr(0, pointAt);
    const std::size_t decimals = pointAt == std::string_view::npos ? 0 : pattern.size() - pointAt - 1;

    std::string literal;
    std::size_t filled = 0;
    for (const char c : wholePattern) {
        if (c == '0') {
            ++filled;
        } else if (c != '#') {
            literal += c;
        }
    }

    // All digits, the decimals included, without a sign.
    char buffer[400];
    std::size_t count = 0;
    const double scaled = std::round(std::abs(value) * powersOfTen[decimals]);
    if (scaled < 9e15) {
        const auto end =
            std::to_chars(buffer, buffer + sizeof buffer, static_cast<std::uint64_t>(scaled)).ptr;
        count = static_cast<std::size_t>(end - buffer);
    } else {
        count = static_cast<std::size_t>(std::snprintf(buffer, sizeof buffer, "%.0f", scaled));
    }
    std::string_view digits(buffer, count);
    if (digits == "0") digits = "";

    std::string text;
    if (value < 0 && !digits.empty()) text += '-';
    text += literal;
    const std::size_t wholeDigits = digits.size() > decimals ? digits.size() - decimals : 0;
    if (wholeDigits < filled) text.append(filled - wholeDigits, '0');
    text += digits.substr(0, wholeDigits);
    if (decimals > 0) {
        text += '.';
        if (digits.size() < decimals) text.append(decimals - digits.size(), '0');
        text += digits.substr(wholeDigits);
    }
    return text;
}

std::string FormatText(std::string_view text, std::string_view pattern) {
    return IsNumeric(text) ? Format(Val(text), pattern) : std::string(text);
}

namespace {

// Shortest fixed text of the magnitude, with the 0 in front of a leading point.
std::string_view Magnitude(float value, char (&buffer)[128]) {
    const float magnitude = std::abs(value);
    const float twice = magnitude * 2;
    char* end = nullptr;
    if (twice < 16777216.0F && twice == std::trunc(twice)) {
        // Nearly every position is a whole number or a half.
        const auto whole = static_cast<std::uint32_t>(magnitude);
        end = std::to_chars(buffer, buffer + sizeof buffer, whole).ptr;
        if (static_cast<float>(whole) != magnitude) {
            *end++ = '.';
            *end++ = '5';
        }
    } else {
#ifdef __cpp_lib_to_chars
        end = std::to_chars(buffer, buffer + sizeof buffer, magnitude, std::chars_format::fixed).ptr;
#else
        end = WriteShortest(buffer, buffer + sizeof buffer, magnitude);
#endif
    }
    return {buffer, static_cast<std::size_t>(end - buffer)};
}

}  // namespace

std::string NumberText(float value) {
    char buffer[128];
    std::string_view magnitude = Magnitude(value, buffer);
    if (magnitude.size() > 1 && magnitude[0] == '0' && magnitude[1] == '.') magnitude.remove_prefix(1);
    std::string text(1, value < 0 ? '-' : ' ');
    text += magnitude;
    return text;
}

namespace {

// Rounds a decimal text off to so many decimals behind its point, halves away from zero; without any the point
// goes too. Zero has no sign.
void RoundOff(std::string& text, std::size_t point, std::size_t decimals) {
    const bool up = text[point + 1 + decimals] >= '5';
    text.resize(decimals > 0 ? point + 1 + decimals : point);
    std::size_t at = text.size();
    for (bool carry = up; carry;) {
        // In front of the first digit the carry makes one of its own, also where the whole part had none.
        if (at == 0 || text[at - 1] == '-') {
            text.insert(at, 1, '1');
            break;
        }
        char& digit = text[--at];
        if (digit == '.') continue;
        carry = digit == '9';
        digit = carry ? '0' : static_cast<char>(digit + 1);
    }
    if (text[0] == '-' && text.find_first_of("123456789") == std::string::npos) text.erase(0, 1);
}

}  // namespace

SixCharacters FieldOfSix(float value) {
    SixCharacters field = {{' ', ' ', ' ', ' ', ' ', ' '}};
    constexpr std::size_t width = sizeof field.Text;
    const float magnitude = std::abs(value);
    // Nearly every position is a whole number or a half: written from the right, where there is room for any.
    const auto isWhole = [](float number, float below) {
        return number < below && number == static_cast<float>(static_cast<int>(number));
    };
    if (isWhole(magnitude, 100'000) || isWhole(magnitude * 2, 2'000)) {
        char* at = field.Text + width;
        auto whole = static_cast<unsigned>(magnitude);
        if (static_cast<float>(whole) != magnitude) {
            *--at = '5';
            *--at = '.';
        } else if (whole == 0) {
            *--at = '0';
        }
        for (; whole != 0; whole /= 10) *--at = static_cast<char>('0' + whole % 10);
        if (value < 0) *--at = '-';
        return field;
    }
    // Decimals are rounded off the shortest text, not off the float behind it.
    std::string text = NumberText(value);
    if (text.size() > width && text[0] == ' ') text.erase(0, 1);
    for (std::size_t point = text.find('.'); text.size() > width && point != std::string::npos;
         point = text.find('.')) {
        RoundOff(text, point, width > point + 1 ? width - point - 1 : 0);
    }
    const std::string padded = RightPad(text, width);
    padded.copy(field.Text, width);
    return field;
}

std::string PlainNumber(float value) {
    char buffer[128];
    std::string text(value < 0 ? "-" : "");
    text += Magnitude(value, buffer);
    return text;
}

std::string PlainNumber(std::int64_t value) { return std::to_string(value); }

}  // namespace kvt
