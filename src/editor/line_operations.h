#pragma once

#include "editor/calculated_inputs.h"
#include "editor/field_layout.h"
#include "interpreter/interpreter.h"
#include "interpreter/view_columns.h"
#include "program/workbench_calls.h"

namespace kvt {

// What changes a line of the program. Each operation runs the check pass and restores the open line "NN".
class LineOperations {
public:
    struct Parts {
        EntryRow& Entry;
        FieldLayout& Layout;
        ProgramStore& Store;
        const ViewColumns& View;
        ControlInterpreter& Interpreter;
        CalculatedInputs& Calculated;
        const Texts& Language;
        Services& Platform;
        WorkbenchCalls& Calls;
    };
    explicit LineOperations(Parts parts);

    // Puts an empty G21 line in front of the selected one; refused at the line cap.
    void LineInsert();
    // Removes the selected line, after a question unless that is switched off. The open line stays.
    void LineDelete();
    // Writes the entry fields into whichever row is selected at this moment.
    void LineEdit();
    // Writes columns 1 and 3 to 7 of the selected row from the fields.
    void FormatInputs();

private:
    ListRow& SelectedRow();
    void ShowList();
    // Gives a column of the selected row the cell of the line that was opened.
    void KeepOpenedCell(int column);
    // Refuses the first value that its cell can't hold. False where there is one; the line is not written then.
    bool AllValuesFit();
    // Numbers the rows from one on by their places.
    void Renumber(int firstRow);
    // Moves the pointers of all lines but those whose comment forbids it: from the line number bound on, by
    // step.
    void MovePointers(int bound, int step);

    EntryRow& entry_;
    FieldLayout& layout_;
    ProgramStore& store_;
    const ViewColumns& view_;
    ControlInterpreter& interpreter_;
    CalculatedInputs& calculated_;
    const Texts& texts_;
    Services& platform_;
    WorkbenchCalls& calls_;
};

}  // namespace kvt
