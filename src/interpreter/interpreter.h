#pragma once

#include <string>

#include "interpreter/interpreter_controls.h"
#include "interpreter/view_columns.h"
#include "program/code_tables.h"
#include "program/texts.h"
#include "program/workbench_calls.h"

namespace kvt {

// A run that has executed this many lines is ended with a finding: nested calls can multiply without end.
inline constexpr int MaxExecutedLines = 1'000'000;

// The check pass and what belongs to it. A run checks the whole program as the control would and rewrites the
// result columns of every row; it always ends.
class ControlInterpreter {
public:
    ControlInterpreter(ProgramStore& store, const Texts& texts, const CodeLists& lists,
                       InterpreterControls& controls, ViewColumns& view, const TextBox& txtComment,
                       Services& services, WorkbenchCalls& calls);

    // One run: pass 1 over every row, then pass 2 along the program's flow. In EditorRunMode pass 2 waits
    // before each row for StepGranted. A run asked for in that wait ends the mode, and the pass that waited is
    // given up when it gets control again.
    void Interpreter();
    // The same for a program that has come back: no cycle gets a comment.
    void Recheck();

    // Names the first error of a run in the header of the error column; line is the line number N.
    void FlagError(int line);
    void ClearAxesProperties();
    void RefreshLineCount();

    void cmdRun_Click();
    void cmdStep_Click();
    void cmdStop_Click();
    // Leaves a step run that waits, as cmdStop does, without a new run. Nothing where none waits.
    void EndStepRun();

private:
    friend class CheckPass;

    void LeaveRunMode();

    ProgramStore& store_;
    const Texts& texts_;
    const CodeLists& lists_;
    InterpreterControls& controls_;
    ViewColumns& view_;
    const TextBox& txtComment_;
    Services& services_;
    WorkbenchCalls& calls_;
    // Counts runs, so that a pass which waited sees that another one has gone through.
    long runs_ = 0;
    bool waiting_ = false;
    // The Run button has asked for the next run.
    bool runAsked_ = false;
    bool keepsComments_ = false;
};

// "HH:MM:SS" of seconds, rounded to whole ones; hours above 99 widen the text.
std::string MakeTimeString(double seconds);

}  // namespace kvt
