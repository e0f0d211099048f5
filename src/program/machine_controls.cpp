#include "program/machine_controls.h"

namespace kvt {

MachineControls::MachineControls(Form& form, ProgramStore& store)
    : optSettingsMK2(form, "optSettingsMK2", FactsOf(MachineModel::MK2).Caption),
      optSettingsMK4(form, "optSettingsMK4", FactsOf(MachineModel::MK4).Caption),
      optSettingsF1CNC(form, "optSettingsF1CNC", FactsOf(MachineModel::F1).Caption),
      optSettingsMm(form, "optSettingsMm", "mm"),
      optSettingsInch(form, "optSettingsInch", "Inch"),
      optSettingsHmm(form, "optSettingsHmm", "mm"),
      optSettingsHinch(form, "optSettingsHinch", "Inch"),
      optSettingsVmm(form, "optSettingsVmm", "mm"),
      optSettingsVinch(form, "optSettingsVinch", "Inch"),
      mnuINCHtoMM(form, "mnuINCHtoMM", "inch to mm"),
      mnuMMtoINCH(form, "mnuMMtoINCH", "mm to inch"),
      lblPPUnits(form, "lblPPUnits"),
      store_(store) {}

void MachineControls::SetUnits(Units units) {
    store_.Metric = units == Units::Metric;
    RefreshUnits();
    if (OnUnits) OnUnits();
}

void MachineControls::RefreshUnits() {
    const bool metric = store_.Metric;
    const bool horizontal = store_.Horizontal;
    mnuINCHtoMM.Enabled = !metric;
    mnuMMtoINCH.Enabled = metric;
    optSettingsMm.Value = metric;
    optSettingsInch.Value = !metric;
    optSettingsHmm.Value = horizontal && metric;
    optSettingsHinch.Value = horizontal && !metric;
    optSettingsVmm.Value = !horizontal && metric;
    optSettingsVinch.Value = !horizontal && !metric;

    lblPPUnits.Caption = UnitsText(store_);
}

std::string UnitsText(const ProgramStore& store) {
    const std::string units = store.Metric ? "1/100 mm" : "1/1000 \"";
    if (!store.IsF1()) return units;
    return (store.Horizontal ? "H " : "V ") + units;
}

OptionButton& MachineControls::OptionOf(MachineModel model) {
    switch (model) {
        case MachineModel::MK2: return optSettingsMK2;
        case MachineModel::MK4: return optSettingsMK4;
        case MachineModel::F1: break;
    }
    return optSettingsF1CNC;
}

void MachineControls::RefreshMachineOptions() {
    for (const MachineFacts& one : Machines()) OptionOf(one.Model).Value = one.Model == store_.Machine;
}

}  // namespace kvt
