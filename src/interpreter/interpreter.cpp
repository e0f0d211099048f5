#include "interpreter/interpreter.h"

#include <cmath>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/stack_guard.h"
#include "interpreter/check_pass.h"

namespace kvt {

namespace {

constexpr int errorColumnWidth = 3885;

}  // namespace

ControlInterpreter::ControlInterpreter(ProgramStore& store, const Texts& texts, const CodeLists& lists,
                                       InterpreterControls& controls, ViewColumns& view,
                                       const TextBox& txtComment, Services& services, WorkbenchCalls& calls)
    : store_(store),
      texts_(texts),
      lists_(lists),
      controls_(controls),
      view_(view),
      txtComment_(txtComment),
      services_(services),
      calls_(calls) {
    controls_.cmdRun.OnClick = [this] { cmdRun_Click(); };
    controls_.cmdStep.OnClick = [this] { cmdStep_Click(); };
    controls_.cmdStop.OnClick = [this] { cmdStop_Click(); };
}

void ControlInterpreter::Interpreter() {
    // Whatever asks for a run but the Run button ends the steps; an error may have left the mode behind.
    if (store_.EditorRunMode && !runAsked_) LeaveRunMode();
    runAsked_ = false;
    // A step run that is asked for next, in the same wait, is one of its own.
    waiting_ = false;
    ++runs_;
    Run(calls_.Tell, "");

    store_.AbsoluteMode = false;
    store_.EndCodePresent = false;
    store_.ErrorFlagged = false;
    store_.ArcPresent = false;
    controls_.lblPPLinesExe.Caption = "xxx";
    store_.RadiusMode = store_.IsF1();
    if (store_.LineCount() < 1) {
        store_.lvCncProgram.SetHeaderWidth(ErrorHeader, 0);
        store_.ProgramChanged = false;
        store_.ArcPresent = false;
        ClearAxesProperties();
        RefreshLineCount();
        view_.MakeLinePropertiesColumns();
        controls_.lblPPMachineTime.Caption = "xx:xx:xx";
        controls_.lblPPLines.Caption = "0";
        return;
    }
    CheckPass(*this).Run();
}

void ControlInterpreter::Recheck() {
    const StackGuard guard(keepsComments_);
    Interpreter();
}

void ControlInterpreter::FlagError(int line) {
    if (store_.ErrorFlagged) return;
    ListView& list = store_.lvCncProgram;
    const int selected = list.SelectedRow();
    if (selected >= 1 && selected <= store_.LineCount()) {
        ListRow& row = list.Row(selected);
        for (int c = column::ToolX; c <= column::Time; ++c) row[c] = " xxxxx";
    }
    list.SetHeaderWidth(ErrorHeader, errorColumnWidth);
    view_.SetAutoWidth();
    list.SetHeaderText(ErrorHeader, texts_.ErrorHeaderText + " " + PlainNumber(line));
    store_.ErrorLine = static_cast<float>(line);
    store_.ErrorFlagged = true;
}

void ControlInterpreter::ClearAxesProperties() {
    InterpreterControls& c = controls_;
    for (Label* label : {&c.lblXAxisMin, &c.lblXAxisMax, &c.lblYAxisMin, &c.lblYAxisMax, &c.lblZAxisMin,
                         &c.lblZAxisMax, &c.lblXAxisTravel, &c.lblYAxisTravel, &c.lblZAxisTravel}) {
        label->Caption = "0";
    }
}

void ControlInterpreter::RefreshLineCount() {
    controls_.lblPPLines.Caption = PlainNumber(store_.LineCount());
}

void ControlInterpreter::cmdRun_Click() {
    if (store_.LineCount() < 1) {
        services_.Dialogs.ShowMessage(Notice(texts_.ErrorTexts(text::NoLines)));
        return;
    }
    store_.EditorRunMode = true;
    store_.StepGranted = false;
    runAsked_ = true;
    const bool hadFocus = services_.Focus.Focused() == &controls_.cmdRun;
    controls_.cmdRun.Visible = false;
    controls_.cmdStep.Visible = true;
    controls_.cmdStep.Enabled = true;
    controls_.cmdStop.Visible = true;
    if (hadFocus) services_.Focus.SetFocus(controls_.cmdStep);
    Interpreter();
}

void ControlInterpreter::cmdStep_Click() {
    controls_.cmdStop.Enabled = true;
    store_.StepGranted = true;
}

void ControlInterpreter::cmdStop_Click() {
    LeaveRunMode();
    Interpreter();
    Run(calls_.FirstFieldFocus, "");
}

void ControlInterpreter::EndStepRun() {
    if (waiting_) LeaveRunMode();
}

void ControlInterpreter::LeaveRunMode() {
    controls_.cmdRun.Visible = true;
    controls_.cmdStep.Enabled = true;
    store_.EditorRunMode = false;
}

std::string MakeTimeString(double seconds) {
    const double whole = std::round(seconds);
    const double hours = WholePart(whole / 3600);
    const double rest = whole - hours * 3600;
    const double minutes = WholePart(rest / 60);
    const double secondsLeft = rest - minutes * 60;
    // A dwell or a count of cuts below 0 counts backwards.
    if (whole < 0) return Format(hours, "00") + ":" + Format(minutes, "00") + ":" + Format(secondsLeft, "00");
    std::string time = Format(hours, "00") + ":00:00";
    const auto put = [&](std::size_t fromEnd, double part) {
        const auto number = static_cast<unsigned>(part);
        time[time.size() - fromEnd] = static_cast<char>('0' + number / 10);
        time[time.size() - fromEnd + 1] = static_cast<char>('0' + number % 10);
    };
    put(5, minutes);
    put(2, secondsLeft);
    return time;
}

}  // namespace kvt
