#pragma once

namespace kvt {

class Workbench;

inline constexpr int SmallestHeight = 8720;
inline constexpr int SmallestWidth = 11800;

// Places every control of the main window by numbers, in twips: list on the left, code lists on the right, the
// entry row below. Also keeps the window from being too small, sets the tool tips of path and file name from
// each other, shows the mode colours and hides the entry help pictures.
void PlaceMainWindow(Workbench& bench);

}  // namespace kvt
