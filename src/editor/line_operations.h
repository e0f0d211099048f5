#pragma once

#include "editor/field_layout.h"
#include "interpreter/interpreter.h"
#include "interpreter/view_columns.h"
#include "program/workbench_calls.h"

namespace kvt {

// What changes a line of the program. Each operation runs the check pass and restores the open line "NN".
class LineOperations {
public:
    LineOperations(EntryRow& entry, FieldLayout& layout, ProgramStore& store, const ViewColumns& view,
                   ControlInterpreter& interpreter, FocusService& focus, WorkbenchCalls& calls);

    // Writes the entry fields into whichever row is selected at this moment.
    void LineEdit();
    // Writes columns 1 and 3 to 7 of the selected row from the fields.
    void FormatInputs();

private:
    ListRow& SelectedRow();

    EntryRow& entry_;
    FieldLayout& layout_;
    ProgramStore& store_;
    const ViewColumns& view_;
    ControlInterpreter& interpreter_;
    FocusService& focus_;
    WorkbenchCalls& calls_;
};

}  // namespace kvt
