#pragma once

#include <functional>

#include "shell/machine_display.h"
#include "shell/printer_page.h"
#include "transfer/port_control.h"

namespace kvt {

// What the main window begins with where there is no settings file.
class BuiltInValues {
public:
    struct Parts {
        Form& Window;
        ProgramStore& Store;
        PortControl& Port;
        PrinterPage& Paper;
        MachineDisplay& Display;
        ScreenService& Screen;
    };
    explicit BuiltInValues(const Parts& parts) : parts_(parts) {}

    // Tells that there is no printer, and ends the program.
    std::function<void()> EndWithoutPrinter;

    // Puts the values into effect. A machine without a printer ends the program.
    void Apply(const char* procedure);

private:
    Parts parts_;
};

}  // namespace kvt
