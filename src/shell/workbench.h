#pragma once

#include "draw/draw_window.h"
#include "editor/calculated_inputs.h"
#include "editor/code_choice.h"
#include "editor/conversion.h"
#include "editor/entry_target.h"
#include "editor/feed_presets.h"
#include "editor/find_window.h"
#include "editor/keyboard_entry.h"
#include "editor/line_operations.h"
#include "files/cnc_reader.h"
#include "files/cnc_writer.h"
#include "files/pre_processor.h"
#include "files/program_history.h"
#include "files/program_print.h"
#include "interpreter/view_options.h"
#include "program/machine_controls.h"
#include "shell/beside.h"
#include "shell/built_in_values.h"
#include "shell/draw_settings.h"
#include "shell/edit_lock.h"
#include "shell/error_log.h"
#include "shell/finding_guide.h"
#include "shell/grey_reasons.h"
#include "shell/help_documents.h"
#include "shell/info_page.h"
#include "shell/language.h"
#include "shell/language_menu.h"
#include "shell/layout.h"
#include "shell/machine_display.h"
#include "shell/main_controls.h"
#include "shell/menu_states.h"
#include "shell/overlays.h"
#include "shell/printer_page.h"
#include "shell/program_clearing.h"
#include "shell/recent_files.h"
#include "shell/recovery.h"
#include "shell/restored_program.h"
#include "shell/sample_menu.h"
#include "shell/settings.h"
#include "shell/settings_keys.h"
#include "shell/settings_reset.h"
#include "shell/undoing.h"
#include "shell/user_data.h"
#include "shell/window_modes.h"
#include "shell/window_size.h"
#include "transfer/receiver.h"
#include "transfer/transmitter.h"

namespace kvt {

// Puts the rooms together on one half of the platform: gives each of them what it needs, leads menus, buttons and keys
// to what they do, and is the start and the one way out. Console and tests get at the rooms here.
class Workbench {
public:
    explicit Workbench(Services& services);
    ~Workbench();
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

private:
    CalculatedInputs calculated_;

public:
    LineOperations Lines;

private:
    FeedPresets feeds_;

public:
    FindWindow Find;

private:
    Conversion conversions_;

public:
    CodeChoice Codes;

private:
    KeyboardEntry keyboard_;

public:
    ProgramHistory History;
    CncWriter Writer;
    CncReader Reader;
    TransferControls Transfer;
    PortControl Port;
    Transmitter Transmit;
    Receiver Received;
    DrawWindow Draw;

private:
    UserData data_;
    LastFile lastFile_;
    PrinterPage paper_;
    InfoPage info_;

public:
    HelpDocuments Help;

private:
    ProgramPrint print_;

public:
    PreProcessor Import;
    LanguageMenu Languages;

private:
    ControlTable table_;
    MainLayout positions_;

public:
    MachineDisplay Display;
    WindowModes Modes;

private:
    WindowSize size_;
    EntryTarget target_;
    MenuStates states_;
    Overlays overlays_;
    EditLock lock_;
    RestoredProgram restored_;
    Undoing undoing_;
    ProgramClearing clearing_;

public:
    ModuleLoader Modules;

private:
    Beside beside_;
    BuiltInValues builtIn_;
    EditorSettings settings_;
    SettingsReset reset_;
    DrawSettings drawSettings_;
    Recovery recovery_;
    RecentFiles recent_;
    SampleMenu samples_;
    FindingGuide findings_;
    GreyReasons greys_;

public:
    // All windows, the main one first.
    std::vector<Form*> Forms() {
        return {&frmMain, &Draw.Controls.frmDraw, &Draw.Listing.frmProgramWindow, &Find.frmFind,
                &Import.Window.frmPreProcessor};
    }
    // Starts the workbench with the text of the command line: folders, settings, the file that is named there,
    // layout, and the focus on the code field.
    void Form_Load(std::string_view commandLine);
    // Writes the settings as the way out does, and what is not saved, where the program may go without taking it.
    void KeepSettings();
    // Leaves those out of the recent files that can no longer be had.
    void ForgetFiles(const std::function<bool(const std::string& path)>& isGone) { recent_.LeaveOut(isGone); }
    // Whether a program is being sent, or received.
    bool LineIsUsed() const { return lock_.ByTransfer(); }
    // Whether the way out has been taken; a question about unsaved changes may still be open.
    bool Ending() const { return ended_; }

private:
    void FillCalls();
    void WireWindow();
    void WireMenus();
    void WireButtons();
    void WireOptions();
    void WireReset();
    void WireKeys();
    void WireDrawing();
    void WireTransfer();
    void WireNotices();
    // Makes a handler of a user's edit do nothing while a transfer locks the program.
    template <class... Arguments>
    void UnlessHeld(std::function<void(Arguments...)>& handler);

    void Form_Activate();
    void tmr1sec_Timer();
    // Behind every handler: what shows the state that handlers change.
    void Handled();
    // The texts of the windows are those of another language.
    void ShowTexts();
    // The title: the file's name, and a mark while the program has changed.
    void RefreshTitle();
    void OpenFile(std::string name);
    // Prints when a drawing that is under way has ended; without the dialog if it is to be direct.
    void PrintAfterWalk(bool direct);
    // Brings the paths on the info page up to date.
    void ShowPaths();
    void ChooseMachine(MachineModel machine);
    void ChooseUnits(Units units);
    void ChooseUnits(Units units, bool horizontal);
    // Asks for one of the mode colours, and colours the lines with it.
    void ChooseColor(Color& color);
    void txtFileNotes_KeyPress(int& character);
    void mnuCalculator_Click();
    void mnuDraw_Click();
    void ShowEditor();
    // Opens a row of the list from another window, as a click on it does; nothing where that could not be clicked.
    void OpenRow(int row);

    void FindFolders();
    // Reads the fonts of the printer. A machine without one ends the program; false then.
    bool FindPrinter();
    // Tells that there is no printer, and ends.
    void EndWithoutPrinter();
    void mnuExit_Click();

    bool ended_ = false;
};

}  // namespace kvt
