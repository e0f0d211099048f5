#pragma once

#include "program/machine_controls.h"
#include "program/program_store.h"

namespace kvt {

// Conversion of the whole program between inch and metric, and removal of all comments. None of it runs the check
// pass; that comes with the next edit.
class Conversion {
public:
    Conversion(Form& form, ProgramStore& store, MachineControls& machine);

    Menu mnuCalculator, mnuDelComments;

    // Scales every number of the program that is a length, then sets the units: Metric for 2.54, else Imperial.
    // A number outside the 16-bit range is reported; its column gets the number of the conversion before.
    void Convert(double factor);
    void mnuDelComments_Click();

private:
    ProgramStore& store_;
    MachineControls& machine_;
};

}  // namespace kvt
