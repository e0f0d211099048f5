#pragma once

#include <string>

#include "files/settings_file.h"

namespace kvt {

class Workbench;

// What outlives a run of the draw window: the marks of its menus, its place, and that of the listing.
class DrawSettings {
public:
    explicit DrawSettings(Workbench& bench);

    SettingsFile Keys;

    // Reads the file up to the first line that fails; without a file the marks are the built-in ones
    // and the window stands in the middle.
    void LoadSettings();
    void SaveSettings();

private:
    void BindMarks();
    void PlaceDrawing(const WindowPlace& place, std::optional<WindowState> state);
    void PlaceListing(const std::string& value);

    Workbench& bench_;
};

}  // namespace kvt
