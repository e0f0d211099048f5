#include "shell/main_controls.h"

namespace kvt {

namespace {

struct TopButton {
    const char* Caption;
    const char* ToolTip;
    bool Visible;
    const char* Picture;
};

// Those whose command is not part of this window stay away.
constexpr TopButton topButtons[] = {
    {"Open", "Open File", true, "3,20 3,5 9,5 11,8 18,8 18,11; 3,20 7,11 22,11 18,20 3,20"},
    {"Save", "Save File", true, "4,4 17,4 20,7 20,20 4,20 4,4; 8,4 8,9 15,9 15,4; 7,20 7,13 17,13 17,20"},
    {"New", "New File", true, "6,3 14,3 19,8 19,21 6,21 6,3; 14,3 14,8 19,8"},
    {"Print", "Print File", false,
     "6,16 3,16 3,9 21,9 21,16 18,16; 6,9 6,3 18,3 18,9; 6,13 18,13 18,21 6,21 6,13"},
    {"Set", "Settings", true, "3,6 21,6; 8,4 8,8; 3,12 21,12; 15,10 15,14; 3,18 21,18; 10,16 10,20"},
    {"Axes", "Show Axes", false, "5,19 5,3; 3,6 5,3 7,6; 5,19 21,19; 18,17 21,19 18,21"},
    {"Axes", "Show Axes", false, "5,19 5,3; 3,6 5,3 7,6; 5,19 21,19; 18,17 21,19 18,21"},
    {"Draw", "Draw Toolpath", false, "3,20 3,14 8,14 12,8 17,8 20,4; 1,20 23,20"},
    {"RX", "Receive File", false, "12,3 12,15; 7,10 12,15 17,10; 4,16 4,20 20,20 20,16"},
    {"TX", "Transmit File", false, "12,15 12,3; 7,8 12,3 17,8; 4,16 4,20 20,20 20,16"},
};

void Put(Menu& parent, std::initializer_list<Menu*> entries) {
    for (Menu* entry : entries) entry->Container = &parent;
}

}  // namespace

MainControls::MainControls(Form& form)
    : mnuFile(form, "mnuFile", "File"),
      mnuOpen(form, "mnuOpen", "Open"),
      mnuNew(form, "mnuNew", "New"),
      mnuSave(form, "mnuSave", "Save"),
      mnuSaveAs(form, "mnuSaveAs", "Save As"),
      mnuFileBar1(form, "mnuFileBar1", "-"),
      mnuLoadClipboard(form, "mnuLoadClipboard", "Load from Clipboard"),
      mnuSaveClipboard(form, "mnuSaveClipboard", "Save to Clipboard"),
      mnuFileBar2(form, "mnuFileBar2", "-"),
      mnuExit(form, "mnuExit", "Exit"),
      mnuSettings(form, "mnuSettings", "Settings"),
      mnuGeneral(form, "mnuGeneral", "General"),
      mnuMachine(form, "mnuMachine", "Machine"),
      mnuReset(form, "mnuReset", "Reset all settings"),
      mnuXfer(form, "mnuXfer", "Transfer"),
      mnuConvert(form, "mnuConvert", "Convert"),
      mnuHelp(form, "mnuHelp", "Help"),
      mnuRightClick(form, "mnuRightClick"),
      RCmnuInsert(form, "RCmnuInsert", "Insert line"),
      RCmnuDelete(form, "RCmnuDelete", "Delete line"),
      frControlPanel(form, "frControlPanel", "Current File"),
      frSetReplace(form, "frSetReplace", "Set/Replace"),
      frView(form, "frView", "View"),
      frProgramProperties(form, "frProgramProperties", "Program Properties"),
      frAxesProperties(form, "frAxesProperties", "Axes Properties"),
      frXAxis(form, "frXAxis", "X-axis"),
      frYaxis(form, "frYaxis", "Y-axis"),
      frZAxis(form, "frZAxis", "Z-axis"),
      frFileNotes(form, "frFileNotes", "File Notes"),
      frCmdEditor1(form, "frCmdEditor1"),
      frCmdEditor2(form, "frCmdEditor2"),
      frCmdEditor3(form, "frCmdEditor3"),
      lstMK2Mcodes(form, "lstMK2Mcodes"),
      cmdInsert(form, "cmdInsert", "Insert"),
      cmdDelete(form, "cmdDelete", "Delete"),
      tabSettings(form, "tabSettings"),
      frCompact5(form, "frCompact5", "Compact5 CNC"),
      frF1CNC(form, "frF1CNC", "F1 CNC"),
      frMachineType(form, "frMachineType", "Machine"),
      lblHorizontal(form, "lblHorizontal", "Horizontal"),
      lblVertical(form, "lblVertical", "Vertical"),
      lblSettingsIncrColor(form, "lblSettingsIncrColor", "Color Incremental"),
      lblSettingsAbsColor(form, "lblSettingsAbsColor", "Color Absolute"),
      cmdResetAll(form, "cmdResetAll", "Reset all settings"),
      lblComment(form, "lblComment", "Comment"),
      lblMachineType(form, "lblMachineType"),
      lblUnits(form, "lblUnits", "Units"),
      lblLines(form, "lblLines", "Lines"),
      lblLinesExecuted(form, "lblLinesExecuted", "Lines Executed"),
      lblMachineTime(form, "lblMachineTime", "Machine Time"),
      lblMin(form, "lblMin", "Min"),
      lblMax(form, "lblMax", "Max"),
      lblTravel(form, "lblTravel", "Travel"),
      rtfHelp(form, "rtfHelp"),
      rtfGcodeHelpMK2(form, "rtfGcodeHelpMK2"),
      rtfGcodeHelpMK4(form, "rtfGcodeHelpMK4"),
      rtfAbout(form, "rtfAbout"),
      lstAbout(form, "lstAbout"),
      tmr1sec(form, "tmr1sec", 1000) {
    for (std::size_t i = 0; i < cmdTopButtons.size(); ++i) {
        cmdTopButtons[i] = std::make_unique<CommandButton>(form, "cmdTopButtons", topButtons[i].Caption,
                                                           static_cast<int>(i));
        cmdTopButtons[i]->ToolTip = topButtons[i].ToolTip;
        cmdTopButtons[i]->Visible = topButtons[i].Visible;
        cmdTopButtons[i]->Picture = topButtons[i].Picture;
    }
    Put(mnuFile, {&mnuOpen, &mnuNew, &mnuSave, &mnuSaveAs, &mnuFileBar1, &mnuLoadClipboard, &mnuSaveClipboard,
                  &mnuFileBar2, &mnuExit});
    Put(mnuSettings, {&mnuGeneral, &mnuMachine, &mnuReset});
    Put(mnuRightClick, {&RCmnuInsert, &RCmnuDelete});
    mnuOpen.Shortcut = "Ctrl+O";
    mnuNew.Shortcut = "Ctrl+N";
    mnuSave.Shortcut = "Ctrl+S";
    mnuSaveAs.Shortcut = "Ctrl+Shift+S";
    lblMachineType.ToolTip = "Machine Type";
    tabSettings.Captions = {"General", "Machine"};
    for (Control* hidden : std::initializer_list<Control*>{&mnuXfer, &mnuConvert, &mnuHelp, &mnuRightClick,
                                                           &rtfHelp, &rtfGcodeHelpMK2, &rtfGcodeHelpMK4,
                                                           &rtfAbout, &lstAbout, &tabSettings}) {
        hidden->Visible = false;
    }
}

}  // namespace kvt
