#include "shell/main_window.h"

#include "basic/run_time_error.h"
#include "basic/text.h"
#include "files/questions.h"
#include "platform/keys.h"
#include "shell/draw_wiring.h"
#include "shell/layout.h"
#include "shell/transfer_wiring.h"
#include "shell/workbench.h"

namespace kvt {

namespace {

constexpr const char* formLoadName = "Form_Load";
constexpr const char* programName = "Kestrel Vise Toolkit";
// Those of the desktops, by the names of their programs.
constexpr const char* calculators[] = {"gnome-calculator",  "kcalc",         "mate-calc",
                                       "deepin-calculator", "qalculate-gtk", "qalculate-qt",
                                       "galculator",        "speedcrunch",   "xcalc"};
constexpr int smallScreenWidth = 12000;
constexpr int smallScreenHeight = 9000;

// The button of each index that this window has a command for.
namespace top_button {
constexpr int Open = 0, Save = 1, New = 2, Print = 3, Settings = 4, LatheAxes = 5, MillAxes = 6, Draw = 7,
              Transmit = 9;
}  // namespace top_button

}  // namespace

MainWindow::MainWindow(Workbench& bench) : bench_(bench) {
    WireMenus();
    WireOptions();
    WireKeys();
    Form& form = bench_.frmMain;
    form.OnActivate = [this] { Form_Activate(); };
    form.OnResize = [this] { Form_Resize(); };
    form.OnQueryUnload = [this] { mnuExit_Click(); };
    form.OnDropFile = [this](const std::string& path) { OpenFile(path); };
    bench_.Main.tmr1sec.OnTimer = [this] { tmr1sec_Timer(); };
}

void MainWindow::WireMenus() {
    MainControls& main = bench_.Main;
    main.mnuOpen.OnClick = [this] { OpenFile(""); };
    main.mnuNew.OnClick = [this] { mnuNew_Click(); };
    main.mnuSave.OnClick = [this] { bench_.Writer.mnuSave_Click(); };
    main.mnuSaveAs.OnClick = [this] { bench_.Writer.mnuSaveAs_Click(); };
    main.mnuSaveClipboard.OnClick = [this] { bench_.Writer.mnuSaveClipboard_Click(); };
    main.mnuLoadClipboard.OnClick = [this] { Run(bench_.Calls.LoadClipboardModule); };
    main.mnuFind.OnClick = [this] { bench_.Find.mnuFind_Click(); };
    bench_.Conversions.mnuCalculator.OnClick = [this] { mnuCalculator_Click(); };
    main.mnuPrint.OnClick = [this] { bench_.Draw.AfterWalk([this] { bench_.Print.mnuPrint_Click(); }); };
    main.mnuPrinter.OnClick = [this] { ShowSettings(settings_page::Printer); };
    bench_.Paper.cmdPrinterDialog.OnClick = [this] { bench_.Print.cmdPrinterDialog_Click(); };
    main.mnuExit.OnClick = [this] { mnuExit_Click(); };
    main.mnuGeneral.OnClick = [this] { ShowSettings(settings_page::General); };
    main.mnuInfo.OnClick = [this] { ShowSettings(settings_page::Info); };
    main.mnuMachine.OnClick = [this] { ShowSettings(settings_page::Machine); };
    main.RCmnuInsert.OnClick = [this] { bench_.Lines.LineInsert(); };
    main.RCmnuDelete.OnClick = [this] { bench_.Lines.LineDelete(); };
    // Beside the list: the line that they work on is to be seen.
    main.cmdInsert.OnClick = [this] {
        bench_.Draw.Editor.RestoreScroll();
        bench_.Lines.LineInsert();
    };
    main.cmdDelete.OnClick = [this] {
        bench_.Draw.Editor.RestoreScroll();
        bench_.Lines.LineDelete();
    };
    for (const auto& button : main.cmdTopButtons) {
        const int index = button->Index();
        button->OnClick = [this, index] { cmdTopButtons_Click(index); };
    }
    bench_.Store.lvCncProgram.OnRightClick = [this] {
        bench_.Codes.lvCncProgram_Click();
        bench_.Platform.System.ShowPopupMenu(bench_.Main.mnuRightClick);
    };
    // The path and the file's name stand in one place; a click changes between them.
    Label& path = bench_.File.lblPath;
    Label& name = bench_.File.lblFileName;
    path.OnClick = [&path, &name] {
        name.Caption = ExtractFileName(path.Caption);
        path.Visible = false;
        name.Visible = true;
    };
    name.OnClick = [&path, &name] {
        name.Visible = false;
        path.Visible = true;
    };
}

void MainWindow::WireOptions() {
    MachineControls& machine = bench_.Machine;
    machine.optSettingsMK2.OnClick = [this] { ChooseMachine("MK2"); };
    machine.optSettingsMK4.OnClick = [this] { ChooseMachine("MK4"); };
    machine.optSettingsF1CNC.OnClick = [this] { ChooseMachine("F1"); };
    machine.optSettingsMm.OnClick = [this] { ChooseUnits("Metric"); };
    machine.optSettingsInch.OnClick = [this] { ChooseUnits("Imperial"); };
    machine.optSettingsHmm.OnClick = [this] { ChooseUnits("Metric", true); };
    machine.optSettingsHinch.OnClick = [this] { ChooseUnits("Imperial", true); };
    machine.optSettingsVmm.OnClick = [this] { ChooseUnits("Metric", false); };
    machine.optSettingsVinch.OnClick = [this] { ChooseUnits("Imperial", false); };
    bench_.Main.lblSettingsIncrColor.OnClick = [this] { ChooseColor(bench_.Store.IncrColor); };
    bench_.Main.lblSettingsAbsColor.OnClick = [this] { ChooseColor(bench_.Store.AbsColor); };
    bench_.View.chkViewFileNotes.OnClick = [this] { PlaceMainWindow(bench_); };
}

void MainWindow::WireKeys() {
    bench_.File.txtFileNotes.OnKeyPress = [this](int& character) { txtFileNotes_KeyPress(character); };
    bench_.frmMain.OnKeyDown = [this](int pressed, int held) {
        bench_.Draw.Editor.RestoreScroll();
        if (bench_.Help.TakeKey(pressed, held) || pressed != key::Escape) return;
        if (bench_.Transfer.frRXcode.Visible) bench_.Received.cmdReceiveExit_Click();
        bench_.Main.tabSettings.Visible = false;
        if (bench_.Entry.cmdReturn.Visible) bench_.cmdReturn_Click();
        bench_.Platform.Focus.SetFocus(bench_.Store.lvCncProgram);
    };
}

void MainWindow::Form_Load(std::string_view commandLine) {
    Services& platform = bench_.Platform;
    // 1.
    bench_.frmMain.Visible = false;
    Folders = FoldersBelow(platform.System.LocalDataFolder());
    bench_.Log.DataFolder = Folders.DataFolder;
    bench_.Import.PreProcessorFolder = Folders.PreProcessorFolder;
    bench_.Received.SettingsFolder = Folders.SettingsFolder;
    bench_.Transmit.SettingsFolder = Folders.SettingsFolder;
    const bool foldersMade = MakeFolders(Folders, platform.Files, formLoadName);
    // 2. What a crash left.
    const std::string transmission = Folders.SettingsFolder + "Transmit.txt";
    if (platform.Files.Exists(transmission))
        Attempt(formLoadName, [&] { platform.Files.Delete(transmission); });
    // 3.
    if (!FindPrinter()) return;
    // 5.
    bench_.Settings.CommandLine = commandLine;
    bench_.Settings.LoadSettings();
    if (ended_) return;
    // 6., 7., 8.
    PlaceMainWindow(bench_);
    FitSmallScreen();
    Form_Activate();
    // 9.
    bench_.Port.StartPort();
    bench_.Kept.Restore();
    // Without a program the open line awaits the first code; menus and buttons stand as after a tick.
    if (bench_.Store.lvCncProgram.Count() == 0) mnuNew_Click();
    tmr1sec_Timer();
    RefreshTitle();
    // 10.
    if (bench_.Entry.txtGMcode.ReallyVisible()) platform.Focus.SetFocus(bench_.Entry.txtGMcode);
    bench_.Settings.TellMissingFile();
    // Told now, while the user can still do something about it.
    const bool kept =
        platform.Files.CanWrite(Folders.DataFolder) && platform.Files.CanWrite(Folders.SettingsFolder);
    if (!foldersMade || !kept) bench_.TellUnkept();
}

void MainWindow::EndWithoutPrinter() {
    bench_.Platform.Dialogs.ShowMessage(Notice(bench_.Language.ErrorTexts(text::NoPrinter)));
    mnuExit_Click();
}

bool MainWindow::FindPrinter() {
    try {
        bench_.Paper.FillFonts();
    } catch (const RunTimeError& error) {
        if (error.Number != fault::PrinterError) return TellError(error, formLoadName), true;
        EndWithoutPrinter();
        return false;
    }
    return true;
}

void MainWindow::FitSmallScreen() {
    ScreenService& screen = bench_.Platform.Screen;
    Form& form = bench_.frmMain;
    const int workArea = screen.WorkAreaHeight();
    if (workArea < SmallestHeight) {
        bench_.Platform.Dialogs.ShowMessage(Notice(bench_.Language.MessageTexts(text::BlockedByTaskbar)));
        if (form.State.Get() == WindowState::Normal) {
            form.Height = SmallestHeight;
            form.Width = SmallestWidth;
        }
    } else if (screen.Width() <= smallScreenWidth && screen.Height() <= smallScreenHeight) {
        form.State = WindowState::Maximised;
    }
}

void MainWindow::Form_Activate() {
    bench_.Draw.Listing.Hide();
    bench_.Draw.Editor.RestoreSelection();
    bench_.Entry.RememberFeeds();
    bench_.File.lblFileName.Left = 60;
    MainControls& main = bench_.Main;
    for (Control* document : std::initializer_list<Control*>{
             &main.rtfHelp, &main.rtfGcodeHelpMK2, &main.rtfGcodeHelpMK4, &main.rtfAbout, &main.lstAbout}) {
        document->Visible = false;
    }
    bench_.View.MakeLinePropertiesColumns();
}

void MainWindow::Form_Resize() {
    Form& form = bench_.frmMain;
    // 1.
    if (form.State.Get() == WindowState::Maximised &&
        bench_.Platform.Screen.WorkAreaHeight() <= SmallestHeight) {
        bench_.Platform.Dialogs.ShowMessage(Notice(bench_.Language.MessageTexts(text::DragTaskbar)));
        form.State = WindowState::Normal;
    }
    // 2., 3. A maximised window has what the screen gives.
    const bool tooSmall = form.Height < SmallestHeight || form.Width < SmallestWidth;
    if (tooSmall && form.State.Get() == WindowState::Normal) return;
    PlaceMainWindow(bench_);
}

void MainWindow::tmr1sec_Timer() {
    if (bench_.Main.tabSettings.Visible) ShowPaths();
    if (!bench_.ControlsOn) return;
    MainControls& main = bench_.Main;
    ProgramStore& store = bench_.Store;
    const bool changed = store.Unsaved();
    // 1.
    main.mnuSaveAs.Enabled = true;
    main.cmdTopButtons[top_button::Save]->Enabled = changed;
    main.mnuSave.Enabled = changed;
    // 2.
    RefreshTransferMenus(bench_);
    // 3.
    if (store.LineCount() == 0) {
        for (const int index :
             {top_button::Save, top_button::New, top_button::Print, top_button::Draw, top_button::Transmit}) {
            main.cmdTopButtons[static_cast<std::size_t>(index)]->Enabled = false;
        }
        for (Control* control : std::initializer_list<Control*>{
                 &main.mnuSave, &main.mnuSaveAs, &main.mnuNew, &main.mnuPrint, &main.RCmnuDelete,
                 &main.RCmnuInsert, &main.cmdDelete, &bench_.Results.cmdRun}) {
            control->Enabled = false;
        }
    } else {
        for (const int index : {top_button::New, top_button::Print, top_button::Draw}) {
            main.cmdTopButtons[static_cast<std::size_t>(index)]->Enabled = true;
        }
        for (Control* control : std::initializer_list<Control*>{
                 &main.mnuNew, &main.mnuPrint, &main.RCmnuDelete, &main.RCmnuInsert, &main.cmdDelete,
                 &main.cmdInsert, &bench_.Results.cmdRun}) {
            control->Enabled = true;
        }
    }
    // 4.
    RefreshDrawCommands(bench_);
    // 5.
    Form& form = bench_.frmMain;
    if (form.State.Get() == WindowState::Normal) {
        if (form.Height < SmallestHeight) {
            form.Height = SmallestHeight;
            PlaceMainWindow(bench_);
        }
        if (form.Width < SmallestWidth) {
            form.Width = SmallestWidth;
            PlaceMainWindow(bench_);
        }
    }
    RefreshTitle();
}

void MainWindow::RefreshTitle() {
    std::string title = programName;
    const std::string_view name = ExtractFileName(bench_.File.lblPath.Caption);
    if (!name.empty()) title += " - " + std::string(name);
    if (bench_.Store.Unsaved()) title += " *";
    bench_.frmMain.Caption = title;
}

void MainWindow::mnuCalculator_Click() {
    ProgramService& programs = bench_.Platform.Programs;
    for (const char* name : calculators) {
        bool launched = false;
        Attempt("mnuCalculator_Click", [&] { launched = programs.Launch(name); });
        if (launched) return;
    }
    bench_.Platform.Dialogs.ShowMessage(Notice(bench_.Language.MessageTexts(text::NoCalculator)));
}

void MainWindow::mnuNew_Click() {
    bench_.ClearProgram_Click();
    bench_.Store.AddBlankLine(true);
    RefreshTitle();
}

void MainWindow::mnuExit_Click() {
    if (ended_) return;
    ended_ = true;
    ProgramStore& store = bench_.Store;
    bool dropped = false;
    // 1. There is no way back from this question.
    if (store.LineCount() > 0 && store.Unsaved()) {
        dropped = !AskToSave(bench_.Platform.Dialogs, bench_.Language);
        if (!dropped) bench_.Writer.mnuSave_Click();
    }
    bench_.Kept.End(dropped);
    // 2., 3.
    store.ProgramChanged = false;
    bench_.Settings.SaveSettings();
    Run(bench_.Calls.UnloadDraw);
    bench_.Interpreter.EndStepRun();
    bench_.Import.Abort();
    bench_.frmMain.Visible = false;
    bench_.Platform.System.EndProgram();
}

void MainWindow::OpenFile(std::string name) {
    bench_.Reader.LoadFile(name);
    RefreshTitle();
}

void MainWindow::cmdTopButtons_Click(int index) {
    switch (index) {
        case top_button::Open: return OpenFile("");
        case top_button::Save: return bench_.Writer.mnuSave_Click();
        case top_button::New: return mnuNew_Click();
        case top_button::Print:
            return bench_.Draw.AfterWalk([this] {
                bench_.Print.DirectPrint = true;
                bench_.Print.mnuPrint_Click();
                bench_.Print.DirectPrint = false;
            });
        case top_button::Settings: return ShowSettings(settings_page::General);
        case top_button::LatheAxes: return ShowAxes(bench_.Entry.picZXaxes);
        case top_button::MillAxes: return ShowAxes(bench_.Entry.picXYaxes);
        default: return;
    }
}

void MainWindow::ShowAxes(PictureBox& picture) {
    const bool leaves = picture.Visible;
    bench_.cmdReturn_Click();
    bench_.Main.tabSettings.Visible = false;
    if (leaves) return;
    for (Control* control : std::initializer_list<Control*>{&picture, &bench_.Entry.cmdReturn}) {
        control->Visible = true;
        control->Enabled = true;
    }
}

void MainWindow::ShowSettings(int page) {
    TabStrip& settings = bench_.Main.tabSettings;
    const bool leaves = settings.Visible && settings.Value == page;
    bench_.cmdReturn_Click();
    ShowPaths();
    settings.Value = page;
    settings.Visible = !leaves;
    if (leaves) bench_.Platform.Focus.SetFocus(bench_.Store.lvCncProgram);
}

void MainWindow::ShowPaths() {
    bench_.Info.Show(bench_.File.lblPath.Caption.Get(), bench_.Modules.StartFolder, Folders.SettingsFolder);
}

void MainWindow::ChooseMachine(const char* machine) {
    if (!bench_.Settings.Busy) mnuNew_Click();
    // Still unsaved: the user kept the program, and the machine stays.
    if (!bench_.Store.Unsaved()) bench_.Store.Machine = machine;
    bench_.ShowCodeLists();
    bench_.RefreshMachine();
}

void MainWindow::ChooseUnits(const char* units) {
    bench_.Machine.SetUnits(units);
    bench_.Interpreter.Interpreter();
}

void MainWindow::ChooseUnits(const char* units, bool horizontal) {
    bench_.Store.Horizontal = horizontal;
    ChooseUnits(units);
}

void MainWindow::ChooseColor(Color& color) {
    if (!bench_.Platform.Dialogs.ShowColor(color)) return;
    bench_.Main.lblSettingsIncrColor.ForeColor = bench_.Store.IncrColor;
    bench_.Main.lblSettingsAbsColor.ForeColor = bench_.Store.AbsColor;
    bench_.Interpreter.Interpreter();
}

void MainWindow::txtFileNotes_KeyPress(int& character) {
    bench_.Store.ProgramChanged = true;
    TextBox& notes = bench_.File.txtFileNotes;
    if (character == '%') {
        // The character is a mark in the file format.
        notes.ToolTip = bench_.Language.ErrorTexts(text::NoPercent);
        character = 0;
        return;
    }
    const bool passes = character == key::CtrlC || character == key::Backspace || character == key::Enter ||
                        character == key::CtrlV || character == key::CtrlX ||
                        (character >= 32 && character <= 127);
    if (!passes) character = 0;
}

}  // namespace kvt
