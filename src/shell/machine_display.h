#pragma once

#include "editor/entry_row.h"
#include "files/pre_processor.h"
#include "interpreter/view_columns.h"
#include "program/code_tables.h"
#include "program/machine_controls.h"
#include "program/workbench_calls.h"
#include "shell/main_controls.h"

namespace kvt {

// Shows in the main window which machine is in force.
class MachineDisplay {
public:
    struct Parts {
        const ProgramStore& Store;
        MachineControls& Machine;
        CodeLists& Lists;
        ViewColumns& View;
        EntryRow& Entry;
        MainControls& Main;
        PreProcessor& Import;
        WorkbenchCalls& Calls;
    };
    explicit MachineDisplay(const Parts& parts) : parts_(parts) {}

    // Applies the machine and its units to the window.
    void RefreshMachine();
    // The same with units and code lists, where another program has brought its own.
    void ShowOtherMachine();
    // The columns of the rows, as their boxes say.
    void ShowColumns();
    // The code lists of the machine, and no others.
    void ShowCodeLists();
    // The name of the machine, as its option has it.
    void ShowMachineName();

private:
    Parts parts_;
};

}  // namespace kvt
