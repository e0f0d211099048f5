#pragma once

namespace kvt {

class Workbench;

// Puts the transfer into the main window: menus, buttons, settings page, receive view.
void WireTransfer(Workbench& bench);
// Places its controls in a window of this size, in twips, and shows the button that stops a transmission.
void PlaceTransfer(Workbench& bench, int width, int height);
// The part of the window's pulse that follows the state of the communication.
void RefreshTransferMenus(Workbench& bench);

}  // namespace kvt
