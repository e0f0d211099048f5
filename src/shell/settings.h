#pragma once

#include <string>
#include <string_view>

#include "files/settings_file.h"

namespace kvt {

class Workbench;

// What outlives a run of the main window, and the way back to the delivered state. The controls are the settings;
// this brings them into the file and back.
class EditorSettings {
public:
    explicit EditorSettings(Workbench& bench);

    // The keys of the file. A room that is in charge of a value binds its key here.
    SettingsFile Keys;
    // The text of the command line, which is looked at where the file names the last file.
    std::string CommandLine;

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
    // Tells that the command line names a file that is not there.
    void TellMissingFile();

private:
    void BindSettings();
    void BindView();
    void BindTransfer();
    void BindPrinter();
    void ChooseBuiltInFont();
    void TakeBuiltInValues();
    void ApplyFile();
    void LoadModule();
    void LoadLastFile();
    void ChooseMachine(const std::string& machine);
    // The file to open: that of the command line, else the one that is given.
    void ChooseFile(const std::string& last);
    // What stands between the outer double quotes of the command line, if it has any.
    std::string FileOfCommandLine() const;
    // The file for the next start.
    std::string LastFileUsed() const;
    void Place(const WindowPlace& place, std::optional<WindowState> state);
    void Centre();
    bool LastFileExists() const;
    std::string InFolder(const char* name) const;

    Workbench& bench_;
    std::string languageFile_;
    std::string lastFile_;
    bool loaded_ = false;
    bool resetting_ = false;
    // The command line names a file that is not there.
    bool missed_ = false;
};

}  // namespace kvt
