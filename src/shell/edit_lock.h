#pragma once

#include "draw/draw_state.h"
#include "program/program_store.h"
#include "shell/window_modes.h"
#include "transfer/port_control.h"

namespace kvt {

// What keeps the program as it is.
class EditLock {
public:
    struct Parts {
        const ProgramStore& Store;
        const TransferControls& Transfer;
        const PortControl& Port;
        const WindowModes& Modes;
        const DrawState& Drawing;
    };
    explicit EditLock(const Parts& parts) : parts_(parts) {}

    // While the program is being sent, to the last character of one that is stopped, and while the receive view lies
    // over it.
    bool ByTransfer() const { return parts_.Port.IsSending || parts_.Transfer.frRXcode.Visible; }
    // A line cannot be opened: a transfer, a document or a run in steps has the window.
    bool ForLines() const { return ByTransfer() || !parts_.Modes.ControlsOn() || parts_.Store.EditorRunMode; }
    // The program cannot be exchanged: not under a walk of the drawing either.
    bool ForProgram() const { return ForLines() || parts_.Store.TransmitActive || parts_.Drawing.Walking(); }

private:
    Parts parts_;
};

}  // namespace kvt
