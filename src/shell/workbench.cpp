#include "shell/workbench.h"

#include "files/questions.h"
#include "shell/draw_wiring.h"
#include "shell/layout.h"
#include "shell/transfer_wiring.h"

namespace kvt {

namespace {

constexpr int firstWidth = 13800;
constexpr int firstHeight = 8720;
constexpr int listHeight = firstHeight - 3370;

}  // namespace

Workbench::Workbench(Services& services)
    : Platform(services),
      Log(services),
      frmMain("frmMain"),
      Main(frmMain),
      Store(frmMain),
      Lists(frmMain),
      Machine(frmMain, Store),
      Results(frmMain),
      Entry(frmMain),
      File(frmMain),
      View(frmMain, Store, services.Screen),
      Interpreter(Store, Language, Lists, Results, View, Entry.txtComment, services, Calls),
      Options(Store, View, Lists, Interpreter, Calls),
      Layout(Entry, Store, Lists, Language, services.Focus),
      Calculated(Store, Language, services.Dialogs, services.Focus),
      Lines({Entry, Layout, Store, View, Interpreter, Calculated, Language, services, Calls}),
      Feeds(Entry, Store, Interpreter, services.Focus),
      Find(Store, services.Focus),
      Conversions(frmMain, Store, Machine, Entry),
      Codes({Entry, Layout, Store, Lists, View, Interpreter, services, Calls}),
      Keyboard({Entry, Layout, Codes, Calculated, Lines, Store, View, Language, services, Calls}),
      Writer({Store, File, Entry, Layout, Lines, Language, services, Calls}),
      Reader({Store, File, Entry, Layout, Machine, View, Options, Interpreter, Language, services, Calls,
              Writer}),
      Transfer(frmMain),
      Port({Transfer, Language, services}),
      Transmit(frmMain, {Store, Transfer, Port, Writer, Main.tmr1sec, Results.cmdStop, Results.cmdRun,
                         Language, services, Calls}),
      Received({Store,
                Transfer,
                Port,
                File,
                Reader,
                {&Main.frCmdEditor1, &Main.frCmdEditor2, &Main.frCmdEditor3},
                Language,
                services,
                Calls}),
      Draw({Store, Machine, Results, File, Language, services}),
      Paper(frmMain, services.Printer),
      Info(frmMain),
      Help(*this),
      Print({Store, File, Writer, Language, services, Calls}),
      Import({Store, File, Reader, Main.mnuImport, services, Language}),
      Window(*this),
      Modules(*this),
      Settings(*this),
      SettingsOfDrawing(*this),
      Kept(*this) {
    frmMain.SmallestWidth = SmallestWidth;
    frmMain.SmallestHeight = SmallestHeight;
    frmMain.Width = firstWidth;
    frmMain.Height = firstHeight;
    Store.lvCncProgram.Height = listHeight;
    PlaceInFrames();
    OrderTabs();
    FillCalls();
    WireTransfer(*this);
    RefreshMachine();
    View.MakeMachineTimeColumn();
    ShowCodeLists();
}

void Workbench::FillCalls() {
    Calls.cmdReturn_Click = [this] { cmdReturn_Click(); };
    Calls.ClearProgram_Click = [this] { ClearProgram_Click(); };
    Calls.KeepAside = [this] { return Kept.KeepAside(); };
    Calls.RefreshMachine = [this] { RefreshMachine(); };
    Calls.RefreshTitle = [this] { Window.RefreshTitle(); };
    Calls.ControlsPositioning = [this] { PlaceMainWindow(*this); };
    Calls.ControlsEnable = [this](int enable) { ControlsEnable(enable); };
    Calls.LoadClipboardModule = [this] { Received.LoadClipboardModule(); };
    Calls.LoadLanguageModule = [this](const std::string& file) { Modules.LoadLanguageModule(file); };
    Calls.HideSettings = [this] { Main.tabSettings.Visible = false; };
    Machine.OnUnits = [this] { Feeds.SetFeedLimits(); };
    Calls.FirstFieldFocus = [this](std::string_view initial) { Layout.FirstFieldFocus(initial); };
    Entry.cmdReturn.OnClick = [this] {
        cmdReturn_Click();
        // The button has gone; the next key is a code.
        if (Platform.Focus.Focused() == &Entry.cmdReturn) Platform.Focus.SetFocus(Entry.txtGMcode);
    };
    WireDrawing(*this);
}

void Workbench::PlaceInFrames() {
    const auto put = [](Frame& frame, std::initializer_list<Control*> inside) {
        for (Control* control : inside) control->Container = &frame;
    };
    put(Main.frControlPanel, {&File.lblPath, &File.lblFileName});
    put(Main.frSetReplace, {&Entry.txtFeedA, &Entry.txtFeedB, &Entry.cmdFeedA, &Entry.cmdFeedB});
    put(Main.frView, {&View.chkViewToolPos, &View.chkViewLineProperties, &View.chkViewMachineTime,
                      &View.chkViewGcode, &View.chkViewFileNotes});
    put(Main.frProgramProperties,
        {&Machine.lblPPUnits, &Results.lblPPLines, &Results.lblPPLinesExe, &Results.lblPPMachineTime});
    put(Main.frAxesProperties, {&Main.frXAxis, &Main.frYaxis, &Main.frZAxis});
    put(Main.frXAxis, {&Results.lblXAxisMin, &Results.lblXAxisMax, &Results.lblXAxisTravel});
    put(Main.frYaxis, {&Results.lblYAxisMin, &Results.lblYAxisMax, &Results.lblYAxisTravel});
    put(Main.frZAxis, {&Results.lblZAxisMin, &Results.lblZAxisMax, &Results.lblZAxisTravel});
    put(Main.frFileNotes, {&File.txtFileNotes});
    put(Main.frCmdEditor1, {&Main.cmdInsert, &Main.cmdDelete});
    put(Entry.frEntry, {&Main.lblComment});
    for (Menu* entry : {&Machine.mnuINCHtoMM, &Machine.mnuMMtoINCH, &Conversions.mnuCalculator,
                        &Conversions.mnuDelComments}) {
        entry->Container = &Main.mnuConvert;
    }
    put(Main.frMachineType, {&Machine.optSettingsMK2, &Machine.optSettingsMK4, &Machine.optSettingsF1CNC});
    put(Main.frCompact5, {&Machine.optSettingsMm, &Machine.optSettingsInch});
    put(Main.frF1CNC, {&Machine.optSettingsHmm, &Machine.optSettingsHinch, &Machine.optSettingsVmm,
                       &Machine.optSettingsVinch, &Main.lblHorizontal, &Main.lblVertical});
    for (Label* number :
         {&Machine.lblPPUnits, &Results.lblPPLines, &Results.lblPPLinesExe, &Results.lblPPMachineTime,
          &Results.lblXAxisMin, &Results.lblXAxisMax, &Results.lblXAxisTravel, &Results.lblYAxisMin,
          &Results.lblYAxisMax, &Results.lblYAxisTravel, &Results.lblZAxisMin, &Results.lblZAxisMax,
          &Results.lblZAxisTravel}) {
        number->AtRight = true;
    }
    const auto onPage = [this](int page, std::initializer_list<Control*> controls) {
        for (Control* control : controls) {
            control->Container = &Main.tabSettings;
            control->Page = page;
        }
    };
    onPage(settings_page::General,
           {&View.chkSettingsAutowidth, &Entry.chkSettingsDWC, &Main.lblSettingsIncrColor,
            &Main.lblSettingsAbsColor, &Main.cmdResetAll});
    onPage(settings_page::Printer, {&Paper.lblFontName, &Paper.cboFontName, &Paper.lblFontSize,
                                    &Paper.cboFontSize, &Paper.cmdPrinterDialog});
    Info.PutOn(Main.tabSettings, settings_page::Info);
    onPage(settings_page::Machine, {&Main.frMachineType, &Main.frCompact5, &Main.frF1CNC});
    for (const auto& button : Main.cmdTopButtons) button->Container = &Main.frControlPanel;
    put(Main.frAxesProperties, {&Main.lblMin, &Main.lblMax, &Main.lblTravel});
    put(Main.frProgramProperties,
        {&Main.lblMachineType, &Main.lblUnits, &Main.lblLines, &Main.lblLinesExecuted, &Main.lblMachineTime});
    // cmdStop stands over that frame, not in it: a frozen window keeps it.
    put(Main.frCmdEditor3, {&Results.cmdRun, &Results.cmdStep});

    frozenControls_ = {&Main.mnuFile,
                       &Main.mnuSettings,
                       &Main.mnuXfer,
                       &Main.mnuConvert,
                       &Main.mnuHelp,
                       &Main.frControlPanel,
                       &Main.frSetReplace,
                       &Entry.txtFeedA,
                       &Entry.txtFeedB,
                       &Main.frView,
                       &View.chkViewToolPos,
                       &View.chkViewLineProperties,
                       &View.chkViewMachineTime,
                       &View.chkViewGcode,
                       &View.chkViewFileNotes,
                       &Main.frProgramProperties,
                       &Machine.lblPPUnits,
                       &Results.lblPPLines,
                       &Results.lblPPLinesExe,
                       &Results.lblPPMachineTime,
                       &Main.lblMachineType,
                       &Main.lblUnits,
                       &Main.lblLines,
                       &Main.lblLinesExecuted,
                       &Main.lblMachineTime,
                       &Main.lblMin,
                       &Main.lblMax,
                       &Main.lblTravel,
                       &Main.frAxesProperties,
                       &Main.frXAxis,
                       &Main.frYaxis,
                       &Main.frZAxis,
                       &Results.lblXAxisMin,
                       &Results.lblXAxisMax,
                       &Results.lblXAxisTravel,
                       &Results.lblYAxisMin,
                       &Results.lblYAxisMax,
                       &Results.lblYAxisTravel,
                       &Results.lblZAxisMin,
                       &Results.lblZAxisMax,
                       &Results.lblZAxisTravel,
                       &Lists.lstMK2Gcodes,
                       &Main.lstMK2Mcodes,
                       &Lists.lstMK4Gcodes,
                       &Lists.lstMK4Mcodes,
                       &Main.frFileNotes,
                       &File.txtFileNotes,
                       &Entry.frEntry,
                       &Main.frCmdEditor1,
                       &Main.frCmdEditor2,
                       &Main.cmdInsert,
                       &Results.cmdRun,
                       &Main.cmdDelete,
                       &Results.cmdStep,
                       &Results.cmdStop,
                       &Entry.cmdFeedA,
                       &Entry.cmdFeedB};
    for (const auto& button : Main.cmdTopButtons) frozenControls_.push_back(button.get());
}

// The chain of the entry row first, then the list and what lies around it.
void Workbench::OrderTabs() {
    int next = 0;
    for (Control* control : std::initializer_list<Control*>{&Entry.txtGMcode,
                                                            &Entry.txtXI,
                                                            &Entry.txtYJ,
                                                            &Entry.txtZK,
                                                            &Entry.txtFKTL,
                                                            &Entry.txtH,
                                                            &Entry.txtComment,
                                                            &Store.lvCncProgram,
                                                            &Main.cmdInsert,
                                                            &Main.cmdDelete,
                                                            &Results.cmdRun,
                                                            &Results.cmdStep,
                                                            &Results.cmdStop,
                                                            &Entry.cmdFeedA,
                                                            &Entry.txtFeedA,
                                                            &Entry.cmdFeedB,
                                                            &Entry.txtFeedB,
                                                            &View.chkViewToolPos,
                                                            &View.chkViewLineProperties,
                                                            &View.chkViewMachineTime,
                                                            &View.chkViewGcode,
                                                            &View.chkViewFileNotes,
                                                            &Lists.lstMK2Gcodes,
                                                            &Lists.lstMK4Gcodes,
                                                            &Lists.lstMK4Mcodes,
                                                            &Lists.lstF1Gcodes,
                                                            &Lists.lstF1Mcodes,
                                                            &File.txtFileNotes,
                                                            &Main.tabSettings,
                                                            &View.chkSettingsAutowidth,
                                                            &Entry.chkSettingsDWC,
                                                            &Main.cmdResetAll,
                                                            &Info.txtCurrentFilePath,
                                                            &Info.txtApplicationPath,
                                                            &Info.txtSettingsPath,
                                                            &Machine.optSettingsMK2,
                                                            &Machine.optSettingsMK4,
                                                            &Machine.optSettingsF1CNC,
                                                            &Machine.optSettingsMm,
                                                            &Machine.optSettingsInch,
                                                            &Machine.optSettingsVmm,
                                                            &Machine.optSettingsVinch,
                                                            &Machine.optSettingsHmm,
                                                            &Machine.optSettingsHinch,
                                                            &Paper.cboFontName,
                                                            &Paper.cboFontSize,
                                                            &Paper.cmdPrinterDialog,
                                                            &Entry.cmdReturn}) {
        control->TabIndex = next++;
    }
    for (const auto& button : Main.cmdTopButtons) button->TabIndex = next++;
}

void Workbench::ControlsEnable(int enable) {
    ControlsOn = enable != 0;
    for (Control* control : frozenControls_) control->Enabled = ControlsOn;
    if (ControlsOn) Layout.RefreshFeedButtons();
    if (!Store.EditorRunMode) Main.frCmdEditor3.Enabled = ControlsOn;
    // A transmission can be stopped.
    if (Store.TransmitActive) Results.cmdStop.Enabled = true;
}

void Workbench::cmdReturn_Click() {
    // What is being sent or received keeps the window frozen.
    ControlsEnable(Store.TransmitActive || Transfer.frRXcode.Visible ? 0 : 1);
    for (Control* overlay : std::initializer_list<Control*>{
             &Entry.cmdReturn, &Main.rtfAbout, &Main.lstAbout, &Main.rtfHelp, &Main.rtfGcodeHelpMK2,
             &Main.rtfGcodeHelpMK4, &Entry.picXYaxes, &Entry.picZXaxes}) {
        overlay->Visible = false;
    }
    Help.HideSearch();
}

void Workbench::TellUnkept() {
    if (std::exchange(unkeptTold_, true)) return;
    Platform.Dialogs.ShowMessage(
        Notice(std::string(Language.MessageTexts(text::Unkept)) + " " + Window.Folders.DataFolder, "",
               Icon::Exclamation));
}

void Workbench::ClearProgram_Click() {
    // 1.
    cmdReturn_Click();
    // 2.
    if (Store.LineCount() > 0 && Store.Unsaved()) {
        if (!AskToClear(Platform.Dialogs, Language)) return;
        // He had it saved, so far as he could.
        if (Store.SaveFailed) Kept.KeepAside();
    }
    // 3. A row of this program is none of the next one.
    Draw.Editor.RestoreSelection();
    Store.lvCncProgram.Clear();
    Entry.txtGMcode.Text = "";
    Entry.txtComment.Text = "";
    Lists.lstMK4Gcodes.ListIndex = -1;
    Lists.lstMK4Mcodes.ListIndex = -1;
    File.lblPath.Caption = "";
    File.lblFileName.Caption = "";
    File.txtFileNotes.Text = "";
    Entry.frEntry.Caption = Language.EntryCaption;
    Store.ProgramChanged = false;
    Store.EndCodePresent = false;
    Store.SaveFailed = false;
    File.NamesSource = false;
    // 4.
    Interpreter.ClearAxesProperties();
    Layout.ClearEntryFields();
    Interpreter.RefreshLineCount();
    View.MakeLinePropertiesColumns();
    RefreshMachine();
    Interpreter.Interpreter();
    // 6.
    ShowCodeLists();
    if (Entry.txtGMcode.ReallyVisible()) Platform.Focus.SetFocus(Entry.txtGMcode);
    // 5. Last: a drawing that waits then finds all of it gone.
    Run(Calls.mnuDraw_Click);
}

void Workbench::ShowMachineName() {
    const OptionButton& option = Store.IsF1()    ? Machine.optSettingsF1CNC
                                 : Store.IsMK2() ? Machine.optSettingsMK2
                                                 : Machine.optSettingsMK4;
    Main.lblMachineType.Caption = option.Caption;
}

void Workbench::RefreshMachine() {
    Run(Calls.RefreshTitle);
    Machine.RefreshMachineOptions();
    View.MakeToolpositionColums();
    View.MakeLinePropertiesColumns();
    View.MakeMachineColumns();
    Import.RefreshPreProcessors();
    // The buttons in use share their room.
    Main.cmdTopButtons[5]->Visible = !Store.IsF1();
    Main.cmdTopButtons[6]->Visible = Store.IsF1();
    Run(Calls.ControlsPositioning);
    View.SetAutoWidth();
    Entry.lblGMcode.Caption = "G";
    Machine.RefreshUnits();
    Main.lblMachineType.Caption = Store.IsF1()    ? "F1 CNC"
                                  : Store.IsMK2() ? "Compact5 CNC MK2"
                                                  : "Compact5 CNC MK4";
    ShowMachineName();
    if (Store.IsF1()) {
        Entry.picXYaxes.Visible = true;
        Entry.picXYaxes.Enabled = true;
        Entry.cmdReturn.Visible = true;
        Entry.cmdReturn.Enabled = true;
    }
}

void Workbench::ShowCodeLists() {
    Lists.lstMK2Gcodes.Visible = Store.IsMK2();
    Main.lstMK2Mcodes.Visible = Store.IsMK2();
    Lists.lstMK4Gcodes.Visible = Store.IsMK4();
    Lists.lstMK4Mcodes.Visible = Store.IsMK4();
    Lists.lstF1Gcodes.Visible = Store.IsF1();
    Lists.lstF1Mcodes.Visible = Store.IsF1();
}

}  // namespace kvt
