#include "shell/window_modes.h"

namespace kvt {

void WindowModes::ControlsEnable(ControlsMode mode) {
    controlsOn_ = mode == ControlsMode::Free;
    parts_.Table.EnableFrozen(controlsOn_);
    if (controlsOn_) parts_.Layout.RefreshFeedButtons();
    if (!parts_.Store.EditorRunMode) parts_.Main.frCmdEditor3.Enabled = controlsOn_;
    // A transmission can be stopped.
    if (parts_.Store.TransmitActive) parts_.Results.cmdStop.Enabled = true;
}

void WindowModes::cmdReturn_Click() {
    // What is being sent or received keeps the window frozen.
    const bool busy = parts_.Store.TransmitActive || parts_.Transfer.frRXcode.Visible;
    ControlsEnable(busy ? ControlsMode::Frozen : ControlsMode::Free);
    parts_.Table.HideOverlays();
    parts_.Help.HideSearch();
}

}  // namespace kvt
