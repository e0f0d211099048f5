#pragma once

#include "editor/field_layout.h"
#include "files/program_history.h"
#include "interpreter/interpreter.h"
#include "shell/machine_display.h"
#include "shell/menu_states.h"

namespace kvt {

// How the window shows a program that undo or redo has brought back.
class RestoredProgram {
public:
    struct Parts {
        ProgramStore& Store;
        ProgramHistory& History;
        EntryRow& Entry;
        FieldLayout& Layout;
        CodeLists& Lists;
        ControlInterpreter& Interpreter;
        MachineDisplay& Display;
        MenuStates& States;
        FocusService& Focus;
        WorkbenchCalls& Calls;
    };
    explicit RestoredProgram(const Parts& parts) : parts_(parts) {}

    void Show(const ProgramHistory::Move& move);

private:
    void ShowRows(const ProgramHistory::Place& place);

    Parts parts_;
};

}  // namespace kvt
