#pragma once

#include "draw/draw_window.h"
#include "interpreter/interpreter_controls.h"
#include "shell/main_controls.h"
#include "transfer/port_control.h"

namespace kvt {

// Which menus and buttons can be used now.
class MenuStates {
public:
    struct Parts {
        MainControls& Main;
        const ProgramStore& Store;
        InterpreterControls& Results;
        TransferControls& Transfer;
        const PortControl& Port;
        const DrawState& Drawing;
    };
    explicit MenuStates(const Parts& parts) : parts_(parts) {}

    // Brings them in step with the program, the port and the drawing.
    void Refresh();

private:
    void RefreshFile(bool hasLines);
    void RefreshTransfer(bool hasLines);
    void RefreshDraw(bool hasLines);

    Parts parts_;
};

}  // namespace kvt
