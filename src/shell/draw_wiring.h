#pragma once

namespace kvt {

class Workbench;

// The main window's way to the drawing: menu entry, button, and the calls of the lower rooms that repaint it.
void WireDrawing(Workbench& bench);

// What the pulse of every second does for them.
void RefreshDrawCommands(Workbench& bench);

}  // namespace kvt
