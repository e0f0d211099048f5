#pragma once

#include "draw/editor_line.h"
#include "editor/field_layout.h"
#include "files/file_controls.h"
#include "interpreter/interpreter.h"
#include "shell/machine_display.h"

namespace kvt {

// The way to an empty program.
class ProgramClearing {
public:
    struct Parts {
        ProgramStore& Store;
        FieldLayout& Layout;
        FileControls& File;
        CodeLists& Lists;
        ControlInterpreter& Interpreter;
        EditorLine& DrawnLine;
        MachineDisplay& Display;
        const Texts& Language;
        DialogService& Dialogs;
        WorkbenchCalls& Calls;
    };
    explicit ProgramClearing(const Parts& parts) : parts_(parts) {}

    // Asks about unsaved changes, then empties the program, its names and its notes. The list has no line then.
    void ClearProgram_Click();
    // The same, with the line that awaits the first code.
    void mnuNew_Click();

private:
    bool MayClear();
    void Empty();

    Parts parts_;
};

}  // namespace kvt
