#include "shell/program_clearing.h"

#include "files/questions.h"
#include "program/edit_step.h"

namespace kvt {

bool ProgramClearing::MayClear() {
    ProgramStore& store = parts_.Store;
    if (!store.HasUnsavedLines()) return true;
    if (!AskToClear(parts_.Dialogs, parts_.Language)) return false;
    // The user has tried to save it, in vain: the next start offers it.
    if (store.SaveFailed) parts_.Calls.KeepRecoveryCopy();
    return true;
}

void ProgramClearing::Empty() {
    ProgramStore& store = parts_.Store;
    store.lvCncProgram.Clear();
    parts_.Layout.EmptyEntryRow();
    parts_.Lists.lstMK4Gcodes.ListIndex = -1;
    parts_.Lists.lstMK4Mcodes.ListIndex = -1;
    parts_.File.Clear();
    store.ProgramChanged = false;
    store.EndCodePresent = false;
    store.SaveFailed = false;
}

void ProgramClearing::ClearProgram_Click() {
    Run(parts_.Calls.cmdReturn_Click);
    if (!MayClear()) return;
    // The row that the drawing gives back is one of this program.
    parts_.DrawnLine.RestoreSelection();
    Empty();
    parts_.Interpreter.ClearAxesProperties();
    parts_.Interpreter.RefreshLineCount();
    parts_.Display.RefreshMachine();
    parts_.Interpreter.Interpreter();
    parts_.Display.ShowCodeLists();
    parts_.Layout.FocusCode();
    // Last: a drawing that waits then finds all of it gone.
    Run(parts_.Calls.mnuDraw_Click);
}

void ProgramClearing::mnuNew_Click() {
    const EditStep step(parts_.Calls, {StepKind::New});
    ClearProgram_Click();
    parts_.Store.AddBlankLine(true);
    Run(parts_.Calls.RefreshTitle);
}

}  // namespace kvt
