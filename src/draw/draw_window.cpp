#include "draw/draw_window.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "platform/keys.h"
#include "program/workbench_calls.h"

namespace kvt {

namespace {

constexpr const char* positionControlsName = "PositionControls";

// The largest screen that is a small one.
constexpr int smallScreenWidth = 12000;
constexpr int smallScreenHeight = 9000;
constexpr int leastWidth = 5700;
constexpr int leastHeight = 3000;
constexpr int propertiesHeight = 620;
constexpr int buttonsTop = 100;
constexpr int frameGap = 20;
// Of the measure fields: each takes its share of what the row leaves in front of the scroll bar.
constexpr int wideField = 1000;
constexpr int narrowField = 600;
constexpr int besideRow = 500;
constexpr int fieldsOfMill = 7, fieldsOfLathe = 8;
constexpr int autoFitWidth = 840;
constexpr int redrawWidth = 820;
constexpr int twipsALetter = 110;
constexpr int letterMargin = 60;
// Ends the walk's phase, also when a failure passes through.
class WalkGuard {
public:
    explicit WalkGuard(WalkState& walk) : walk_(walk) { walk_.Phase = WalkPhase::Paced; }
    ~WalkGuard() { walk_.Phase = WalkPhase::Idle; }
    WalkGuard(const WalkGuard&) = delete;
    WalkGuard& operator=(const WalkGuard&) = delete;

private:
    WalkState& walk_;
};

}  // namespace

DrawWindow::DrawWindow(const Parts& parts)
    : parts_{Controls,
             State,
             parts.Store,
             parts.Machine,
             parts.Results,
             parts.File,
             parts.Language,
             parts.Platform,
             [this] { Redraw(); },
             [this](std::function<void()> then) { AfterWalk(std::move(then)); },
             nullptr,
             nullptr,
             nullptr,
             nullptr},
      View(parts_),
      Sim(parts_),
      Listing(parts_),
      Editor(parts_),
      Strokes(parts_),
      Colors(Controls),
      Measure(parts_, Sim, View),
      Bar(parts_, Sim),
      Output(parts_),
      navigation_(parts_, View, Measure, Strokes),
      walkParts_{parts_, View, Sim, Listing, Editor, Strokes, [this] { PositionControls(); }} {
    parts_.Tell = [this](std::string_view what) {
        if (Tell) Tell(what);
    };
    parts_.StateChanged = [this] {
        Bar.ShowState();
        Colors.chkLegendDistinct.Enabled = Controls.mnuView.Enabled.Get();
    };
    Form& form = Controls.frmDraw;
    form.SmallestWidth = leastWidth;
    form.SmallestHeight = leastHeight;
    form.OnActivate = [this] { Form_Activate(); };
    for (Form* window : {&form, &Listing.frmProgramWindow})
        window->OnLostFocus = [this] { Form_LostFocus(); };
    form.OnResize = [this] { Form_Resize(); };
    form.OnQueryUnload = [this] { Form_QueryUnload(); };
    form.OnKeyDown = [this](int pressed, int held) {
        if ((held & key::CtrlHeld) == 0) Form_KeyDown(pressed);
    };
    Listing.frmProgramWindow.OnKeyDown = [this](int pressed, int held) { Listing_KeyDown({pressed, held}); };
    Controls.cmdAutoFit.OnClick = [this] { cmdAutoFit_Click(); };
    Controls.cmdRedraw.OnClick = [this] { cmdRedraw_Click(); };
    WireMenus();
    WireField();
}

// An entry that changes what is drawn.
void DrawWindow::WireMenus() {
    for (Menu* entry : {&Controls.mnuRadiiArcs, &Controls.mnuFillCycles, &Controls.mnuProgramWindow,
                        &Controls.mnuToolWidth, &Controls.mnuToolCenter, &Controls.mnuGrid,
                        &Controls.mnuBackground, &Controls.mnuDistinctColors, &Controls.mnuHoleMarks}) {
        entry->OnClick = [this, entry] {
            entry->Checked = !entry->Checked;
            if (entry == &Controls.mnuFillCycles || entry == &Controls.mnuGrid) SetFillStyle(Controls);
            Colors.Show(parts_.Store.IsF1());
            if (Controls.mnuAutoRedraw.Checked) Redraw();
        };
    }
    Colors.chkLegendDistinct.OnClick = [this] { Controls.mnuDistinctColors.Click(); };
    Colors.cmdLegendFold.OnClick = [this] { Colors.Unfold(parts_.Store.IsF1()); };
    Controls.mnuLegend.OnClick = [this] {
        Controls.mnuLegend.Checked = !Controls.mnuLegend.Checked;
        Colors.Show(parts_.Store.IsF1());
    };
    Controls.mnuAutoRedraw.OnClick = [this] {
        Controls.mnuAutoRedraw.Checked = !Controls.mnuAutoRedraw.Checked;
    };
    Controls.mnuEditor.OnClick = [this] { mnuEditor_Click(); };
    Controls.mnuRedraw.OnClick = [this] { cmdRedraw_Click(); };
    Controls.mnuAutoFit.OnClick = [this] { cmdAutoFit_Click(); };
    Controls.mnuExit.OnClick = [this] { Form_QueryUnload(); };
}

void DrawWindow::WireField() {
    PictureBox& field = Controls.pbxDrawField;
    field.OnKeyDown = [this](int pressed, int) { pbxDrawField_KeyDown(pressed); };
    field.OnKeyPress = [this](int& character) {
        if (character == key::Enter) State.EndClickWait();
    };
    // Read-only fields hand the focus on.
    for (TextBox* shown : {&Controls.txtDiameter, &Controls.txtDeltaX, &Controls.txtDeltaZ,
                           &Controls.txtDeltaXZ, &Controls.txtGrid}) {
        shown->OnGotFocus = [this] { parts_.Platform.Focus.SetFocus(Controls.pbxDrawField); };
    }
}

void DrawWindow::Redraw() {
    redrawAsked_ = true;
    if (State.Walking()) {
        // An aborted walk would go on waiting for its step or its click.
        if (State.StopRequested) {
            State.PressStep();
            State.EndClickWait();
        }
        return;
    }
    DrawWhatIsAsked();
    Bar.ShowLine(0);
    Bar.ShowState();
    for (std::function<void()>& then : std::exchange(afterWalk_, {}))
        parts_.Platform.System.Later(std::move(then));
}

void DrawWindow::DrawWhatIsAsked() {
    const WalkGuard guard(State);
    givenUp_ = false;
    // An Abort with nothing to abort leaves nothing behind.
    State.StopRequested = false;
    while (redrawAsked_) {
        redrawAsked_ = false;
        State.Phase = WalkPhase::Paced;
        State.Turns = 0;
        State.Waits = 0;
        State.WaitsLeftOut = std::exchange(State.WaitsToLeaveOut, 0);
        // A program without a travel is fitted when it has one.
        if (State.FitNext) State.FitNext = !View.Fit();
        RunPasses();
        Controls.pbxDrawField.Cross = FieldPlace();
        Editor.End();
        if (!State.Leaving()) continue;
        // A window closed and shown again during the walk has asked for another Redraw.
        givenUp_ = Controls.frmDraw.Visible && !redrawAsked_;
    }
    State.WaitsToLeaveOut = 0;
}

void DrawWindow::AfterWalk(std::function<void()> then) {
    if (!State.Walking()) return then();
    State.Release();
    afterWalk_.push_back(std::move(then));
}

void DrawWindow::RunPasses() {
    const bool wide = parts_.Store.IsF1() && Controls.mnuToolWidth.Checked;
    DrawProgram(walkParts_, wide ? 0 : 1, 1).Run();
    if (!wide || !Controls.mnuToolCenter.Checked || State.Leaving()) return;
    State.Turns = 0;
    DrawProgram(walkParts_, 1, 2).Run();
}

void DrawWindow::Show() {
    if (State.Opening()) return;
    if (Controls.frmDraw.Visible) return Redraw();
    PrepareToShow();
    Controls.frmDraw.Visible = true;
    // Some systems activate the window inside that call, others later.
    if (State.Opening()) Form_Activate();
}

void DrawWindow::ShowBehindEditor() {
    if (State.Opening() || Controls.frmDraw.Visible) return;
    PrepareToShow();
    Controls.frmDraw.ShowBehind();
    focusFieldNext_ = true;
    if (!State.Opening()) return;
    UpdateForProgram();
    FitAndDraw();
}

void DrawWindow::ShowLater() {
    if (!Controls.frmDraw.Visible) return;
    showAsked_ = true;
    parts_.Platform.System.Later([this] {
        if (std::exchange(showAsked_, false) && Controls.frmDraw.Visible) Show();
    });
}

void DrawWindow::PrepareToShow() {
    if (State.Window == WindowPhase::Closed) Form_Load();
    State.Window = WindowPhase::Opening;
    State.AutoFitPending = true;
}

void DrawWindow::DrawForUser() {
    const bool fits = !State.OwnView || !View.ShowsStroke();
    if (Controls.frmDraw.Visible && !State.Walking() && fits) State.FitNext = true;
    Show();
}

bool DrawWindow::BeginsMaximised(ScreenService& screen) {
    return screen.Width() > smallScreenWidth && screen.Height() > smallScreenHeight;
}

void DrawWindow::Form_Load() {
    ScreenService& screen = parts_.Platform.Screen;
    Form& form = Controls.frmDraw;
    if (BeginsMaximised(screen)) {
        form.State = WindowState::Maximised;
        form.ApplySize(screen.Width(), screen.WorkAreaHeight());
    }
    Controls.pbxDrawField.Cls();
    State.ZeroX = screen.Width() / 2.0;
    State.ZeroY = screen.Height() / 2.0;
    Controls.pbxDrawField.MoveTo(State.ZeroX, State.ZeroY);
    State.DrawScale = 1;
    View.SetScaleIndex(IndexOfScale1);
    Sim.SelectSim(simulation::Run);
    PositionControls();
    // The marks that the settings bring fill the boxes from the next choice of fill or grid on.
    Controls.pbxDrawField.FillStyle = fill_style::Transparent;
    kvt::Run(LoadSettings);
    Form_Activate();
}

void DrawWindow::Unload() {
    State.Leave();
    const Control* const focused = parts_.Platform.Focus.Focused();
    const bool hadFocus = focused && &focused->OwningForm() == &Controls.frmDraw;
    Controls.frmDraw.Visible = false;
    Listing.Unload();
    Measure.ClearMeasure();
    // A walk that a fault has ended leaves these behind.
    Sim.EnableControls(true);
    Controls.frStepControls.Visible = false;
    State.Drawing = false;
    State.StopRequested = false;
    State.Window = WindowPhase::Closed;
    Editor.RestoreSelection();
    Editor.RestoreScroll();
    if (hadFocus) kvt::Run(RestoreFocus);
}

void DrawWindow::Form_QueryUnload() {
    Output.RestoreBackground();
    kvt::Run(SaveSettings);
    Unload();
}

void DrawWindow::Form_Activate() {
    UpdateForProgram();
    const Control* const focused = parts_.Platform.Focus.Focused();
    if (std::exchange(focusFieldNext_, false) || !focused || &focused->OwningForm() != &Controls.frmDraw)
        parts_.Platform.Focus.SetFocus(Controls.pbxDrawField);
    FitAndDraw();
}

// Comes last when the window is activated, for a walk may wait.
void DrawWindow::FitAndDraw() {
    View.Autofit();
    if (State.Window != WindowPhase::DrawDue) return;
    State.Window = WindowPhase::Open;
    Redraw();
}

// Captions, names of the axes and frames.
void DrawWindow::UpdateForProgram() {
    if (State.Opening()) State.Window = WindowPhase::DrawDue;
    parts_.Store.ErrorFlagged = false;
    if (!parts_.Language.ModuleFile.empty()) {
        int entry = 1;
        for (Menu* menu :
             {&Controls.mnuView, &Controls.mnuRadiiArcs, &Controls.mnuFillCycles, &Controls.mnuProgramWindow,
              &Controls.mnuToolWidth, &Controls.mnuToolCenter, &Controls.mnuGrid, &Controls.mnuBackground}) {
            menu->Caption = parts_.Language.DrawViewTexts(entry++);
        }
    }
    PlaceFramesInRow();
    Controls.frProperties.Height = propertiesHeight;
    Controls.frStepControls.Top = Controls.frProperties.Top + Controls.frProperties.Height - frameGap;
    for (Control* button : {&Controls.cmdStep, &Controls.cmdStop, &Controls.cmdRun}) button->Top = buttonsTop;
    Controls.lblDiameter.Caption = "\xD8";
    Bar.ShowCaptions();
}

// Also where the drawing stands beside the editor, in which another machine is chosen.
void DrawWindow::NameAxes() {
    const bool mill = parts_.Store.IsF1();
    Controls.lblZ1.Caption = mill ? "Y1" : "Z1";
    Controls.lblZ2.Caption = mill ? "Y2" : "Z2";
    Controls.lblDeltaZ.Caption = mill ? "Y" : "Z";
    Controls.lblDeltaXZ.Caption = mill ? "XY1-XY2" : "XZ1-XZ2";
    for (Control* control : std::initializer_list<Control*>{&Controls.frDiameter, &Controls.lblDiameter,
                                                            &Controls.txtDiameter}) {
        control->Visible = !mill;
        control->Enabled = !mill;
    }
}

void DrawWindow::Form_LostFocus() {
    const Control* const focused = parts_.Platform.Focus.Focused();
    const Form* const taker = focused ? &focused->OwningForm() : nullptr;
    if (taker != &Controls.frmDraw && taker != &Listing.frmProgramWindow) Listing.Hide();
}

// As wide as the window has room for, beside what else stands in the row.
void DrawWindow::FillMeasureFields() {
    const bool mill = parts_.Store.IsF1();
    Controls.FillFrames(narrowField);
    int row = besideRow;
    for (const Control* one : std::initializer_list<Control*>{
             &Controls.frDiameter, &Controls.frX1Z1, &Controls.frX2Z2, &Controls.frDelta, &Controls.frGrid,
             &Controls.cmdAutoFit, &Controls.cmdRedraw, &Controls.UpDown}) {
        if (one->Visible) row += one->Width + frameGap;
    }
    const int share = (Controls.frmDraw.Width - row) / (mill ? fieldsOfMill : fieldsOfLathe);
    Controls.FillFrames(std::clamp(narrowField + share, narrowField, wideField));
}

void DrawWindow::PlaceFramesInRow() {
    NameAxes();
    // A language may have longer words than English.
    int longer = 0;
    for (CommandButton* button : {&Controls.cmdAutoFit, &Controls.cmdRedraw}) {
        const int least = button == &Controls.cmdAutoFit ? autoFitWidth : redrawWidth;
        const int characters = static_cast<int>(button->Caption.Get().size());
        button->Width = std::max(least, characters * twipsALetter + letterMargin);
        longer += button->Width - least;
    }
    FillMeasureFields();
    const Control* before = nullptr;
    for (Control* frame : std::initializer_list<Control*>{
             &Controls.frDiameter, &Controls.frX1Z1, &Controls.frX2Z2, &Controls.frDelta, &Controls.frGrid,
             &Controls.cmdAutoFit, &Controls.cmdRedraw, &Controls.UpDown}) {
        // On the mill the next one takes the place of the diameter.
        if (frame == &Controls.frDiameter && !frame->Visible) continue;
        frame->Left = before ? before->Left + before->Width + frameGap : Controls.frDiameter.Left.Get();
        if (longer > 0 && frame->Left + frame->Width > Controls.frmDraw.Width) frame->Visible = false;
        before = frame;
    }
    int right = 0;
    for (const Control* frame :
         std::initializer_list<Control*>{&Controls.frDelta, &Controls.frGrid, &Controls.cmdAutoFit,
                                         &Controls.cmdRedraw, &Controls.UpDown}) {
        if (frame->Visible) right = std::max(right, frame->Left + frame->Width);
    }
    Controls.frProperties.Width = right + frameGap;
}

void DrawWindow::Form_Resize() {
    PositionControls();
    State.AutoFitPending = true;
    if (!State.StepMode && Controls.mnuAutoRedraw.Checked && Controls.mnuSim[simulation::Run]->Checked) {
        View.Autofit();
    }
}

void DrawWindow::PositionControls() {
    Form& form = Controls.frmDraw;
    if (form.State == WindowState::Minimised) return;
    Attempt(positionControlsName, [&] {
        if (form.Width < leastWidth) form.Width = leastWidth;
        if (form.Height < leastHeight) form.Height = leastHeight;
        const int width = form.Width;
        const int height = form.Height;
        PictureBox& view = Controls.pbxViewWindow;
        view.Width = width - 460;
        view.Height = height - 1220;
        // Scroll bars count in tens of twips.
        const PictureBox& field = Controls.pbxDrawField;
        ScrollBar& across = Controls.hsbViewWindow;
        across.Top = height - 1200;
        across.Width = width - 480;
        across.Max = ToLong((field.Width - view.Width) / 10.0);
        ScrollBar& down = Controls.vsbViewWindow;
        down.Left = width - 435;
        down.Height = height - 1230;
        down.Max = ToLong((field.Height - view.Height) / 10.0);
        // What a narrow window has no room for.
        Controls.frGrid.Visible = width > 7000;
        Controls.cmdAutoFit.Visible = width > 7900;
        Controls.cmdRedraw.Visible = width > 8700;
        Controls.UpDown.Visible = width > 9000;
        PlaceFramesInRow();
        Bar.Place();
        ShowMenusOfMachine();
        Colors.Show(parts_.Store.IsF1());
    });
}

void DrawWindow::ShowMenusOfMachine() {
    const bool mill = parts_.Store.IsF1();
    for (Menu* entry :
         {&Controls.mnuRadiiArcs, &Controls.mnuProgramWindow, &Controls.mnuGrid, &Controls.mnuBackground}) {
        entry->Visible = true;
    }
    Controls.mnuToolWidth.Visible = mill;
    Controls.mnuToolCenter.Visible = mill;
    Controls.mnuHoleMarks.Visible = mill;
    Controls.mnuFillCycles.Visible = !mill;
    if (mill) Controls.mnuFillCycles.Checked = false;
}

void DrawWindow::cmdAutoFit_Click() {
    State.AutoFitPending = true;
    View.Autofit();
}

void DrawWindow::cmdRedraw_Click() {
    Run(parts_.ClearMeasure);
    Redraw();
}

void DrawWindow::mnuEditor_Click() {
    Listing.Hide();
    Run(ShowEditor);
}

}  // namespace kvt
