#include "interpreter/check_pass.h"

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "interpreter/control_commands.h"
#include "program/result_cells.h"
#include "program/word.h"

namespace kvt {

namespace {

// In the tool columns of a row: it has not run yet.
constexpr std::string_view notExecuted = "     ?";

}  // namespace

CheckPass::CheckPass(ControlInterpreter& interpreter)
    : interpreter_(interpreter),
      store_(interpreter.store_),
      list_(interpreter.store_.lvCncProgram),
      texts_(interpreter.texts_),
      checks_(interpreter.store_, interpreter.texts_),
      run_(interpreter.runs_),
      mk2_(interpreter.store_.IsMK2()),
      mill_(interpreter.store_.IsF1()) {}

void CheckPass::Run() {
    selectedRow_ = list_.SelectedRow();
    store_.LastPass = store_.PassNow();
    store_.ErrorRow = 0;
    Pass1();
    Pass2();
}

// Every row in order, without following any jump.
void CheckPass::Pass1() {
    const int lines = store_.LineCount();
    for (int row = 1; row <= lines; ++row) {
        itemRow_ = row_ = row;
        item_ = &list_.Row(row);
        ListRow& item = *item_;
        ClearResultCells(item);
        for (const int c : {column::ToolX, column::ToolY, column::ToolZ}) item[c] = notExecuted;
        key_ = KeyOf(item[column::Code]);
        ReadValues();
        // Only the word is looked at here; the drawing obeys it.
        if (ControlCommandOf(item[column::Comment]) == ControlCommand::Unknown) {
            ReportFinding(texts_.ProgramErrorTexts(text::UnknownControlCommand));
        }
        if (key_ == code::G22 || key_ == code::M30) store_.EndCodePresent = true;
        const std::string finding = checks_.Message(key_, raw_);
        if (!finding.empty()) ReportFinding(finding);
    }
}

// The program as the control runs it.
void CheckPass::Pass2() {
    store_.ActivePlane.clear();
    row_ = 0;
    Next next = Next::GoOn;
    while (next == Next::GoOn && row_ < store_.LineCount()) next = Step();
    if (next == Next::Abandoned) return;
    ShowProgress();
    if (next == Next::GoOn) FinishRun();
    interpreter_.RefreshLineCount();
    list_.RowsChanged();
}

// One row. The order of the steps is the rule: each works on what those in front of it have left, and a finding
// that ends the run leaves out those behind it.
CheckPass::Next CheckPass::Step() {
    // TAKE THE ROW: a jump has put row_ in front of it.
    itemRow_ = ++row_;
    item_ = &list_.Row(itemRow_);
    comment_.clear();
    // No program of these machines runs that long; nested calls could go on for ever.
    if (linesExecuted_ >= MaxExecutedLines) return EndWith(text::TooManyLines);

    // WAIT: stepping through the program, the user grants each row. Other handlers run in here.
    if (store_.EditorRunMode) {
        const Next next = WaitForStep();
        if (next != Next::GoOn) return next;
        item_ = &list_.Row(itemRow_);
    }

    // READ THE CELLS. A line that the drawing skips is checked like any other: the machine runs it.
    key_ = KeyOf((*item_)[column::Code]);
    ReadValues();
    ReadTargets();

    // MOVE, then the rule of the code itself: flow, modes, arcs, position.
    WorkOutMove();
    Next next = Next::GoOn;
    Attempt(interpreterName, [&] { next = ApplyKey(); });
    if (next != Next::GoOn) return next;

    // ARC CENTRE: what an M99 has found out about the arc in front of it.
    if (quadrantFlag_) return EndWith(text::OneQuadrantMax);
    if (invalidArcFlag_) return EndWith(text::InvalidArc);

    // MODES of the next row: a radius is never halved.
    if (store_.RadiusMode) xFactor_ = 1;
    item_->ForeColor = store_.AbsoluteMode ? store_.AbsColor : store_.IncrColor;

    // POSITION: the axes have seen the far end of a cycle before the tool is back at its start.
    UpdateAxes();
    RestorePosition();
    WriteToolCells();

    // CYCLES: the MK2 has no division of cut.
    if (!mk2_) Attempt(interpreterName, [&] { next = CountRepeats(); });
    if (next != Next::GoOn) return next;

    // MEMORY for later rows: arcs make columns visible, a tool change brings its radius.
    if (key_ == code::G02 || key_ == code::G03) store_.ArcPresent = true;
    if (key_ == code::M06) ChangeTool();

    // TIME: an overflow leaves the row without one.
    ++linesExecuted_;
    WriteTime();

    // LINE CAP: found on the last row that runs, which an end code has made of its own one.
    if (row_ == list_.Count() - 1 && store_.LineCount() > store_.MaxLines() && !store_.DisableLimitsCheck) {
        ReportFinding(texts_.ErrorTexts(text::MaximumLines));
    }

    // COMMENT: that of a cycle, where it has changed.
    Cell& comment = (*item_)[column::Comment];
    if (!comment_.empty() && !(comment == comment_)) comment = comment_;
    return Next::GoOn;
}

CheckPass::Next CheckPass::WaitForStep() {
    ShowProgress();
    list_.EnsureVisible(itemRow_);
    list_.Select(itemRow_);
    list_.RowsChanged();
    while (!store_.StepGranted) {
        interpreter_.waiting_ = true;
        const bool alive = interpreter_.services_.System.DoEvents();
        interpreter_.waiting_ = false;
        // Another run has gone through, or the mode was left: this pass is given up.
        if (interpreter_.runs_ != run_) return Next::Abandoned;
        if (!alive) interpreter_.LeaveRunMode();
        if (!store_.EditorRunMode || itemRow_ > list_.Count()) return Next::Abandoned;
    }
    store_.StepGranted = false;
    return Next::GoOn;
}

void CheckPass::ReadValues() {
    const ListRow& item = *item_;
    // A parameter cell is too short for a number past the range; a longer one keeps the values of the row before.
    Attempt(interpreterName, [&] {
        const Word x = ReadWord(item[column::X]);
        const Word y = ReadWord(item[column::Y]);
        const Word z = ReadWord(item[column::Z]);
        raw_.X = x.Value;
        raw_.Y = y.Value;
        raw_.Z = z.Value;
        xNumber_ = x.Number;
        yNumber_ = y.Number;
        zNumber_ = z.Number;
        raw_.F = ReadWord(item[column::F]).Value;
        raw_.H = ReadWord(item[column::H]).Value;
    });
}

// D of the tool change: the last four characters of its cell.
void CheckPass::ChangeTool() {
    toolFound_ = true;
    Attempt(interpreterName, [&] { toolRadius_ = static_cast<float>(Val(Right((*item_)[column::X], 4))); });
}

void CheckPass::WriteTime() {
    float time = 0;
    Attempt(interpreterName, [&] { time = static_cast<float>(TimeOfLine()); });
    if (time > 0) {
        (*item_)[column::Time] = MakeTimeString(time);
    } else {
        (*item_)[column::Time] = BlankTime;
    }
    totalTime_ += time;
}

void CheckPass::ReadTargets() {
    xTarget_ = static_cast<float>(xNumber_ * xFactor_);
    yTarget_ = static_cast<float>(yNumber_);
    zTarget_ = static_cast<float>(zNumber_);
    repeats_ = 0;
    quadrantFlag_ = false;
    invalidArcFlag_ = false;
}

CheckPass::Next CheckPass::ApplyKey() {
    switch (key_) {
        case code::G00:
        case code::G73:
        case code::G78:
        case code::G81:
        case code::G82:
        case code::G83:
        case code::G84:
        case code::G85:
        case code::G86:
        case code::G88:
        case code::G89: ApplyMove(); break;
        case code::G72: return Pocket();
        case code::G01:
            ApplyMove();
            LineAngle();
            break;
        case code::G02:
        case code::G03: return Arc();
        case code::G24:
            if (store_.AbsoluteMode) return EndWith(text::G24BeforeG90);
            store_.RadiusMode = true;
            break;
        case code::G25: return SubroutineCall();
        case code::G27: return Jump();
        case code::M17: return Return();
        case code::G22:
        case code::M30: EndOfProgram(); break;
        case code::G33: ThreadMove(); break;
        case code::G45:
        case code::G46:
        case code::G47:
        case code::G48: MustFollowToolChange(); break;
        case code::G90:
            store_.AbsoluteMode = true;
            xFactor_ = diameterFactor;
            break;
        case code::G91:
            store_.AbsoluteMode = false;
            xFactor_ = 1;
            break;
        case code::G92: SetRegister(); break;
        case code::M99: return ArcCenterLine();
        case code::M99R: return ArcRadiusLine();
        default: break;
    }
    return Next::GoOn;
}

void CheckPass::ReportFinding(std::string_view finding) {
    (*item_)[column::Error] = finding;
    store_.ErrorRow = row_;
    interpreter_.FlagError(store_.ErrorRow - 1);
}

CheckPass::Next CheckPass::EndWith(ProgramErrorText finding) {
    ReportFinding(texts_.ProgramErrorTexts(finding));
    return Next::EndRun;
}

void CheckPass::ShowProgress() {
    InterpreterControls& c = interpreter_.controls_;
    if (linesExecuted_ > 0) c.lblPPLinesExe.Caption = PlainNumber(linesExecuted_);
    if (!axesKnown_ || !axesStale_) return;
    axesStale_ = false;
    const auto show = [](const Range& range, Label& min, Label& max, Label& travel) {
        min.Caption = PlainNumber(range.Min);
        max.Caption = PlainNumber(range.Max);
        travel.Caption = PlainNumber(range.Max - range.Min);
    };
    show(xRange_, c.lblXAxisMin, c.lblXAxisMax, c.lblXAxisTravel);
    show(yRange_, c.lblYAxisMin, c.lblYAxisMax, c.lblYAxisTravel);
    show(zRange_, c.lblZAxisMin, c.lblZAxisMax, c.lblZAxisTravel);
}

// The end of a run that no flow error has ended.
void CheckPass::FinishRun() {
    Attempt(interpreterName, [&] { list_.Select(selectedRow_); });
    store_.EditorRunMode = false;
    interpreter_.controls_.cmdStep.Enabled = false;
    interpreter_.controls_.cmdStop.Enabled = true;
    if (store_.ErrorRow == 0) list_.SetHeaderWidth(ErrorHeader, 0);
    interpreter_.controls_.lblPPMachineTime.Caption = MakeTimeString(totalTime_);
    interpreter_.RefreshLineCount();
    interpreter_.view_.MakeLinePropertiesColumns();
    interpreter_.view_.SetAutoWidth();
}

}  // namespace kvt
