#include "desktop/desktop_platform.h"

#include <QApplication>
#include <QFontMetrics>
#include <QScreen>
#include <QWidget>
#include <algorithm>

#include "desktop/accessible.h"
#include "desktop/application.h"

namespace kvt {

namespace {

// What the title and the menus of a window have of the screen is known when it is up. Until then a place counts as on the
// screen with the least that they can have, and one that is brought back leaves them room enough (RoomIn).
constexpr double leastEdge = 2.5;  // in heights of the font

QSize MainRoom() { return RoomIn(QGuiApplication::primaryScreen()->availableGeometry()).size(); }

// The screen that shows most of a window, or the main one where none does.
QRect ScreenAt(const QRect& window) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const auto shown = [&](const QScreen& one) {
        const QRect part = one.geometry() & window;
        return part.width() * part.height();
    };
    for (const QScreen* one : QGuiApplication::screens()) {
        if (shown(*one) > shown(*screen)) screen = one;
    }
    return screen->availableGeometry();
}

}  // namespace

int DesktopScreen::Width() { return lengths_.Twips(QGuiApplication::primaryScreen()->geometry().width()); }

int DesktopScreen::Height() { return lengths_.Twips(QGuiApplication::primaryScreen()->geometry().height()); }

int DesktopScreen::WorkAreaHeight() {
    return lengths_.Twips(QGuiApplication::primaryScreen()->availableGeometry().height());
}

// The window of a form scrolls where it is smaller than the form.
int DesktopScreen::WidthFor(int wanted) { return std::min(wanted, lengths_.Twips(MainRoom().width())); }

int DesktopScreen::HeightFor(int wanted) { return std::min(wanted, lengths_.Twips(MainRoom().height())); }

WindowPlace DesktopScreen::OnScreen(const WindowPlace& place) {
    const QRect wanted = lengths_.Rectangle(place.Left, place.Top, place.Width, place.Height);
    const QRect screen = ScreenAt(wanted);
    const int fontHeight = QFontMetrics(QApplication::font()).height();
    if (screen.contains(wanted.adjusted(0, 0, 0, static_cast<int>(leastEdge * fontHeight)))) return place;
    const QRect area = RoomIn(screen);
    const int width = std::min(wanted.width(), area.width());
    const int height = std::min(wanted.height(), area.height());
    const int left = std::clamp(wanted.left(), area.left(), area.left() + area.width() - width);
    const int top = std::clamp(wanted.top(), area.top(), area.top() + area.height() - height);
    return {lengths_.Twips(height), lengths_.Twips(left), lengths_.Twips(top), lengths_.Twips(width)};
}

WindowPlace DesktopScreen::WorkArea(const WindowPlace& place) {
    const QRect area = ScreenAt(lengths_.Rectangle(place.Left, place.Top, place.Width, place.Height));
    return {lengths_.Twips(area.height()), lengths_.Twips(area.left()), lengths_.Twips(area.top()),
            lengths_.Twips(area.width())};
}

// That of the window in use, which may be on another screen.
double DesktopScreen::PointsPerTwip() {
    const QWidget* const window = QApplication::activeWindow();
    return lengths_.Exact(1) * (window ? window->devicePixelRatioF() : qApp->devicePixelRatio());
}

FormFont DesktopPlatform::FontOfScreen(QSize smallestForm) {
    return FontOfDesktop(QApplication::font(), MainRoom(), smallestForm);
}

DesktopPlatform::DesktopPlatform(FileService& files, ProgramService& programs, double factor)
    : DesktopPlatform(files, programs, FontForFactor(QApplication::font(), factor)) {}

DesktopPlatform::DesktopPlatform(FileService& files, ProgramService& programs, const FormFont& face)
    : Desktop{Scale(face.Factor), focus_, system_, keyboard_},
      Services{files, dialogs_, clipboard_, screen_, system_, focus_, port_, printer_, programs},
      system_(focus_),
      keyboard_(focus_, system_),
      dialogs_(Desktop),
      screen_(Desktop.Lengths),
      printer_(Desktop) {
    InstallAccessibles();
    // The program ends when it says so, not with its windows.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QApplication::setFont(face.Font);
    UseDesktopPalette();
}

}  // namespace kvt
