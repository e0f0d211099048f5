#include "desktop/application.h"

#include <QFile>

#include "basic/caught_failure.h"
#include "basic/stack_guard.h"
#include "desktop/colors.h"
#include "desktop/edged_style.h"

namespace kvt {

namespace {

constexpr int iconSizes[] = {16, 22, 24, 32, 48, 64, 128, 256};

}  // namespace

QIcon ProgramIcon() {
    QIcon icon;
    for (const int size : iconSizes) {
        QFile file(QStringLiteral(":/icons/kvt_%1.png").arg(size));
        // With the format named, the toolkit loads no library of another format at the start.
        if (file.open(QIODevice::ReadOnly))
            icon.addPixmap(QPixmap::fromImage(QImage::fromData(file.readAll(), "PNG")));
    }
    return icon;
}

void UseDesktopPalette() {
    static bool changing = false;
    const StackGuard guard(changing);
    if (!guard.Entered()) return;
    // One without colours of its own is that of the desktop.
    QApplication::setPalette(QPalette());
    const QPalette palette = ReadablePalette(QApplication::palette());
    QApplication::setPalette(palette);
    if (IsDarkOrStrong(palette) && !dynamic_cast<EdgedStyle*>(QApplication::style()))
        QApplication::setStyle(new EdgedStyle(QApplication::style()->objectName()));
    RefreshTextColors();
}

bool Application::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange) UseDesktopPalette();
    return QApplication::event(event);
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        TellFailure("Event");
    }
    return false;
}

}  // namespace kvt
