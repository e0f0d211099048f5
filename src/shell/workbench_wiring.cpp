#include "basic/run_time_error.h"
#include "basic/text.h"
#include "platform/clicks.h"
#include "platform/keys.h"
#include "program/edit_step.h"
#include "shell/workbench.h"

// What menus, buttons, options and keys of the main window lead to.

namespace kvt {

namespace {

constexpr const char* programName = "Kestrel Vise Toolkit";
// Those of the desktops, by the names of their programs.
constexpr const char* calculators[] = {"gnome-calculator",  "kcalc",         "mate-calc",
                                       "deepin-calculator", "qalculate-gtk", "qalculate-qt",
                                       "galculator",        "speedcrunch",   "xcalc"};

}  // namespace

void Workbench::WireWindow() {
    frmMain.OnActivate = [this] { Form_Activate(); };
    frmMain.OnResize = [this] { size_.Form_Resize(); };
    frmMain.OnQueryUnload = [this] { mnuExit_Click(); };
    frmMain.OnDropFile = [this](const std::string& path) { OpenFile(path); };
    Main.tmr1sec.OnTimer = [this] { tmr1sec_Timer(); };
    ListView& list = Store.lvCncProgram;
    list.OnRightClick = [this] {
        Codes.lvCncProgram_Click();
        Platform.System.ShowPopupMenu(Main.mnuRightClick);
    };
    // Before a press on a row selects it: also on the row that the drawing has selected.
    list.OnGotFocus = [this] { Draw.Editor.RestoreSelection(); };
    // The path and the file's name share one place; a click changes between them.
    File.lblPath.OnClick = [this] {
        File.lblFileName.Caption = ExtractFileName(File.lblPath.Caption);
        File.lblFileName.Visible = true;
        const bool hadKeys = Platform.Focus.Focused() == &File.lblPath;
        File.lblPath.Visible = false;
        if (hadKeys) Platform.Focus.SetFocus(File.lblFileName);
    };
    File.lblFileName.OnClick = [this] {
        File.lblPath.Visible = true;
        const bool hadKeys = Platform.Focus.Focused() == &File.lblFileName;
        File.lblFileName.Visible = false;
        if (hadKeys) Platform.Focus.SetFocus(File.lblPath);
    };
}

void Workbench::WireMenus() {
    Main.mnuOpen.OnClick = [this] { OpenFile(""); };
    Main.mnuNew.OnClick = [this] { clearing_.mnuNew_Click(); };
    Main.mnuSave.OnClick = [this] { Writer.mnuSave_Click(); };
    Main.mnuSaveAs.OnClick = [this] { Writer.mnuSaveAs_Click(); };
    Main.mnuSaveClipboard.OnClick = [this] { Writer.mnuSaveClipboard_Click(); };
    Main.mnuLoadClipboard.OnClick = [this] { Run(Calls.LoadClipboardModule); };
    Main.mnuUndo.OnClick = [this] { undoing_.mnuUndo_Click(); };
    Main.mnuRedo.OnClick = [this] { undoing_.mnuRedo_Click(); };
    Main.mnuFind.OnClick = [this] { Find.mnuFind_Click(); };
    Main.mnuDraw.OnClick = [this] { mnuDraw_Click(); };
    Main.mnuGoToError.OnClick = [this] { findings_.GoToError(); };
    Main.mnuPrint.OnClick = [this] { PrintAfterWalk(false); };
    Main.mnuPrintPreview.OnClick = [this] { Draw.AfterWalk([this] { print_.mnuPrintPreview_Click(); }); };
    Main.mnuExit.OnClick = [this] { mnuExit_Click(); };
    Main.mnuGeneral.OnClick = [this] { overlays_.ShowSettings(settings_page::General); };
    Main.mnuInfo.OnClick = [this] { overlays_.ShowSettings(settings_page::Info); };
    Main.mnuMachine.OnClick = [this] { overlays_.ShowSettings(settings_page::Machine); };
    Main.mnuPrinter.OnClick = [this] { overlays_.ShowSettings(settings_page::Printer); };
    Transfer.mnuCOM.OnClick = [this] { overlays_.ShowSettings(settings_page::COM); };
    conversions_.mnuCalculator.OnClick = [this] { mnuCalculator_Click(); };
    Main.RCmnuInsert.OnClick = [this] { Lines.LineInsert(); };
    Main.RCmnuDelete.OnClick = [this] { Lines.LineDelete(); };
}

void Workbench::WireButtons() {
    const auto wire = [this](TopButton button, std::function<void()> what) {
        Main.Button(button).OnClick = std::move(what);
    };
    wire(TopButton::Open, [this] { OpenFile(""); });
    wire(TopButton::Save, [this] { Writer.mnuSave_Click(); });
    wire(TopButton::New, [this] { clearing_.mnuNew_Click(); });
    wire(TopButton::Print, [this] { PrintAfterWalk(true); });
    wire(TopButton::Settings, [this] { overlays_.ShowSettings(settings_page::General); });
    wire(TopButton::LatheAxes, [this] { overlays_.ShowAxes(Entry.picZXaxes); });
    wire(TopButton::MillAxes, [this] { overlays_.ShowAxes(Entry.picXYaxes); });
    wire(TopButton::Draw, [this] { mnuDraw_Click(); });
    wire(TopButton::Receive, [this] { Received.mnuRX_Click(); });
    wire(TopButton::Transmit, [this] { Transmit.mnuTX_Click(); });
    // Beside the list: the line that they work on is to be seen.
    Main.cmdInsert.OnClick = [this] {
        Draw.Editor.RestoreScroll();
        Lines.LineInsert();
    };
    Main.cmdDelete.OnClick = [this] {
        Draw.Editor.RestoreScroll();
        Lines.LineDelete();
    };
    Entry.cmdReturn.OnClick = [this] {
        const bool reads = Help.Shown() != nullptr;
        Run(Calls.cmdReturn_Click);
        if (reads && Help.FocusBack()) return;
        // The button has gone; the next key is a code.
        if (Platform.Focus.Focused() == &Entry.cmdReturn) Platform.Focus.SetFocus(Entry.txtGMcode);
    };
}

void Workbench::WireOptions() {
    for (const MachineFacts& one : Machines()) {
        Machine.OptionOf(one.Model).OnClick = [this, &one] { ChooseMachine(one.Model); };
    }
    Machine.optSettingsMm.OnClick = [this] { ChooseUnits(Units::Metric); };
    Machine.optSettingsInch.OnClick = [this] { ChooseUnits(Units::Imperial); };
    Machine.optSettingsHmm.OnClick = [this] { ChooseUnits(Units::Metric, true); };
    Machine.optSettingsHinch.OnClick = [this] { ChooseUnits(Units::Imperial, true); };
    Machine.optSettingsVmm.OnClick = [this] { ChooseUnits(Units::Metric, false); };
    Machine.optSettingsVinch.OnClick = [this] { ChooseUnits(Units::Imperial, false); };
    Main.lblSettingsIncrColor.OnClick = [this] { ChooseColor(Store.IncrColor); };
    Main.lblSettingsAbsColor.OnClick = [this] { ChooseColor(Store.AbsColor); };
    View.chkViewFileNotes.OnClick = [this] { positions_.ControlsPositioning(); };
    for (CheckBox* box : {&View.chkViewToolPos, &View.chkViewLineProperties, &View.chkViewMachineTime}) {
        box->OnClick = [this, showColumns = std::move(box->OnClick)] {
            Run(showColumns);
            beside_.FollowColumns();
        };
    }
    paper_.cmdPrinterDialog.OnClick = [this] { print_.cmdPrinterDialog_Click(); };
}

void Workbench::WireReset() {
    Main.cmdResetAll.OnClick = [this] { reset_.mnuReset_Click(); };
    Main.mnuReset.OnClick = [this] { reset_.mnuReset_Click(); };
}

void Workbench::WireKeys() {
    File.txtFileNotes.OnLostFocus = [this] { History.TakeNotes(); };
    File.txtFileNotes.OnKeyPress = [this](int& character) { txtFileNotes_KeyPress(character); };
    frmMain.OnKeyDown = [this](int pressed, int held) {
        Draw.Editor.RestoreScroll();
        if (undoing_.HandleKey(pressed, held) || Help.HandleKey(pressed, held) || pressed != key::Escape)
            return;
        if (Transfer.frRXcode.Visible) Received.cmdReceiveExit_Click();
        Main.tabSettings.Visible = false;
        const bool reads = Help.Shown() != nullptr;
        if (Entry.cmdReturn.Visible) Run(Calls.cmdReturn_Click);
        if (!reads || !Help.FocusBack()) Platform.Focus.SetFocus(Store.lvCncProgram);
    };
}

void Workbench::WireDrawing() {
    // From below the drawing is repainted where it is, not brought up: another program has come into the editor, and
    // that of a drawing under way has gone.
    Calls.mnuDraw_Click = [this] {
        if (Draw.State.Walking()) Draw.State.StopRequested = true;
        if (Draw.Controls.frmDraw.Visible) Draw.State.FitNext = true;
        Draw.ShowLater();
    };
    Calls.RedrawAfterEdit = [this] {
        if (Draw.Controls.mnuAutoRedraw.Checked) Draw.ShowLater();
    };
    Calls.UnloadDraw = [this] {
        if (Draw.Controls.frmDraw.Visible) Draw.Form_QueryUnload();
    };
    Draw.ShowEditor = [this] { ShowEditor(); };
    Draw.Strokes.OpenRow = [this](int row) { OpenRow(row); };
    Draw.RestoreFocus = [this] { Layout.FocusCode(); };
}

void Workbench::WireTransfer() {
    for (const TopButton button : {TopButton::Receive, TopButton::Transmit})
        Port.EnabledWithCom.push_back(&Main.Button(button));
    Results.cmdStop.OnClick = [this] {
        Transmit.Stop();
        Interpreter.cmdStop_Click();
    };
    // The button has gone with the view; the next key is a code.
    for (CommandButton* button : {&Transfer.cmdReceiveImport, &Transfer.cmdReceiveExit}) {
        button->OnClick = [this, leave = std::move(button->OnClick)] {
            leave();
            const Control* const focused = Platform.Focus.Focused();
            if (!Transfer.frRXcode.Visible && focused && !focused->EffectivelyVisible()) Layout.FocusCode();
        };
    }
    ListView& list = Store.lvCncProgram;
    UnlessHeld(list.OnClick);
    UnlessHeld(list.OnRightClick);
    UnlessHeld(list.OnKeyDown);
    UnlessHeld(list.OnKeyPress);
    UnlessHeld(frmMain.OnDropFile);
}

void Workbench::WireNotices() {
    Draw.Tell = [this](std::string_view what) { Run(Calls.Tell, what); };
    recent_.Open = [this](const std::string& path) { OpenFile(path); };
    greys_.BringUpToDate = [this] {
        if (Modes.ControlsOn()) states_.Refresh();
    };
    greys_.Wire();
}

template <class... Arguments>
void Workbench::UnlessHeld(std::function<void(Arguments...)>& handler) {
    handler = [this, before = std::move(handler)](Arguments... arguments) {
        if (before && !lock_.ByTransfer()) before(arguments...);
    };
}

void Workbench::Form_Activate() {
    Draw.Listing.Hide();
    Draw.Editor.RestoreSelection();
    Entry.RememberFeeds();
    // A document goes, and with it what it has frozen.
    if (Help.Shown()) Modes.cmdReturn_Click();
    View.MakeLinePropertiesColumns();
    // The user may have put a module into its folder meanwhile.
    Languages.Refresh();
}

void Workbench::tmr1sec_Timer() {
    if (Main.tabSettings.Visible) ShowPaths();
    if (!Modes.ControlsOn()) return;
    states_.Refresh();
    size_.KeepSmallest();
    RefreshTitle();
}

void Workbench::Handled() {
    if (ended_) return;
    undoing_.Refresh();
    // Of the code as it is being typed.
    Layout.UpdateFrameCaption();
    FollowOpenedRow(Entry, Store.lvCncProgram, Store.IsF1());
    target_.Refresh(Draw.Editor.UsersRow());
}

void Workbench::ShowTexts() {
    Display.ShowMachineName();
    Layout.RefreshTexts();
    Options.RenewComments();
    Form_Activate();
    Draw.Bar.ShowCaptions();
    if (Draw.Controls.frmDraw.Visible) Draw.PositionControls();
    Handled();
    Interpreter.Interpreter();
}

void Workbench::RefreshTitle() {
    std::string title = programName;
    const std::string_view name = ExtractFileName(File.lblPath.Caption);
    if (!name.empty()) title += " - " + std::string(name);
    if (Store.Unsaved()) title += " *";
    frmMain.Caption = title;
    Draw.Controls.frmDraw.Unsaved = Store.Unsaved();
}

void Workbench::OpenFile(std::string name) {
    Reader.LoadFile(name);
    RefreshTitle();
}

void Workbench::PrintAfterWalk(bool direct) {
    Draw.AfterWalk([this, direct] {
        print_.DirectPrint = direct;
        print_.mnuPrint_Click();
        print_.DirectPrint = false;
    });
}

void Workbench::ShowPaths() {
    info_.Show(File.lblPath.Caption.Get(), Help.StartFolder, data_.Folders.SettingsFolder);
}

void Workbench::ChooseMachine(MachineModel machine) {
    const EditStep step(Calls, {StepKind::Machine});
    if (!settings_.Busy) clearing_.mnuNew_Click();
    // Still unsaved: the user kept the program, and the machine stays.
    if (!Store.Unsaved()) Store.Machine = machine;
    Display.ShowCodeLists();
    Display.RefreshMachine();
}

void Workbench::ChooseUnits(Units units) {
    const EditStep step(Calls, {StepKind::Units});
    Machine.SetUnits(units);
    Interpreter.Interpreter();
}

void Workbench::ChooseUnits(Units units, bool horizontal) {
    const EditStep step(Calls, {StepKind::Units});
    Store.Horizontal = horizontal;
    ChooseUnits(units);
}

void Workbench::ChooseColor(Color& color) {
    if (!Platform.Dialogs.ShowColor(color)) return;
    positions_.ShowModeColors();
    Interpreter.Interpreter();
}

void Workbench::txtFileNotes_KeyPress(int& character) {
    Store.ProgramChanged = true;
    if (character == '%') {
        // The character is a mark in the file format.
        File.txtFileNotes.ToolTip = Language.ErrorTexts(text::NoPercent);
        character = 0;
        return;
    }
    const bool passes = character == key::CtrlC || character == key::Backspace || character == key::Enter ||
                        character == key::CtrlV || character == key::CtrlX ||
                        (character >= 32 && character <= 127);
    if (!passes) character = 0;
}

void Workbench::mnuCalculator_Click() {
    for (const char* name : calculators) {
        bool launched = false;
        Attempt("mnuCalculator_Click", [&] { launched = Platform.Programs.Launch(name); });
        if (launched) return;
    }
    Platform.Dialogs.ShowMessage(Notice(Language.MessageTexts(text::NoCalculator)));
}

// By hand: the window comes forward.
void Workbench::mnuDraw_Click() {
    Form& window = Draw.Controls.frmDraw;
    // A walk may take its time: the window comes forward before it.
    if (window.Visible && !Draw.State.Opening()) {
        window.BringToFront();
        Platform.Focus.SetFocus(Draw.Controls.pbxDrawField);
    }
    Draw.DrawForUser();
}

void Workbench::ShowEditor() {
    Draw.Editor.RestoreSelection();
    Draw.Editor.RestoreScroll();
    frmMain.Visible = true;
    // First, so that the field that had the keys last is not passed through on the way.
    Layout.FocusCode();
    frmMain.BringToFront();
}

void Workbench::OpenRow(int row) {
    ListView& list = Store.lvCncProgram;
    if (lock_.ForLines() || !list.EffectivelyVisible()) return;
    frmMain.BringToFront();
    if (!FocusByHand(list, Platform.Focus) || row > list.Count()) return;
    list.Select(row);
    list.EnsureVisible(row);
    list.Click();
}

}  // namespace kvt
