#include "interpreter/check_pass.h"

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "interpreter/control_commands.h"
#include "program/word.h"

namespace kvt {

CheckPass::CheckPass(ControlInterpreter& room)
    : room_(room),
      store_(room.store_),
      list_(room.store_.lvCncProgram),
      texts_(room.texts_),
      checks_(room.store_, room.texts_),
      run_(room.runs_),
      mk2_(room.store_.IsMK2()),
      mill_(room.store_.IsF1()) {}

void CheckPass::Run() {
    selectedRow_ = list_.SelectedRow();
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
        // 1. Clear the result cells. The "?" tells that pass 2 has not been here.
        item[column::Error] = "               ";
        for (const int c : {column::ToolX, column::ToolY, column::ToolZ}) item[c] = "     ?";
        for (const int c : {column::CenterX, column::CenterY, column::CenterZ, column::Radius})
            item[c] = "      ";
        item[column::Angle] = "   ";
        item[column::Time] = "        ";
        // 2.
        key_ = KeyOf(item[column::Code]);
        ReadValues();
        // 3. Only the word is looked at here; the drawing obeys it.
        if (ControlCommandOf(item[column::Comment]) == ControlCommand::Unknown) {
            Find(texts_.ProgramErrorTexts(text::UnknownControlCommand));
        }
        // 4.
        if (key_ == code::G22 || key_ == code::M30) store_.EndCodePresent = true;
        // 5., 6.
        const std::string message = checks_.Message(key_, raw_);
        if (!message.empty()) Find(message);
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
    room_.RefreshLineCount();
    list_.RowsChanged();
}

CheckPass::Next CheckPass::Step() {
    // 1.
    itemRow_ = ++row_;
    // No program of these machines runs that long; nested calls could go on for ever.
    item_ = &list_.Row(itemRow_);
    if (linesExecuted_ >= MaxExecutedLines) {
        EndWith(text::TooManyLines);
        return Next::EndRun;
    }
    // 2.
    comment_.clear();
    // 3.
    if (store_.EditorRunMode) {
        const Next next = WaitForStep();
        if (next != Next::GoOn) return next;
    }
    item_ = &list_.Row(itemRow_);
    // 4.
    key_ = KeyOf((*item_)[column::Code]);
    ReadValues();
    // 5.
    ReadTargets();
    // 6. A line that the drawing skips is walked and checked like any other: deliberate.
    // 7.
    WorkOutMove();
    bool ends = false;
    Attempt(interpreterName, [&] { ends = ApplyKey(); });
    if (ends) return Next::EndRun;
    // 8.
    if (quadrantFlag_ || invalidArcFlag_) {
        EndWith(quadrantFlag_ ? text::OneQuadrantMax : text::InvalidArc);
        return Next::EndRun;
    }
    // 9.
    if (store_.RadiusMode) xFactor_ = 1;
    // 10.
    item_->ForeColor = store_.AbsoluteMode ? store_.AbsColor : store_.IncrColor;
    // 11.
    UpdateAxes();
    // 12.
    RestorePosition();
    WriteToolCells();
    // 13.
    if (!mk2_) Attempt(interpreterName, [&] { ends = CountRepeats(); });
    if (ends) return Next::EndRun;
    // 14.
    if (key_ == code::G02 || key_ == code::G03) store_.ArcPresent = true;
    if (key_ == code::M06) {
        toolFound_ = true;
        Attempt(interpreterName,
                [&] { toolRadius_ = static_cast<float>(Val(Right((*item_)[column::X], 4))); });
    }
    // 15.
    ++linesExecuted_;
    float time = 0;
    Attempt(interpreterName, [&] { time = static_cast<float>(TimeOfLine()); });
    if (time > 0) {
        (*item_)[column::Time] = MakeTimeString(time);
    } else {
        (*item_)[column::Time] = "        ";
    }
    totalTime_ += time;
    // 16.
    if (row_ == list_.Count() - 1 && store_.LineCount() > store_.MaxLines() && !store_.DisableLimitsCheck) {
        Find(texts_.ErrorTexts(text::MaximumLines));
    }
    // 17.
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
        room_.waiting_ = true;
        const bool alive = room_.services_.System.DoEvents();
        room_.waiting_ = false;
        // Another run has gone through, or the mode was left: this pass is given up.
        if (room_.runs_ != run_) return Next::Abandoned;
        if (!alive) room_.LeaveRunMode();
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

void CheckPass::ReadTargets() {
    xTarget_ = static_cast<float>(xNumber_ * xFactor_);
    yTarget_ = static_cast<float>(yNumber_);
    zTarget_ = static_cast<float>(zNumber_);
    repeats_ = 0;
    quadrantFlag_ = false;
    invalidArcFlag_ = false;
}

bool CheckPass::ApplyKey() {
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
        case code::G89: ApplyMove(); return false;
        case code::G72:
            MustFollowToolChange();
            if (PocketTooSmall()) return true;
            ApplyMove();
            return false;
        case code::G01:
            ApplyMove();
            LineAngle();
            return false;
        case code::G02:
        case code::G03: return Arc();
        case code::G24:
            if (store_.AbsoluteMode) return EndWith(text::G24BeforeG90);
            store_.RadiusMode = true;
            return false;
        case code::G25: return SubroutineCall();
        case code::G27: return Jump();
        case code::M17: return Return();
        case code::G22:
        case code::M30: EndOfProgram(); return false;
        case code::G33: ThreadMove(); return false;
        case code::G45:
        case code::G46:
        case code::G47:
        case code::G48: MustFollowToolChange(); return false;
        case code::G90:
            store_.AbsoluteMode = true;
            xFactor_ = 0.5F;
            return false;
        case code::G91:
            store_.AbsoluteMode = false;
            xFactor_ = 1;
            return false;
        case code::G92: SetRegister(); return false;
        case code::M99: return ArcCenterLine(false);
        case code::M99R: return ArcCenterLine(true);
        default: return false;
    }
}

void CheckPass::Find(std::string_view message) {
    (*item_)[column::Error] = message;
    store_.ErrorRow = row_;
    room_.FlagError(store_.ErrorRow - 1);
}

bool CheckPass::EndWith(int programError) {
    Find(texts_.ProgramErrorTexts(programError));
    return true;
}

void CheckPass::ShowProgress() {
    InterpreterControls& c = room_.controls_;
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
    room_.controls_.cmdStep.Enabled = false;
    room_.controls_.cmdStop.Enabled = true;
    if (store_.ErrorRow == 0) list_.SetHeaderWidth(ErrorHeader, 0);
    room_.controls_.lblPPMachineTime.Caption = MakeTimeString(totalTime_);
    room_.RefreshLineCount();
    room_.view_.MakeLinePropertiesColumns();
    room_.view_.SetAutoWidth();
}

}  // namespace kvt
