#include "shell/workbench.h"

#include "program/edit_step.h"

namespace kvt {

namespace {

constexpr int firstHeight = 8720;
constexpr int firstListHeight = firstHeight - 3370;

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
      calculated_(Layout, Store, Language, services.Dialogs, services.Focus),
      Lines({Entry, Layout, Store, View, Interpreter, calculated_, Language, services, Calls}),
      feeds_(Entry, Store, Interpreter, Language, services.Focus, Calls),
      Find(Store, Language, services.Focus, Calls),
      conversions_(frmMain, Store, Machine, Entry, Calls),
      Codes({Entry, Layout, Store, Lists, View, Interpreter, services, Calls}),
      keyboard_({Entry, Layout, Codes, calculated_, Lines, Store, View, Language, services, Calls}),
      History(Store, File),
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
      data_(services, Language),
      lastFile_(File, Reader, Language, services),
      paper_(frmMain, services.Printer),
      info_(frmMain),
      Help({Store, Lists, Transfer, Entry, Main, Language, services, Calls}),
      print_({Store, File, Writer, Language, services, Calls}),
      Import({Store, File, Reader, Main.mnuImport, services, Language}),
      Languages(frmMain, Modules, Language, services.Files, Calls),
      table_(frmMain),
      positions_({table_, Main, Store, Entry, File, View, Results, services.Screen}),
      Display({Store, Machine, Lists, View, Entry, Main, Import, Calls}),
      Modes({table_, Store, Transfer, Layout, Results, Main, Help}),
      size_({frmMain, Language, services, Calls}),
      target_(Entry, Store, Language),
      states_({Main, Store, Results, Transfer, Port, Draw.State}),
      overlays_({Main, Entry, Store.lvCncProgram, services.Focus, Calls}),
      lock_({Store, Transfer, Port, Modes, Draw.State}),
      restored_({Store, History, Entry, Layout, Lists, Interpreter, Display, states_, services.Focus, Calls}),
      undoing_({Store, History, restored_, lock_, Draw.Editor, Main, Language, services.System, Calls}),
      clearing_(
          {Store, Layout, File, Lists, Interpreter, Draw.Editor, Display, Language, services.Dialogs, Calls}),
      Modules(Forms(), {Main, Entry.frEntry, Store.lvCncProgram, Help, Language, services}),
      beside_({frmMain, Draw.Controls, View, services.Screen}),
      builtIn_({frmMain, Store, Port, paper_, Display, services.Screen}),
      settings_(
          {frmMain, Store, Machine, builtIn_, feeds_, Display, Languages, lastFile_, data_, services.Files}),
      reset_({settings_, Store, Language, Display, Interpreter, Calls}),
      drawSettings_(Draw, beside_, data_, services),
      recovery_(frmMain, {Store, File, Reader, Writer, Language, data_, services, Calls}),
      recent_({Main, Store, Language, services, Calls}),
      samples_({Main, Reader, Language, services, Calls}),
      findings_({Store, Language, services.Focus, Calls}),
      greys_({Main, Store, Machine, Entry, Transfer, Port, Language, Calls}) {
    frmMain.SmallestWidth = SmallestWidth;
    frmMain.SmallestHeight = SmallestHeight;
    frmMain.LeastHeight = LeastHeight;
    frmMain.Width = UsualWidth;
    frmMain.Height = firstHeight;
    Store.lvCncProgram.Height = firstListHeight;
    BindProgram(settings_.Keys, Store, Main);
    BindEntry(settings_.Keys, Entry);
    BindView(settings_.Keys, View);
    BindPort(settings_.Keys, Port);
    BindPrinter(settings_.Keys, paper_);
    BindWindow(settings_.Keys, frmMain, beside_, services.Screen);
    drawSettings_.BindShown(settings_.Keys);
    recent_.BindKeys(settings_.Keys);
    FillCalls();
    WireWindow();
    WireMenus();
    WireButtons();
    WireOptions();
    WireReset();
    WireKeys();
    WireDrawing();
    WireTransfer();
    WireNotices();
    Display.RefreshMachine();
    View.MakeMachineTimeColumn();
    Display.ShowCodeLists();
    Platform.System.OnHandled = [this] { Handled(); };
}

Workbench::~Workbench() { Platform.System.OnHandled = nullptr; }

void Workbench::FillCalls() {
    // Commands begin with it; what an earlier one has told is over then.
    Calls.cmdReturn_Click = [this] {
        Run(Calls.Tell, "");
        Modes.cmdReturn_Click();
    };
    Calls.ClearProgram_Click = [this] { clearing_.ClearProgram_Click(); };
    Calls.KeepRecoveryCopy = [this] { return recovery_.KeepRecoveryCopy(); };
    Calls.RefreshMachine = [this] { Display.RefreshMachine(); };
    Calls.RefreshTitle = [this] { RefreshTitle(); };
    Modules.OnTexts = [this] { ShowTexts(); };
    Calls.ControlsPositioning = [this] { positions_.ControlsPositioning(); };
    Calls.ControlsEnable = [this](ControlsMode mode) { Modes.ControlsEnable(mode); };
    Calls.LoadClipboardModule = [this] { Received.LoadClipboardModule(); };
    Calls.LoadLanguageModule = [this](const std::string& file) {
        // The comments of the codes change their language.
        const EditStep step(Calls, {StepKind::CodeComments});
        Modules.LoadLanguageModule(file);
    };
    Calls.BeginStep = [this](const StepName& name) { History.Begin(name); };
    Calls.EndStep = [this] {
        History.End();
        if (!History.IsOpen()) Entry.ForgetEdits();
    };
    Calls.ProgramSaved = [this] { History.Saved(); };
    Calls.Tell = [this](std::string_view what) {
        Main.lblNotice.Caption = what;
        Main.lblNotice.Visible = !what.empty();
        // The line may be too short for it.
        Main.lblNotice.ToolTip = what;
    };
    Calls.FileUsed = [this](const std::string& path) { recent_.Use(path); };
    Calls.HideSettings = [this] { Main.tabSettings.Visible = false; };
    Calls.FirstFieldFocus = [this](std::string_view initial) { Layout.FirstFieldFocus(initial); };
    Machine.OnUnits = [this] { feeds_.SetFeedLimits(); };
    overlays_.OnSettings = [this] { ShowPaths(); };
    settings_.Ending = [this] { return ended_; };
    builtIn_.EndWithoutPrinter = [this] { EndWithoutPrinter(); };
}

}  // namespace kvt
