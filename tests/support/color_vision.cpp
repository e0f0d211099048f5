#include "support/color_vision.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kvt::test {

namespace {

using Three = std::array<double, 3>;

constexpr Vision visions[] = {
    {"usual", {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
    {"no red",
     {{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}},
    {"no green",
     {{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}},
};

constexpr double toXyz[3][3] = {
    {0.4124564, 0.3575761, 0.1804375}, {0.2126729, 0.7151522, 0.0721750}, {0.0193339, 0.1191920, 0.9503041}};
constexpr Three white{0.95047, 1, 1.08883};

Three Times(const double (&matrix)[3][3], const Three& value) {
    Three result{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t i = 0; i < 3; ++i) result[row] += matrix[row][i] * value[i];
    }
    return result;
}

Three Linear(Color color) {
    Three parts{};
    for (std::size_t i = 0; i < 3; ++i) {
        const double part = (color >> (8 * i) & 0xFF) / 255.0;
        parts[i] = part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    }
    return parts;
}

Three LabOf(Color color, const Vision& vision) {
    Three seen = Times(vision.Matrix, Linear(color));
    for (double& part : seen) part = std::clamp(part, 0.0, 1.0);
    Three f = Times(toXyz, seen);
    for (std::size_t i = 0; i < 3; ++i) {
        const double t = f[i] / white[i];
        f[i] = t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116;
    }
    return {116 * f[1] - 16, 500 * (f[0] - f[1]), 200 * (f[1] - f[2])};
}

}  // namespace

std::span<const Vision> Visions() { return visions; }

double Difference(Color one, Color other, const Vision& vision) {
    const auto [l1, a1, b1] = LabOf(one, vision);
    const auto [l2, a2, b2] = LabOf(other, vision);
    return std::hypot(l1 - l2, a1 - a2, b1 - b2);
}

double Contrast(Color one, Color other) {
    const auto luminance = [](Color color) { return Times(toXyz, Linear(color))[1]; };
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

}  // namespace kvt::test
