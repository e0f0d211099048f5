#include "desktop/colors.h"

#include <QPalette>
#include <algorithm>
#include <cmath>

namespace kvt {

namespace {

constexpr double leastContrast = 4.5;

double Luminance(QColor color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double Contrast(QColor a, QColor b) {
    const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

}  // namespace

QColor Readable(QColor color, QColor ground) {
    const QColor far = Luminance(ground) > 0.18 ? Qt::black : Qt::white;
    for (double share = 0; share < 1; share += 0.1) {
        const QColor candidate = Mixed(color, far, share);
        if (Contrast(candidate, ground) >= leastContrast) return candidate;
    }
    return far;
}

QColor Mixed(QColor color, QColor other, double share) {
    const auto mix = [&](double a, double b) { return static_cast<float>(a + (b - a) * share); };
    return QColor::fromRgbF(mix(color.redF(), other.redF()), mix(color.greenF(), other.greenF()),
                            mix(color.blueF(), other.blueF()));
}

QColor ColorOf(Color color) {
    const auto part = [&](int shift) { return static_cast<int>((color >> shift) & 0xFF); };
    return {part(0), part(8), part(16)};
}

Color NumberOf(const QColor& color) {
    return static_cast<Color>(color.red() | color.green() << 8 | color.blue() << 16);
}

void SetTextColor(QWidget& widget, Color color) {
    QPalette palette;
    const auto set = [&](QPalette::ColorRole text, QPalette::ColorRole ground) {
        const QColor readable = Readable(ColorOf(color), palette.color(ground));
        palette.setColor(QPalette::Active, text, readable);
        palette.setColor(QPalette::Inactive, text, readable);
    };
    if (color != 0) {
        set(QPalette::WindowText, QPalette::Window);
        set(QPalette::Text, QPalette::Base);
    }
    widget.setPalette(palette);
}

}  // namespace kvt
