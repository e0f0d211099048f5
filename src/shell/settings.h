#pragma once

#include <functional>
#include <string>

#include "editor/feed_presets.h"
#include "files/settings_file.h"
#include "shell/built_in_values.h"
#include "shell/language_menu.h"
#include "shell/last_file.h"
#include "shell/machine_display.h"
#include "shell/user_data.h"

namespace kvt {

// What outlives a run of the main window. The controls are the settings; this brings them into the file and back.
class EditorSettings {
public:
    struct Parts {
        Form& Window;
        ProgramStore& Store;
        MachineControls& Machine;
        BuiltInValues& BuiltIn;
        FeedPresets& Feeds;
        MachineDisplay& Display;
        LanguageMenu& Languages;
        LastFile& Last;
        UserData& Data;
        FileService& Files;
    };
    explicit EditorSettings(const Parts& parts);

    // The keys of the file. A room that is in charge of a value binds its key here.
    SettingsFile Keys;

    // Whether the program is ending.
    std::function<bool()> Ending;

    // The keys of the file are being applied: a machine chosen by them clears nothing.
    bool Busy = false;

    // Reads the file, or takes the built-in values where there is none; then the language module and the last
    // file, or that of the command line. Shows the window.
    void LoadSettings();
    // Writes the file. What cannot be written is told.
    void SaveSettings();
    // Puts the reset copies of both files in their place and reads them. Language and program stay, and no file is
    // loaded.
    void Reset();

private:
    void BindKeys();
    void ApplyBuiltInValues();
    void ApplyFile();
    void ChooseMachine(const std::string& machine);
    void ChooseFile(const std::string& last);
    std::string InFolder(const char* name) const;

    Parts parts_;
    bool loaded_ = false;
    bool resetting_ = false;
};

}  // namespace kvt
