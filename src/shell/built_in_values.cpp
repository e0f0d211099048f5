#include "shell/built_in_values.h"

#include "basic/run_time_error.h"
#include "shell/settings_keys.h"

namespace kvt {

void BuiltInValues::Apply(const char* procedure) {
    for (PortSide* side : {&parts_.Port.TX(), &parts_.Port.RX()}) parts_.Port.cmdEmco_Click(*side);
    parts_.Store.Machine = MachineModel::MK4;
    parts_.Display.RefreshMachine();
    Centre(parts_.Window, parts_.Screen);
    try {
        parts_.Paper.ChooseBuiltInFont();
    } catch (const RunTimeError& error) {
        if (error.Number == fault::PrinterError) return Run(EndWithoutPrinter);
        TellError(error, procedure);
    }
}

}  // namespace kvt
