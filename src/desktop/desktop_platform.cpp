#include "desktop/desktop_platform.h"

#include <QApplication>
#include <QFontMetrics>
#include <QScreen>
#include <algorithm>

namespace kvt {

namespace {

constexpr double plainResolution = 96;  // pixels an inch
// The forms are made for characters that are this wide in the mean, in pixels.
constexpr double meanWidth = 6.2;
constexpr int largestFont = 13;
constexpr int smallestFont = 11;

// The largest face that the forms have room for. Smaller ones are not readable.
QFont FormFont(double factor) {
    const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    QFont font = QApplication::font();
    for (int size = largestFont; size >= smallestFont; --size) {
        font.setPixelSize(static_cast<int>(size * factor + 0.5));
        const int width = QFontMetrics(font).horizontalAdvance(letters);
        if (width <= meanWidth * factor * static_cast<double>(letters.size())) break;
    }
    return font;
}

}  // namespace

int DesktopScreen::Width() { return lengths_.Twips(QGuiApplication::primaryScreen()->geometry().width()); }

int DesktopScreen::Height() { return lengths_.Twips(QGuiApplication::primaryScreen()->geometry().height()); }

int DesktopScreen::WorkAreaHeight() {
    return lengths_.Twips(QGuiApplication::primaryScreen()->availableGeometry().height());
}

double DesktopPlatform::ScreenFactor() {
    return std::clamp(QGuiApplication::primaryScreen()->logicalDotsPerInch() / plainResolution, 1.0, 2.0);
}

DesktopPlatform::DesktopPlatform(FileService& files, ProgramService& programs, double factor)
    : Desktop{Scale(factor), focus_, system_, keyboard_},
      Services{files, dialogs_, clipboard_, screen_, system_, focus_, port_, printer_, programs, pictures_},
      system_(focus_),
      keyboard_(focus_, system_),
      dialogs_(Desktop),
      screen_(Desktop.Lengths),
      printer_(Desktop) {
    // The program ends when it says so, not with its windows.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QApplication::setFont(FormFont(factor));
}

}  // namespace kvt
