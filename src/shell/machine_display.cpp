#include "shell/machine_display.h"

namespace kvt {

void MachineDisplay::RefreshMachine() {
    const bool mill = parts_.Store.IsF1();
    Run(parts_.Calls.RefreshTitle);
    parts_.Machine.RefreshMachineOptions();
    parts_.View.MakeToolpositionColums();
    parts_.View.MakeLinePropertiesColumns();
    parts_.View.MakeMachineColumns();
    parts_.Import.RefreshPreProcessors();
    parts_.Main.Button(TopButton::LatheAxes).Visible = !mill;
    parts_.Main.Button(TopButton::MillAxes).Visible = mill;
    // With the buttons that are in use, which share their room.
    Run(parts_.Calls.ControlsPositioning);
    parts_.View.SetAutoWidth();
    parts_.Entry.lblGMcode.Caption = "G";
    parts_.Machine.RefreshUnits();
    ShowMachineName();
    if (!mill) return;
    for (Control* control :
         std::initializer_list<Control*>{&parts_.Entry.picXYaxes, &parts_.Entry.cmdReturn}) {
        control->Visible = true;
        control->Enabled = true;
    }
}

void MachineDisplay::ShowOtherMachine() {
    RefreshMachine();
    parts_.Machine.SetUnits(UnitsOf(parts_.Store.Metric));
    ShowCodeLists();
}

void MachineDisplay::ShowColumns() {
    parts_.View.MakeToolpositionColums();
    parts_.View.MakeLinePropertiesColumns();
    parts_.View.MakeMachineTimeColumn();
}

void MachineDisplay::ShowCodeLists() {
    const ProgramStore& store = parts_.Store;
    CodeLists& lists = parts_.Lists;
    lists.lstMK2Gcodes.Visible = store.IsMK2();
    parts_.Main.lstMK2Mcodes.Visible = store.IsMK2();
    lists.lstMK4Gcodes.Visible = store.IsMK4();
    lists.lstMK4Mcodes.Visible = store.IsMK4();
    lists.lstF1Gcodes.Visible = store.IsF1();
    lists.lstF1Mcodes.Visible = store.IsF1();
}

void MachineDisplay::ShowMachineName() {
    parts_.Main.lblMachineType.Caption = parts_.Machine.OptionOf(parts_.Store.Machine).Caption;
}

}  // namespace kvt
