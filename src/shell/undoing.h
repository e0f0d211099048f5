#pragma once

#include "draw/editor_line.h"
#include "files/program_history.h"
#include "shell/edit_lock.h"
#include "shell/main_controls.h"
#include "shell/restored_program.h"

namespace kvt {

// Taking back what was done to the program, and doing it again: the two menu entries, which tell what that would be.
class Undoing {
public:
    struct Parts {
        ProgramStore& Store;
        ProgramHistory& History;
        RestoredProgram& Restored;
        const EditLock& Lock;
        EditorLine& DrawnLine;
        MainControls& Main;
        const Texts& Language;
        SystemService& System;
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

private:
    void Go(bool back);
    bool IsHeld() const;
    void ShowEntry(Menu& entry, StepText word, const StepName* step);

    Parts parts_;
};

}  // namespace kvt
