#pragma once

#include "editor/line_operations.h"
#include "files/cnc_reader.h"
#include "files/cnc_writer.h"
#include "interpreter/view_options.h"
#include "program/machine_controls.h"
#include "shell/error_log.h"
#include "shell/main_controls.h"

namespace kvt {

// The whole workbench: the main window with all rooms, wired together. It stands on one half of the platform.
class Workbench {
public:
    explicit Workbench(Services& services);
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;

    Services& Platform;
    ErrorLog Log;
    WorkbenchCalls Calls;
    Texts Language;

    Form frmMain;
    MainControls Main;
    ProgramStore Store;
    CodeLists Lists;
    MachineControls Machine;
    InterpreterControls Results;
    EntryRow Entry;
    FileControls File;
    ViewColumns View;
    ControlInterpreter Interpreter;
    ViewOptions Options;
    FieldLayout Layout;
    LineOperations Lines;
    CncWriter Writer;
    CncReader Reader;

    // Leaves all overlays and returns to the editor view.
    void cmdReturn_Click();
    // Asks about unsaved changes, then empties the program, its names and its notes.
    void ClearProgram_Click();
    // Applies the machine and its units to the window.
    void RefreshMachine();
    // Freezes the window (0) or frees it (1), but for the stop of a transmission.
    void ControlsEnable(int enable);
    bool ControlsOn = true;

private:
    void FillCalls();
    void PlaceInFrames();
    void ShowCodeLists();

    // What ControlsEnable works on.
    std::vector<Control*> frozenControls_;
};

}  // namespace kvt
