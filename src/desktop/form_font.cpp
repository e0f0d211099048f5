#include "desktop/form_font.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "platform/twips.h"

namespace kvt {

namespace {

// What the forms are made for, in pixels at factor 1: the mean width of a small letter, and the height of a line from
// the dots of a capital to the foot of a "g".
constexpr double meanWidth = 6.35;
constexpr double lineHeight = 16;
constexpr int smallestSize = 11;
constexpr int largestSize = 13;
// How much of its size the desktop's face keeps on a small screen.
constexpr double leastShare = 0.8;

constexpr int titleAndMenus = 4;  // in heights of the font

// The factor at which the forms have room for a face.
double FactorOf(const QFont& font) {
    const QString letters = QStringLiteral("abcdefghijklmnopqrstuvwxyz");
    const QFontMetricsF metrics(font);
    const double width = metrics.horizontalAdvance(letters) / static_cast<double>(letters.size());
    const double height = metrics.tightBoundingRect(QStringLiteral("\u00C4\u00D6g")).height();
    return std::max(width / meanWidth, height / lineHeight);
}

}  // namespace

FormFont FontOfDesktop(const QFont& desktop, QSize screen, QSize smallestForm) {
    QFont font = desktop;
    const double pixels = QFontInfo(font).pixelSize();
    const double wanted = std::max(1.0, FactorOf(font));
    const double fits = TwipsPerPixel * std::min(1.0 * screen.width() / smallestForm.width(),
                                                 1.0 * screen.height() / smallestForm.height());
    const double factor = std::min(wanted, std::max({fits, wanted * leastShare, 1.0}));
    // Sizes of whole pixels, so that letters stay sharp.
    for (int size = static_cast<int>(pixels); factor < wanted && size >= smallestSize; --size) {
        font.setPixelSize(size);
        if (FactorOf(font) <= factor) break;
    }
    return {font, factor};
}

FormFont FontForFactor(const QFont& face, double factor) {
    QFont font = face;
    for (int size = largestSize; size >= smallestSize; --size) {
        font.setPixelSize(static_cast<int>(std::lround(size * factor)));
        if (FactorOf(font) <= factor) break;
    }
    return {font, factor};
}

QRect RoomIn(const QRect& screen) {
    const int fontHeight = QFontMetrics(QApplication::font()).height();
    return screen.adjusted(0, 0, -fontHeight / 2, -titleAndMenus * fontHeight);
}

QFont FixedPitchFont() {
    const auto isFixed = [](const QFont& font) {
        const QFontMetricsF metrics(font);
        return QFontInfo(font).fixedPitch() &&
               metrics.horizontalAdvance(u'i') == metrics.horizontalAdvance(u'W');
    };
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    if (isFixed(font)) return font;
    // A desktop whose settings name no such face, or one that is not installed.
    for (const QString& family : QFontDatabase::families(QFontDatabase::Latin)) {
        if (!QFontDatabase::isFixedPitch(family)) continue;
        font.setFamily(family);
        if (isFixed(font)) return font;
    }
    return font;
}

}  // namespace kvt
