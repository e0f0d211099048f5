#include "basic/run_time_error.h"
#include "files/questions.h"
#include "shell/workbench.h"

// The start of the workbench, and its end.

namespace kvt {

namespace {

constexpr const char* formLoadName = "Form_Load";
constexpr const char* transmissionFile = "Transmit.txt";

}  // namespace

void Workbench::FindFolders() {
    data_.Folders = FoldersBelow(Platform.System.LocalDataFolder());
    const Folders& folders = data_.Folders;
    Log.DataFolder = folders.DataFolder;
    Import.PreProcessorFolder = folders.PreProcessorFolder;
    Received.SettingsFolder = folders.SettingsFolder;
    Transmit.SettingsFolder = folders.SettingsFolder;
    Languages.Folders = {folders.LanguageFolder};
    for (const std::string& folder : ProgramFolders(Help.StartFolder, "languages"))
        Languages.Folders.push_back(folder);
}

void Workbench::Form_Load(std::string_view commandLine) {
    FileService& files = Platform.Files;
    frmMain.Visible = false;
    FindFolders();
    const Folders& folders = data_.Folders;
    const bool foldersMade = MakeFolders(folders, files, formLoadName);
    // A place to put modules into; without it there are those that the program brings.
    if (foldersMade) Attempt(formLoadName, [&] { files.MakeFolder(folders.LanguageFolder); });
    // A crash may have left it.
    const std::string transmission = folders.SettingsFolder + transmissionFile;
    if (files.Exists(transmission)) Attempt(formLoadName, [&] { files.Delete(transmission); });
    if (!FindPrinter()) return;
    lastFile_.CommandLine = commandLine;
    settings_.LoadSettings();
    if (ended_) return;
    samples_.Fill(Help.StartFolder);
    positions_.ControlsPositioning();
    size_.FitSmallScreen();
    Form_Activate();
    Port.StartPort();
    recovery_.Restore();
    // Without a program the open line awaits the first code; menus and buttons are enabled as after a tick.
    if (Store.lvCncProgram.Count() == 0) clearing_.mnuNew_Click();
    History.Start();
    tmr1sec_Timer();
    Handled();
    RefreshTitle();
    Layout.FocusCode();
    lastFile_.TellMissing();
    // Told now, while the user can still do something about it.
    const bool writable = files.CanWrite(folders.DataFolder) && files.CanWrite(folders.SettingsFolder);
    if (!foldersMade || !writable) data_.TellNotWritable();
}

bool Workbench::FindPrinter() {
    try {
        paper_.FillFonts();
    } catch (const RunTimeError& error) {
        if (error.Number != fault::PrinterError) return TellError(error, formLoadName), true;
        EndWithoutPrinter();
        return false;
    }
    return true;
}

void Workbench::EndWithoutPrinter() {
    Platform.Dialogs.ShowMessage(Notice(Language.ErrorTexts(text::NoPrinter)));
    mnuExit_Click();
}

void Workbench::KeepSettings() {
    if (ended_) return;
    settings_.SaveSettings();
    if (Draw.Controls.frmDraw.Visible) drawSettings_.SaveSettings();
    // What was saved or typed since the last tick.
    if (recovery_.tmrRecovery.Enabled) Run(recovery_.tmrRecovery.OnTimer);
}

void Workbench::mnuExit_Click() {
    if (ended_) return;
    ended_ = true;
    bool dropped = false;
    // There is no way back from this question.
    if (Store.HasUnsavedLines()) {
        dropped = !AskToSave(Platform.Dialogs, Language);
        if (!dropped) Writer.mnuSave_Click();
    }
    recovery_.End(dropped);
    Store.ProgramChanged = false;
    settings_.SaveSettings();
    Run(Calls.UnloadDraw);
    Interpreter.EndStepRun();
    Import.Abort();
    frmMain.Visible = false;
    Platform.System.EndProgram();
}

}  // namespace kvt
