#include "program/machine_controls.h"

#include "basic/text.h"

namespace kvt {

MachineControls::MachineControls(Form& form, ProgramStore& store)
    : optSettingsMK2(form, "optSettingsMK2", "Compact5 CNC MK2"),
      optSettingsMK4(form, "optSettingsMK4", "Compact5 CNC MK4"),
      optSettingsF1CNC(form, "optSettingsF1CNC", "F1 CNC"),
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

void MachineControls::SetUnits(std::string_view name) {
    if (EqualIgnoringCase(name, "Metric")) {
        store_.Metric = true;
    } else if (EqualIgnoringCase(name, "Imperial")) {
        store_.Metric = false;
    } else {
        return;
    }
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

    std::string units = metric ? "1/100 mm" : "1/1000 \"";
    if (store_.IsF1()) units.insert(0, horizontal ? "H " : "V ");
    lblPPUnits.Caption = units;
}

void MachineControls::RefreshMachineOptions() {
    optSettingsMK2.Value = store_.IsMK2();
    optSettingsMK4.Value = store_.IsMK4();
    optSettingsF1CNC.Value = store_.IsF1();
}

}  // namespace kvt
