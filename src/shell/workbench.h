#pragma once

#include "draw/draw_window.h"
#include "editor/calculated_inputs.h"
#include "editor/code_choice.h"
#include "editor/conversion.h"
#include "editor/feed_presets.h"
#include "editor/find_window.h"
#include "editor/keyboard_entry.h"
#include "editor/line_operations.h"
#include "files/cnc_reader.h"
#include "files/cnc_writer.h"
#include "files/pre_processor.h"
#include "files/program_print.h"
#include "interpreter/view_options.h"
#include "program/machine_controls.h"
#include "shell/draw_settings.h"
#include "shell/error_log.h"
#include "shell/help_documents.h"
#include "shell/info_page.h"
#include "shell/language.h"
#include "shell/main_controls.h"
#include "shell/main_window.h"
#include "shell/printer_page.h"
#include "shell/recovery.h"
#include "shell/settings.h"
#include "transfer/receiver.h"
#include "transfer/transmitter.h"

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
    CalculatedInputs Calculated;
    LineOperations Lines;
    FeedPresets Feeds;
    FindWindow Find;
    Conversion Conversions;
    CodeChoice Codes;
    KeyboardEntry Keyboard;
    CncWriter Writer;
    CncReader Reader;
    TransferControls Transfer;
    PortControl Port;
    Transmitter Transmit;
    Receiver Received;
    DrawWindow Draw;
    PrinterPage Paper;
    InfoPage Info;
    HelpDocuments Help;
    ProgramPrint Print;
    PreProcessor Import;
    MainWindow Window;
    ModuleLoader Modules;
    EditorSettings Settings;
    DrawSettings SettingsOfDrawing;
    Recovery Kept;

    // All windows, the main one first.
    std::vector<Form*> Forms() {
        return {&frmMain, &Draw.Controls.frmDraw, &Draw.Listing.frmProgramWindow, &Find.frmFind,
                &Import.Window.frmPreProcessor};
    }

    // Starts the workbench; see MainWindow.
    void Form_Load(std::string_view commandLine) { Window.Form_Load(commandLine); }
    // Leaves all overlays and returns to the editor view.
    void cmdReturn_Click();
    // Asks about unsaved changes, then empties the program, its names and its notes.
    void ClearProgram_Click();
    // The name of the machine in force, as its option has it.
    void ShowMachineName();
    // Applies the machine and its units to the window.
    void RefreshMachine();
    // The code lists of the machine, and no others.
    void ShowCodeLists();
    // Freezes the window (0) or frees it (1), but for the stop of a transmission.
    void ControlsEnable(int enable);
    bool ControlsOn = true;
    // Tells, once in a run, that what is to outlive it cannot be written.
    void TellUnkept();

private:
    void FillCalls();
    void PlaceInFrames();
    void OrderTabs();

    bool unkeptTold_ = false;
    // What ControlsEnable works on.
    std::vector<Control*> frozenControls_;
};

}  // namespace kvt
