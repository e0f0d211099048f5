#pragma once

#include "interpreter/interpreter.h"
#include "shell/settings.h"

namespace kvt {

// The way back to the delivered settings. Language, and the program in the editor with its machine and units, stay.
class SettingsReset {
public:
    struct Parts {
        EditorSettings& Settings;
        ProgramStore& Store;
        const Texts& Language;
        MachineDisplay& Display;
        ControlInterpreter& Interpreter;
        WorkbenchCalls& Calls;
    };
    explicit SettingsReset(const Parts& parts) : parts_(parts) {}

    void mnuReset_Click();

private:
    Parts parts_;
};

}  // namespace kvt
