#include "shell/main_controls.h"

namespace kvt {

namespace {

struct TopButton {
    const char* Caption;
    const char* ToolTip;
    bool Visible;
    const char* Picture;
};

constexpr const char* axesPicture = "M 5 3 L 5 19 L 21 19 M 2 6 L 5 3 L 8 6 M 18 16 L 21 19 L 18 22";

// Those whose command is not part of this window stay away.
constexpr TopButton topButtons[] = {
    {"Open", "Open File", true, "M 3 19 L 3 5 L 9 5 L 11 7 L 19 7 L 19 10 M 3 19 L 6 10 L 22 10 L 19 19 Z"},
    {"Save", "Save File", true,
     "M 4 4 L 17 4 L 20 7 L 20 20 L 4 20 Z M 8 4 L 8 9 L 15 9 L 15 4 M 7 20 L 7 13 L 17 13 L 17 20"},
    {"New", "New File", true, "M 6 3 L 14 3 L 18 7 L 18 21 L 6 21 Z M 14 3 L 14 7 L 18 7"},
    {"Print", "Print File", true,
     "M 7 9 L 7 3 L 17 3 L 17 9 M 7 17 L 4 17 L 4 9 L 20 9 L 20 17 L 17 17 M 7 14 L 17 14 L 17 21 L 7 21 Z"},
    {"Set", "Settings", true,
     "M 4 7 L 7 7 M 11 7 L 20 7 M 4 12 L 13 12 M 17 12 L 20 12 M 4 17 L 6 17 M 10 17 L 20 17 "
     "O 9 7 2 O 15 12 2 O 8 17 2"},
    {"Axes", "Show Axes", false, axesPicture},
    {"Axes", "Show Axes", false, axesPicture},
    {"Draw", "Draw Toolpath", false, "M 3 20 L 3 14 L 8 14 C 8 9 11 6 16 6 L 19 6 O 21 6 1.5"},
    {"RX", "Receive File", false, "M 12 3 L 12 14 M 7 9 L 12 14 L 17 9 M 4 16 L 4 20 L 20 20 L 20 16"},
    {"TX", "Transmit File", false, "M 12 14 L 12 3 M 7 8 L 12 3 L 17 8 M 4 16 L 4 20 L 20 20 L 20 16"},
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
      mnuDraw(form, "mnuDraw", "Draw"),
      mnuPrint(form, "mnuPrint", "Print"),
      mnuFileBar3(form, "mnuFileBar3", "-"),
      mnuExit(form, "mnuExit", "Exit"),
      mnuSettings(form, "mnuSettings", "Settings"),
      mnuGeneral(form, "mnuGeneral", "General"),
      mnuInfo(form, "mnuInfo", "Info"),
      mnuMachine(form, "mnuMachine", "Machine"),
      mnuPrinter(form, "mnuPrinter", "Printer"),
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
    Put(mnuFile, {&mnuOpen, &mnuNew, &mnuSave, &mnuSaveAs, &mnuFileBar1, &mnuImport, &mnuLoadClipboard,
                  &mnuSaveClipboard, &mnuFileBar2, &mnuFind, &mnuDraw, &mnuPrint, &mnuFileBar3, &mnuExit});
    Put(mnuSettings, {&mnuGeneral, &mnuInfo, &mnuMachine, &mnuPrinter, &mnuReset});
    Put(mnuRightClick, {&RCmnuInsert, &RCmnuDelete});
    lstAbout.InFront = true;
    mnuOpen.Shortcut = "Ctrl+O";
    mnuNew.Shortcut = "Ctrl+N";
    mnuSave.Shortcut = "Ctrl+S";
    mnuSaveAs.Shortcut = "Ctrl+Shift+S";
    for (Label* head : {&lblMin, &lblMax, &lblTravel}) head->AtRight = true;
    mnuDraw.Shortcut = "F5";
    lblMachineType.ToolTip = "Machine Type";
    mnuFind.Shortcut = "Ctrl+F";
    mnuPrint.Shortcut = "Ctrl+P";
    tabSettings.Captions = {"General", "Info", "Machine", "Printer"};
    for (Control* hidden :
         std::initializer_list<Control*>{&mnuImport, &mnuXfer, &mnuRightClick, &rtfHelp, &rtfGcodeHelpMK2,
                                         &rtfGcodeHelpMK4, &rtfAbout, &lstAbout, &tabSettings}) {
        hidden->Visible = false;
    }
}

}  // namespace kvt
