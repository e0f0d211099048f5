#include "draw/draw_program.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "interpreter/control_commands.h"
#include "program/workbench_calls.h"

namespace kvt {

namespace {

constexpr const char* drawProgramName = "DrawProgram";

constexpr int intervalOfCommand[] = {0, 100, 500, 1000};

int IntervalOf(std::string_view argument) {
    return argument.size() == 1 && argument[0] >= '1' && argument[0] <= '3'
               ? intervalOfCommand[argument[0] - '0']
               : 0;
}

// The second word behind single blanks.
std::string_view SecondWord(std::string_view comment) {
    const std::size_t blank = comment.find(' ');
    if (blank == std::string_view::npos) return {};
    const std::string_view rest = comment.substr(blank + 1);
    return rest.substr(0, rest.find(' '));
}

bool IsLetter(char c) { return UpperChar(c) >= 'A' && UpperChar(c) <= 'Z'; }

// A code of three characters as a number, letters in upper case; 0 for one of another length.
constexpr std::uint32_t CodeOf(char first, char second, char third) {
    const auto byte = [](char c) { return static_cast<std::uint32_t>(static_cast<unsigned char>(c)); };
    return byte(UpperChar(first)) << 16 | byte(second) << 8 | byte(third);
}
constexpr std::uint32_t CodeOf(std::string_view code) {
    return code.size() == 3 ? CodeOf(code[0], code[1], code[2]) : 0;
}

constexpr std::uint32_t codeG02 = CodeOf("G02");
constexpr std::uint32_t codeG03 = CodeOf("G03");
constexpr std::uint32_t codeG92 = CodeOf("G92");
constexpr std::uint32_t codeM99 = CodeOf("M99");

// The code of a cell: without a letter in front it is a G code.
std::uint32_t CodeOfCell(std::string_view cell) {
    const std::string_view code = Trim(cell);
    if (!code.empty() && UpperChar(code[0]) == 'M') return CodeOf(code);
    return code.size() == 2 ? CodeOf('G', code[0], code[1]) : 0;
}

// An offset of an M99 without its letters.
double OffsetIn(std::string_view cell) {
    std::string number;
    for (const char c : cell) {
        const char upper = UpperChar(c);
        if (upper != 'I' && upper != 'J' && upper != 'K') number += c;
    }
    return Val(number);
}

}  // namespace

DrawProgram::DrawProgram(Parts& parts, int penMode, int pass)
    : parts_(parts),
      shared_(parts.Shared),
      controls_(parts.Shared.Controls),
      state_(parts.Shared.State),
      field_(parts.Shared.Controls.pbxDrawField),
      store_(parts.Shared.Store),
      list_(parts.Shared.Store.lvCncProgram),
      penMode_(penMode),
      pass_(pass),
      mill_(parts.Shared.Store.IsF1()) {}

void DrawProgram::Run() {
    if (!controls_.frmDraw.Visible) return;
    Attempt(drawProgramName, [this] {
        Begin();
        // Lines can be deleted during a wait.
        while (lineIndex_ <= std::min(itemCount_, list_.Count()) && !state_.Leaving() && ProcessLine())
            ++lineIndex_;
        End();
    });
    field_.DrawFrom(0);
}

void DrawProgram::Begin() {
    const bool full = pass_ == 1;
    parts_.View.ShowGridSize();
    itemCount_ = list_.Count();
    if (full) field_.Cls();
    state_.Drawing = true;
    state_.ToolWidth = 1;
    if (full) parts_.PositionControls();
    const std::string name(ExtractFileName(shared_.File.lblPath.Caption));
    controls_.lblFileName.Caption = name;
    controls_.frmDraw.Caption = name;
    if (full) field_.BackColor = InkOf(Ink::Ground, controls_);
    if (controls_.mnuGrid.Checked && full) parts_.View.MakeGrid();
    if (state_.ZeroX > 0 || state_.ZeroMoved) {
        field_.MoveTo(state_.ZeroX, state_.ZeroY);
    } else {
        field_.MoveTo(controls_.frmDraw.Width / 2.0, controls_.frmDraw.Height / 2.0);
    }
    state_.DrawAbsolute = false;
    state_.StepPressed = false;
    state_.DrawRadius = mill_;
    if (full) {
        state_.ThinToolHidden = false;
        parts_.View.MakeZeroPoint();
        parts_.Strokes.BeginDrawing();
        state_.FirstStroke = field_.OperationsBefore() + static_cast<long long>(field_.Operations().size());
    }
    // The Abort button is there for the whole length of every walk.
    controls_.cmdAutoFit.Enabled = false;
    controls_.cmdRedraw.Enabled = false;
    controls_.cmdStop.Visible = true;
    controls_.cmdStop.Enabled = true;
    controls_.cmdRun.Enabled = true;
    controls_.frStepControls.Visible = true;
    const int sim = parts_.Sim.CheckedSim();
    state_.StepMode = sim == simulation::Step;
    state_.Interval = IntervalOfSim(sim);
    controls_.Timer1.Enabled = state_.Interval > 1;
    parts_.Listing.Begin();
    kvt::Run(shared_.StateChanged);
}

void DrawProgram::RepeatMarks() {
    field_.ForeColor = InkOf(Ink::Pen, controls_);
    for (const HoleMark& mark : marks_) {
        field_.DrawFrom(mark.Row);
        DrawHoleMark(field_, mark);
    }
}

void DrawProgram::End() {
    if (!state_.Leaving()) RepeatMarks();
    parts_.Sim.EnableControls(true);
    Control* const focused = shared_.Platform.Focus.Focused();
    if (focused && focused->Container == &controls_.frStepControls)
        shared_.Platform.Focus.SetFocus(controls_.pbxDrawField);
    controls_.frStepControls.Visible = false;
    state_.StopRequested = false;
    state_.Drawing = false;
    // The menu may have changed the scale meanwhile; that asks for no drawing.
    state_.ScaleUpdating = true;
    controls_.UpDown.SetValue(parts_.View.CheckedScaleIndex());
    state_.ScaleUpdating = false;
}

bool DrawProgram::ProcessLine() {
    parts_.Sim.ServeEvents();
    if (state_.Leaving()) return false;
    // LISTING: with it open, a line with an error ends the walk behind that line.
    if (controls_.mnuProgramWindow.Checked && parts_.Listing.Follow(lineIndex_, itemCount_))
        parts_.Sim.cmdStop_Click();
    // MODES OF THE LINE: an arc keeps its colour on its line with the centre.
    state_.NoRadiusLine = false;
    state_.ForceRadiusLine = false;
    if (!arcPending_) colorOverride_ = -1;
    // COMMAND IN THE COMMENT: may leave out the line, or end the walk.
    switch (Command(Cell(column::Comment))) {
        case Next::DrawLine: break;
        case Next::EndOfLine: return EndOfLine();
        case Next::LeaveProgram: return false;
    }
    if (IsWatched()) {
        parts_.Editor.Follow(lineIndex_);
        kvt::Run(shared_.ShowLine, lineIndex_);
    }
    // PEN: for what has no colour of its own.
    field_.ForeColor = InkOf(Ink::Pen, controls_);
    // VALUES: the line with the centre keeps the moves of its arc's line.
    ReadCode();
    arcPending_ ? ReadCentre() : ReadValues();
    const std::string_view feed = Trim(Cell(column::F));
    pitch_ = Val(feed.substr(!feed.empty() && IsLetter(feed[0]) ? 1 : 0)) * state_.DrawScale;
    startX_ = field_.CurrentX;
    startY_ = field_.CurrentY;
    field_.DrawFrom(arcPending_ ? arcLine_ : lineIndex_);
    // STROKES: the code draws, waits, and takes the reference of the next absolute move.
    Dispatch();
    if (leave_) return false;
    return EndOfLine();
}

DrawProgram::Next DrawProgram::Command(std::string_view comment) {
    const std::string_view argument = SecondWord(comment);
    switch (ControlCommandOf(comment)) {
        case ControlCommand::None: return Next::DrawLine;
        case ControlCommand::Skip: return Next::EndOfLine;
        case ControlCommand::Stop: return Next::LeaveProgram;
        case ControlCommand::Colour:
            colorOverride_ = static_cast<std::int32_t>(ColorNamed(argument, controls_));
            break;
        case ControlCommand::Interval: state_.Interval = IntervalOf(argument); break;
        case ControlCommand::NoRadius: state_.NoRadiusLine = true; break;
        case ControlCommand::Radius: state_.ForceRadiusLine = true; break;
        case ControlCommand::Run:
            state_.StepMode = false;
            state_.Interval = 1;
            break;
        case ControlCommand::Step:
            controls_.cmdRun.Enabled = false;
            state_.StepMode = true;
            break;
        case ControlCommand::Wait:
            // The overlay does not wait.
            if (pass_ != 1 || state_.LeavesOutWait()) break;
            parts_.Editor.Follow(lineIndex_);
            kvt::Run(shared_.ShowLine, lineIndex_);
            parts_.Sim.WaitFor(UserWait::Click);
            if (state_.Leaving()) return Next::LeaveProgram;
            break;
        case ControlCommand::NoCheck:
        case ControlCommand::NoRenum:
        case ControlCommand::Unknown: break;
    }
    controls_.Timer1.Enabled = state_.Interval > 1;
    return Next::DrawLine;
}

// The mill's Y is negated, which turns the sense of its arcs round.
void DrawProgram::ReadCode() {
    code_ = CodeOfCell(Cell(column::Code));
    if (!mill_) return;
    if (code_ == codeG02) {
        code_ = codeG03;
    } else if (code_ == codeG03) {
        code_ = codeG02;
    }
}

void DrawProgram::ReadValues() {
    const double scale = state_.DrawScale;
    double v = Val(Cell(mill_ ? column::Y : column::X)) * scale;
    double vt = Val(Cell(mill_ ? column::ToolY : column::ToolX)) * scale;
    if (mill_) {
        v = -v;
        vt = -vt;
    }
    if (state_.DrawAbsolute && !state_.DrawRadius) v /= 2;
    const double h = Val(Cell(mill_ ? column::X : column::Z)) * scale;
    const double ht = Val(Cell(mill_ ? column::ToolX : column::ToolZ)) * scale;
    current_ = code_ == codeG92 ? Pair{v, h} : Pair{vt, ht};
    move_ = state_.DrawAbsolute ? Pair{v - previous_.V, h - previous_.H} : Pair{v, h};
}

void DrawProgram::ReadCentre() {
    const double scale = state_.DrawScale;
    const double v = OffsetIn(Cell(mill_ ? column::Y : column::X));
    centre_ = {(mill_ ? -v : v) * scale, OffsetIn(Cell(mill_ ? column::X : column::Z)) * scale};
    arcRadius_ = SquareRoot(centre_.H * centre_.H + centre_.V * centre_.V);
}

const DrawProgram::CodeRule DrawProgram::rules[] = {
    {CodeOf("G00"), &DrawProgram::Rapid},        {CodeOf("G01"), &DrawProgram::Feed},
    {CodeOf("G02"), &DrawProgram::ArcG02},       {CodeOf("G03"), &DrawProgram::ArcG03},
    {CodeOf("M99"), &DrawProgram::ArcCentre},    {CodeOf("G22"), &DrawProgram::EndOfProgram},
    {CodeOf("M30"), &DrawProgram::EndOfProgram}, {CodeOf("G24"), &DrawProgram::RadiusMode},
    {CodeOf("G25"), &DrawProgram::Call},         {CodeOf("G27"), &DrawProgram::Jump},
    {CodeOf("G33"), &DrawProgram::Thread},       {CodeOf("G78"), &DrawProgram::ThreadingCycle},
    {CodeOf("G73"), &DrawProgram::Boring},       {CodeOf("G81"), &DrawProgram::Boring},
    {CodeOf("G82"), &DrawProgram::Boring},       {CodeOf("G83"), &DrawProgram::Boring},
    {CodeOf("G85"), &DrawProgram::Boring},       {CodeOf("G89"), &DrawProgram::Boring},
    {CodeOf("G84"), &DrawProgram::TurningCycle}, {CodeOf("G86"), &DrawProgram::TurningCycle},
    {CodeOf("G88"), &DrawProgram::TurningCycle}, {CodeOf("G72"), &DrawProgram::PocketCycle},
    {CodeOf("G90"), &DrawProgram::Absolute},     {CodeOf("G91"), &DrawProgram::Incremental},
    {CodeOf("G92"), &DrawProgram::SetRegister},  {CodeOf("M06"), &DrawProgram::ToolChange},
    {CodeOf("M17"), &DrawProgram::Return},
};

void DrawProgram::Dispatch() {
    if (code_ == 0) return;
    for (const CodeRule& rule : rules) {
        if (rule.Code == code_) return (this->*rule.Draw)();
    }
}

bool DrawProgram::EndOfLine() {
    if (state_.StepMode && pass_ == 1 && !state_.LeavesOutWait()) {
        controls_.frStepControls.Visible = true;
        controls_.cmdStep.Visible = true;
        controls_.cmdStep.Enabled = true;
        FocusStepButton();
        // A press before this wait does not count, but an aborted walk need not wait any more.
        if (!state_.StopRequested) state_.StepPressed = false;
        if (!state_.StepPressed) parts_.Sim.WaitFor(UserWait::Step);
        state_.StepPressed = false;
    }
    return !state_.StopRequested && !state_.Leaving();
}

// A user who works in the editor beside the drawing keeps the focus.
void DrawProgram::FocusStepButton() {
    FocusService& focus = shared_.Platform.Focus;
    const Control* const focused = focus.Focused();
    if (!focused || &focused->OwningForm() != &list_.OwningForm()) focus.SetFocus(controls_.cmdStep);
}

void DrawProgram::Wait() {
    if (pass_ == 1) parts_.Sim.WaitTimer();
}

bool DrawProgram::NextLineIsM99() const {
    return lineIndex_ < itemCount_ && CodeOfCell(list_.Row(lineIndex_ + 1)[column::Code]) == codeM99;
}

std::string_view DrawProgram::Cell(int column) const { return list_.Row(lineIndex_)[column]; }

}  // namespace kvt
