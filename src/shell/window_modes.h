#pragma once

#include "editor/field_layout.h"
#include "interpreter/interpreter_controls.h"
#include "program/workbench_calls.h"
#include "shell/control_table.h"
#include "shell/help_documents.h"
#include "shell/main_controls.h"
#include "transfer/transfer_controls.h"

namespace kvt {

// Editing, or a window that a transfer or a document has frozen.
class WindowModes {
public:
    struct Parts {
        const ControlTable& Table;
        const ProgramStore& Store;
        const TransferControls& Transfer;
        FieldLayout& Layout;
        InterpreterControls& Results;
        MainControls& Main;
        HelpDocuments& Help;
    };
    explicit WindowModes(const Parts& parts) : parts_(parts) {}

    // Freezes the window, but for the stop of a transmission, or frees it.
    void ControlsEnable(ControlsMode mode);
    bool ControlsOn() const { return controlsOn_; }
    // Leaves all overlays and returns to the editor view.
    void cmdReturn_Click();

private:
    Parts parts_;
    bool controlsOn_ = true;
};

}  // namespace kvt
