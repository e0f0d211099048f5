#pragma once

#include "editor/entry_row.h"
#include "program/machine_controls.h"
#include "program/program_store.h"
#include "program/workbench_calls.h"

namespace kvt {

// Conversion of the whole program between inch and metric, and removal of all comments. None of it runs the check
// pass; that comes with the next edit.
class Conversion {
public:
    Conversion(Form& form, ProgramStore& store, MachineControls& machine, EntryRow& entry,
               WorkbenchCalls& calls);

    Menu mnuCalculator, mnuDelComments;

    // Scales every number of the program that is a length, then sets the units: Metric for 2.54, else Imperial.
    // A number outside the 16-bit range is reported; its column gets the number of the conversion before. A line that
    // stands in the entry row is shown in its new numbers.
    void Convert(double factor);
    void mnuDelComments_Click();

private:
    ProgramStore& store_;
    MachineControls& machine_;
    EntryRow& entry_;
    WorkbenchCalls& calls_;
};

}  // namespace kvt
