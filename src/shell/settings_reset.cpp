#include "shell/settings_reset.h"

#include "program/edit_step.h"

namespace kvt {

void SettingsReset::mnuReset_Click() {
    const EditStep step(parts_.Calls, {StepKind::CodeComments});
    // Its windows write their settings as they close, so first of all.
    Run(parts_.Calls.UnloadDraw);
    ProgramStore& store = parts_.Store;
    const MachineModel machine = store.Machine;
    const bool metric = store.Metric;
    const bool horizontal = store.Horizontal;
    parts_.Settings.Reset();
    if (parts_.Settings.Ending()) return;
    // The program is what it was, and is checked when everything is set.
    store.Machine = machine;
    store.Metric = metric;
    store.Horizontal = horizontal;
    parts_.Display.ShowOtherMachine();
    Run(parts_.Calls.LoadLanguageModule, parts_.Language.ModuleFile);
    parts_.Interpreter.Interpreter();
}

}  // namespace kvt
