#pragma once

#include "desktop/desktop_clipboard.h"
#include "desktop/desktop_dialogs.h"
#include "desktop/desktop_keyboard.h"
#include "desktop/desktop_port.h"
#include "desktop/desktop_printer.h"
#include "desktop/form_font.h"
#include "desktop/view.h"
#include "platform/services.h"

namespace kvt {

// The main screen; places may be on any.
class DesktopScreen : public ScreenService {
public:
    explicit DesktopScreen(const Scale& lengths) : lengths_(lengths) {}
    int Width() override;
    int Height() override;
    int WorkAreaHeight() override;
    int WidthFor(int wanted) override;
    int HeightFor(int wanted) override;
    WindowPlace OnScreen(const WindowPlace& place) override;
    WindowPlace WorkArea(const WindowPlace& place) override;
    double PointsPerTwip() override;

private:
    const Scale& lengths_;
};

// The windowing half of the platform. Stands on a QApplication, and on files and programs that it is given.
class DesktopPlatform {
public:
    // The desktop's font on the main screen, which should have room for a form of the smallest size, in twips.
    static FormFont FontOfScreen(QSize smallestForm);

    // Forms grow with the font.
    DesktopPlatform(FileService& files, ProgramService& programs, const FormFont& face);
    // Forms grow by a factor, and their font with them.
    DesktopPlatform(FileService& files, ProgramService& programs, double factor);

    // What a FormView needs, which shows a form.
    DesktopContext Desktop;
    kvt::Services Services;

private:
    DesktopFocus focus_;
    DesktopSystem system_;
    DesktopKeyboard keyboard_;
    DesktopDialogs dialogs_;
    DesktopClipboard clipboard_;
    DesktopScreen screen_;
    DesktopPort port_;
    DesktopPrinter printer_;
};

}  // namespace kvt
