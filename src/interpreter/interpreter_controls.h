#pragma once

#include "platform/controls.h"

namespace kvt {

// What the check pass shows beside the list, and the buttons that step it.
struct InterpreterControls {
    explicit InterpreterControls(Form& form)
        : lblPPLines(form, "lblPPLines", "0"),
          lblPPLinesExe(form, "lblPPLinesExe", "xxx"),
          lblPPMachineTime(form, "lblPPMachineTime", "xx:xx:xx"),
          lblXAxisMin(form, "lblXAxisMin", "0"),
          lblXAxisMax(form, "lblXAxisMax", "0"),
          lblXAxisTravel(form, "lblXAxisTravel", "0"),
          lblYAxisMin(form, "lblYAxisMin", "0"),
          lblYAxisMax(form, "lblYAxisMax", "0"),
          lblYAxisTravel(form, "lblYAxisTravel", "0"),
          lblZAxisMin(form, "lblZAxisMin", "0"),
          lblZAxisMax(form, "lblZAxisMax", "0"),
          lblZAxisTravel(form, "lblZAxisTravel", "0"),
          cmdRun(form, "cmdRun", "Run"),
          cmdStep(form, "cmdStep", "Step"),
          cmdStop(form, "cmdStop", "Stop") {
        cmdStep.Visible = false;
        cmdStop.Visible = false;
    }

    Label lblPPLines, lblPPLinesExe, lblPPMachineTime;
    Label lblXAxisMin, lblXAxisMax, lblXAxisTravel;
    Label lblYAxisMin, lblYAxisMax, lblYAxisTravel;
    Label lblZAxisMin, lblZAxisMax, lblZAxisTravel;
    CommandButton cmdRun, cmdStep, cmdStop;
};

}  // namespace kvt
