#pragma once

#include "editor/field_layout.h"
#include "interpreter/interpreter.h"

namespace kvt {

// Choosing a code: from a code list by a click, or by opening a line of the program.
class CodeChoice {
public:
    struct Parts {
        EntryRow& Entry;
        FieldLayout& Layout;
        ProgramStore& Store;
        CodeLists& Lists;
        const ViewColumns& View;
        ControlInterpreter& Interpreter;
        Services& Platform;
        WorkbenchCalls& Calls;
    };
    explicit CodeChoice(Parts parts);

    void lstMK2Gcodes_Click() { ListClick(parts_.Lists.lstMK2Gcodes, nullptr, "G"); }
    void lstMK4Gcodes_Click() { ListClick(parts_.Lists.lstMK4Gcodes, &parts_.Lists.lstMK4Mcodes, "G"); }
    void lstMK4Mcodes_Click() { ListClick(parts_.Lists.lstMK4Mcodes, &parts_.Lists.lstMK4Gcodes, "M"); }
    void lstF1Gcodes_Click() { ListClick(parts_.Lists.lstF1Gcodes, &parts_.Lists.lstF1Mcodes, "G"); }
    void lstF1Mcodes_Click() { ListClick(parts_.Lists.lstF1Mcodes, &parts_.Lists.lstF1Gcodes, "M"); }

    // Opens the selected line in the entry row. Nothing during a transmission or a step run.
    void lvCncProgram_Click();
    // A click on the header of the error column opens the line that it names.
    void lvCncProgram_ColumnClick(int header);

    // The list of the machine and the mode ("G" or "M"); MK2 has its G list in either mode.
    ListBox& ListOf(std::string_view mode);

private:
    void ListClick(ListBox& list, ListBox* other, const char* mode);

    Parts parts_;
};

}  // namespace kvt
