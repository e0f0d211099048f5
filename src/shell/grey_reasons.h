#pragma once

#include "editor/entry_row.h"
#include "program/machine_controls.h"
#include "program/program_store.h"
#include "program/workbench_calls.h"
#include "shell/main_controls.h"
#include "transfer/port_control.h"

namespace kvt {

// Why a button or an entry of a menu is grey: told in the quiet line when it is clicked, or its key pressed, all the
// same.
class GreyReasons {
public:
    struct Parts {
        MainControls& Main;
        const ProgramStore& Store;
        const MachineControls& Machine;
        const EntryRow& Entry;
        const TransferControls& Transfer;
        const PortControl& Port;
        const Texts& Language;
        WorkbenchCalls& Calls;
    };
    explicit GreyReasons(const Parts& parts) : parts_(parts) {}

    // All buttons and entries of the window have been made.
    void Wire();
    // Buttons and entries follow what they can do once a second only. One that is grey no more is clicked.
    std::function<void()> BringUpToDate;
    // Empty where there is nothing to tell.
    std::string Why(const Control& control) const;

private:
    std::string WhyFrozen() const;
    bool IsTransfer(const Control& control) const;

    Parts parts_;
};

}  // namespace kvt
