#include "desktop/colors.h"

#include <QApplication>
#include <QPalette>
#include <QVariant>
#include <algorithm>
#include <cmath>

namespace kvt {

namespace {

constexpr double gridShare = 0.12;
constexpr double focusedTint = 0.3;  // of the selected row
constexpr double tint = 0.15;
constexpr double strongContrast = 15;
constexpr const char* ownColorKey = "ownColor";
const QColor findingColor(0xC0, 0x00, 0x20);

double Luminance(QColor color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

struct TextOnGround {
    QPalette::ColorRole Text, Ground;
};

// A role that stands on several grounds is made readable on one after the other.
constexpr TextOnGround texts[] = {
    {QPalette::WindowText, QPalette::Window},       {QPalette::Text, QPalette::Base},
    {QPalette::ButtonText, QPalette::Button},       {QPalette::HighlightedText, QPalette::Highlight},
    {QPalette::ToolTipText, QPalette::ToolTipBase}, {QPalette::Link, QPalette::Base},
    {QPalette::LinkVisited, QPalette::Base},        {QPalette::PlaceholderText, QPalette::Base},
};

}  // namespace

double Contrast(QColor a, QColor b) {
    const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

QPalette ReadablePalette(const QPalette& desktop) {
    QPalette palette = desktop;
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const TextOnGround& one : texts) {
            const QColor text = palette.color(group, one.Text);
            const QColor ground = palette.color(group, one.Ground);
            // What is half transparent lets its ground through.
            const QColor seen = Mixed(ground, text, text.alphaF());
            const QColor readable = Readable(seen, ground);
            if (readable != seen) palette.setColor(group, one.Text, readable);
        }
    }
    return palette;
}

bool IsDarkOrStrong(const QPalette& palette) {
    const QColor window = palette.color(QPalette::Window);
    const QColor text = palette.color(QPalette::WindowText);
    const bool strong = window == palette.color(QPalette::Base) && Contrast(window, text) >= strongContrast;
    return strong || Luminance(window) < Luminance(text);
}

QColor GridColor(const QPalette& palette) {
    const QColor base = palette.color(QPalette::Base);
    const QColor faint = Mixed(base, palette.color(QPalette::Text), gridShare);
    return IsDarkOrStrong(palette) ? Readable(faint, base) : faint;
}

QColor SelectedGround(const QPalette& palette, bool hasFocus) {
    return Mixed(palette.color(QPalette::Base), palette.color(QPalette::Active, QPalette::Highlight),
                 hasFocus ? focusedTint : tint);
}

QColor SelectedEdge(const QPalette& palette) {
    return Readable(palette.color(QPalette::Active, QPalette::Highlight), palette.color(QPalette::Base));
}

QColor EdgeColor(const QPalette& palette) {
    const QColor line = palette.color(QPalette::Mid);
    return IsDarkOrStrong(palette) ? Readable(line, palette.color(QPalette::Window)) : line;
}

QColor FindingColor(QColor ground) { return Readable(findingColor, ground); }

QColor Readable(QColor color, QColor ground) {
    const QColor far = Luminance(ground) > 0.18 ? Qt::black : Qt::white;
    for (double share = 0; share < 1; share += 0.05) {
        const QColor candidate = Mixed(color, far, share);
        if (Contrast(candidate, ground) >= LeastContrast) return candidate;
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
    widget.setProperty(ownColorKey, color);
}

void RefreshTextColors() {
    for (QWidget* const widget : QApplication::allWidgets()) {
        const QVariant own = widget->property(ownColorKey);
        if (own.isValid()) SetTextColor(*widget, own.toUInt());
    }
}

}  // namespace kvt
