#pragma once

#include <string>
#include <string_view>

#include "editor/feed_presets.h"
#include "files/cnc_reader.h"
#include "files/settings_file.h"
#include "interpreter/interpreter.h"
#include "shell/last_file.h"
#include "shell/machine_display.h"
#include "shell/printer_page.h"
#include "shell/user_data.h"
#include "transfer/port_control.h"

namespace kvt {

// What outlives a run of the main window, and the way back to the delivered state. The controls are the settings;
// this brings them into the file and back.
class EditorSettings {
public:
    struct Parts {
        MainControls& Main;
        ProgramStore& Store;
        MachineControls& Machine;
        ViewColumns& View;
        PrinterPage& Paper;
        PortControl& Port;
        FeedPresets& Feeds;
        CncReader& Reader;
        ControlInterpreter& Interpreter;
        MachineDisplay& Display;
        Texts& Language;
        UserData& Data;
        LastFile& Last;
        Services& Platform;
        WorkbenchCalls& Calls;
    };
    explicit EditorSettings(const Parts& parts);

    // The keys of the file. A room that is in charge of a value binds its key here.
    SettingsFile Keys;

    // Tells that there is no printer, and ends the program; whether it is ending.
    std::function<void()> EndWithoutPrinter;
    std::function<bool()> Ending;
    // The language module of a name where such modules lie; empty where there is none.
    std::function<std::string(std::string_view)> FindModule;

    // The keys of the file are being applied: a machine chosen by them clears nothing.
    bool Busy = false;

    // Reads the file, or takes the built-in values where there is none; then the language module and the last
    // file, or that of the command line. Shows the window.
    void LoadSettings();
    // Writes the file. What cannot be written is told.
    void SaveSettings();
    // Back to the reset copies of both files, but for the language, and for the program in the editor with its
    // machine and units. No file is loaded.
    void mnuReset_Click();

private:
    void BindKeys();
    void ChooseBuiltInFont();
    void ApplyBuiltInValues();
    void ApplyFile();
    void LoadModule();
    void LoadLastFile();
    void ChooseMachine(const std::string& machine);
    // A reset leaves the program alone.
    void ChooseFile(const std::string& last);
    std::string InFolder(const char* name) const;

    Parts parts_;
    std::string languageFile_;
    bool loaded_ = false;
    bool resetting_ = false;
};

}  // namespace kvt
