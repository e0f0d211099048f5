#pragma once

#include <QApplication>
#include <QIcon>

namespace kvt {

// The icon of all windows, from 16 to 256 pixels.
QIcon ProgramIcon();

// Takes the desktop's palette, made readable where it is not.
void UseDesktopPalette();

// Every event, timer, notifier and queued call of the toolkit passes here: no failure gets any farther, and the program
// goes on.
class Application : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override;

protected:
    // The desktop may change its palette while the program runs.
    bool event(QEvent* event) override;
};

}  // namespace kvt
