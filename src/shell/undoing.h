#pragma once

#include "draw/draw_window.h"
#include "editor/field_layout.h"
#include "files/program_history.h"
#include "shell/machine_display.h"
#include "shell/menu_states.h"
#include "shell/window_modes.h"

namespace kvt {

// Taking back what was done to the program, and doing it again: the two menu entries, which tell what that would be,
// and how the window shows a program that has come back.
class Undoing {
public:
    struct Parts {
        ProgramStore& Store;
        ProgramHistory& History;
        EntryRow& Entry;
        FieldLayout& Layout;
        CodeLists& Lists;
        ControlInterpreter& Interpreter;
        MachineControls& Machine;
        MainControls& Main;
        MachineDisplay& Display;
        MenuStates& States;
        const WindowModes& Modes;
        const TransferControls& Transfer;
        const PortControl& Port;
        DrawWindow& Draw;
        const Texts& Language;
        Services& Platform;
        WorkbenchCalls& Calls;
    };
    explicit Undoing(const Parts& parts) : parts_(parts) {}

    // Beep while the program is held: by a step run, a walk of the drawing, a transfer, a document.
    void mnuUndo_Click() { Go(true); }
    void mnuRedo_Click() { Go(false); }
    // Brings the two entries up to date.
    void Refresh();
    // A key that no entry has taken; true where it was one of these two.
    bool HandleKey(int key, int held);
    // What was typed into the entry row belongs to the step that has ended.
    void ForgetFieldEdits();

private:
    void Go(bool back);
    bool IsHeld() const;
    void ShowEntry(Menu& entry, StepText word, const StepName* step);
    void Show(const ProgramHistory::Move& move);
    void ShowRows(const ProgramHistory::Place& place);
    void EmptyEntryRow();

    Parts parts_;
};

}  // namespace kvt
