#pragma once

#include <functional>
#include "platform/controls.h"
#include "program/program_store.h"

namespace kvt {

// What the program's units are called: "1/100 mm". On the mill its head's way, "V " or "H ", stands in front.
std::string UnitsText(const ProgramStore& store);

// The options and menu entries that choose the machine and the units, and the label that names the units.
class MachineControls {
public:
    MachineControls(Form& form, ProgramStore& store);

    OptionButton optSettingsMK2, optSettingsMK4, optSettingsF1CNC;
    OptionButton optSettingsMm, optSettingsInch;
    OptionButton optSettingsHmm, optSettingsHinch, optSettingsVmm, optSettingsVinch;
    Menu mnuINCHtoMM, mnuMMtoINCH;
    Label lblPPUnits;

    // What else follows the units, wherever they are set.
    std::function<void()> OnUnits;

    // Sets Metric and lets the options, menu entries, the label and OnUnits follow. Runs no click handler.
    void SetUnits(Units units);
    // The same with the units that are in force.
    void RefreshUnits();
    OptionButton& OptionOf(MachineModel model);
    // Puts the machine options to the machine in force.
    void RefreshMachineOptions();

private:
    ProgramStore& store_;
};

}  // namespace kvt
