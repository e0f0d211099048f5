#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "program/workbench_calls.h"

namespace kvt {

// What a user has done to the program, so far as it can be taken back.
enum class StepKind : std::uint8_t {
    LineChanged,
    LineAdded,
    LineInserted,
    LineDeleted,
    Notes,
    Units,
    Conversion,
    Feeds,
    CommentsDeleted,
    CodeComments,
    // From here on the program is replaced by another one.
    New,
    Machine,
    Opened,
    Imported,
    Received,
    Clipboard,
};

constexpr bool ReplacesProgram(StepKind kind) { return kind >= StepKind::New; }

// What is to be told of a step: what was done, and the number of the line that it was done to.
struct StepName {
    StepKind Kind = StepKind::LineChanged;
    int Line = 0;
};

// While one lives, all that changes the program is one step, to be taken back in one go. They nest: the outermost names
// the step.
class EditStep {
public:
    EditStep(WorkbenchCalls& calls, StepName name) : calls_(calls) { Run(calls_.BeginStep, name); }
    ~EditStep() { Run(calls_.EndStep); }
    EditStep(const EditStep&) = delete;
    EditStep& operator=(const EditStep&) = delete;

private:
    WorkbenchCalls& calls_;
};

}  // namespace kvt
