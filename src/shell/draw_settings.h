#pragma once

#include <string>

#include "draw/draw_window.h"
#include "files/settings_file.h"
#include "shell/beside.h"
#include "shell/user_data.h"

namespace kvt {

// What outlives a run of the draw window: the marks of its menus, its place, and that of the listing.
class DrawSettings {
public:
    DrawSettings(DrawWindow& draw, Beside& beside, UserData& data, Services& platform);

    SettingsFile Keys;

    // Reads the file up to the first line that fails; without a file the marks are the built-in ones
    // and the window stands in the middle.
    void LoadSettings();
    void SaveSettings();
    // Takes charge of the key of the main window's file that tells whether the draw window was shown.
    void BindShown(SettingsFile& editorKeys);

private:
    void BindMark(const char* key, Menu& entry);
    void PlaceDrawing(const WindowPlace& place, std::optional<WindowState> state);
    void PlaceListing(const std::string& value);

    DrawWindow& draw_;
    Beside& beside_;
    UserData& data_;
    Services& platform_;
};

}  // namespace kvt
