#include "shell/main_controls.h"

namespace kvt {

namespace {

struct TopButton {
    const char* Caption;
    const char* ToolTip;
    bool Visible;
};

// Those whose command is not part of this window stay away.
constexpr TopButton topButtons[] = {
    {"Open", "Open File", true},    {"Save", "Save File", true},      {"New", "New File", true},
    {"Print", "Print File", true},  {"Set", "Settings", true},        {"Axes", "Show Axes", false},
    {"Axes", "Show Axes", false},   {"Draw", "Draw Toolpath", false}, {"RX", "Receive File", false},
    {"TX", "Transmit File", false},
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
      mnuImport(form, "mnuImport", "Import"),
      mnuLoadClipboard(form, "mnuLoadClipboard", "Load from Clipboard"),
      mnuSaveClipboard(form, "mnuSaveClipboard", "Save to Clipboard"),
      mnuFileBar2(form, "mnuFileBar2", "-"),
      mnuFind(form, "mnuFind", "Find"),
      mnuPrint(form, "mnuPrint", "Print"),
      mnuFileBar3(form, "mnuFileBar3", "-"),
      mnuExit(form, "mnuExit", "Exit"),
      mnuSettings(form, "mnuSettings", "Settings"),
      mnuGeneral(form, "mnuGeneral", "General"),
      mnuMachine(form, "mnuMachine", "Machine"),
      mnuPrinter(form, "mnuPrinter", "Printer"),
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
    }
    Put(mnuFile, {&mnuOpen, &mnuNew, &mnuSave, &mnuSaveAs, &mnuFileBar1, &mnuImport, &mnuLoadClipboard,
                  &mnuSaveClipboard, &mnuFileBar2, &mnuFind, &mnuPrint, &mnuFileBar3, &mnuExit});
    Put(mnuSettings, {&mnuGeneral, &mnuMachine, &mnuPrinter});
    Put(mnuRightClick, {&RCmnuInsert, &RCmnuDelete});
    mnuOpen.Shortcut = "Ctrl+O";
    mnuNew.Shortcut = "Ctrl+N";
    mnuSave.Shortcut = "Ctrl+S";
    mnuSaveAs.Shortcut = "Ctrl+Shift+S";
    mnuFind.Shortcut = "Ctrl+F";
    mnuPrint.Shortcut = "Ctrl+P";
    tabSettings.Captions = {"General", "Machine", "Printer"};
    for (Control* hidden : std::initializer_list<Control*>{&mnuImport, &mnuXfer, &mnuHelp, &mnuRightClick,
                                                           &rtfHelp, &rtfGcodeHelpMK2, &rtfGcodeHelpMK4,
                                                           &rtfAbout, &lstAbout, &tabSettings}) {
        hidden->Visible = false;
    }
}

}  // namespace kvt
