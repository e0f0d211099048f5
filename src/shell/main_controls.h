#pragma once

#include <array>
#include <memory>

#include "platform/controls.h"
#include "platform/picture_box.h"

namespace kvt {

// The buttons of cmdTopButtons, in their order.
enum class TopButton { Open, Save, New, Print, Settings, LatheAxes, MillAxes, Draw, Receive, Transmit };
constexpr int Index(TopButton button) { return static_cast<int>(button); }
// The caption of a button in English; other languages have the pictures alone.
const char* CaptionOf(TopButton button);

// The controls of the main window that no lower room is in charge of, in the order of the menus. What else is told
// of a control stands in its row of the control table.
struct MainControls {
    explicit MainControls(Form& window);

    CommandButton& Button(TopButton button) const {
        return *cmdTopButtons[static_cast<std::size_t>(Index(button))];
    }
    // The documents that lie over the program list.
    std::array<RichText*, 4> Documents() { return {&rtfHelp, &rtfGcodeHelpMK2, &rtfGcodeHelpMK4, &rtfAbout}; }

    Form& Window;
    std::array<std::unique_ptr<CommandButton>, 10> cmdTopButtons;

    Menu mnuFile{Window, "mnuFile", "File"};
    Menu mnuOpen{Window, "mnuOpen", "Open"};
    Menu mnuNew{Window, "mnuNew", "New"};
    Menu mnuSave{Window, "mnuSave", "Save"};
    Menu mnuSaveAs{Window, "mnuSaveAs", "Save As"};
    Menu mnuRecent{Window, "mnuRecent", "Recent files"};
    Menu mnuSamples{Window, "mnuSamples", "Samples"};
    Menu mnuFileBar1{Window, "mnuFileBar1", "-"};
    Menu mnuImport{Window, "mnuImport", "Import"};
    Menu mnuLoadClipboard{Window, "mnuLoadClipboard", "Load from Clipboard"};
    Menu mnuSaveClipboard{Window, "mnuSaveClipboard", "Save to Clipboard"};
    Menu mnuFileBar2{Window, "mnuFileBar2", "-"};
    Menu mnuFind{Window, "mnuFind", "Find"};
    Menu mnuGoToError{Window, "mnuGoToError", "Go to error"};
    Menu mnuDraw{Window, "mnuDraw", "Draw"};
    Menu mnuPrint{Window, "mnuPrint", "Print"};
    Menu mnuPrintPreview{Window, "mnuPrintPreview", "Print preview"};
    Menu mnuFileBar3{Window, "mnuFileBar3", "-"};
    Menu mnuExit{Window, "mnuExit", "Exit"};

    Menu mnuEdit{Window, "mnuEdit", "Edit"};
    Menu mnuUndo{Window, "mnuUndo", "Undo"};
    Menu mnuRedo{Window, "mnuRedo", "Redo"};

    Menu mnuSettings{Window, "mnuSettings", "Settings"};
    Menu mnuGeneral{Window, "mnuGeneral", "General"};
    Menu mnuInfo{Window, "mnuInfo", "Info"};
    Menu mnuMachine{Window, "mnuMachine", "Machine"};
    Menu mnuPrinter{Window, "mnuPrinter", "Printer"};
    Menu mnuReset{Window, "mnuReset", "Reset all settings"};

    Menu mnuXfer{Window, "mnuXfer", "Transfer"};
    Menu mnuConvert{Window, "mnuConvert", "Convert"};
    Menu mnuHelp{Window, "mnuHelp", "Help"};

    Menu mnuRightClick{Window, "mnuRightClick"};
    Menu RCmnuInsert{Window, "RCmnuInsert", "Insert line"};
    Menu RCmnuDelete{Window, "RCmnuDelete", "Delete line"};

    Frame frControlPanel{Window, "frControlPanel", "Current File"};
    Frame frSetReplace{Window, "frSetReplace", "Set/Replace"};
    Frame frView{Window, "frView", "View"};
    Frame frProgramProperties{Window, "frProgramProperties", "Program Properties"};
    Frame frAxesProperties{Window, "frAxesProperties", "Axes Properties"};
    Frame frXAxis{Window, "frXAxis", "X-axis"};
    Frame frYaxis{Window, "frYaxis", "Y-axis"};
    Frame frZAxis{Window, "frZAxis", "Z-axis"};
    Frame frFileNotes{Window, "frFileNotes", "File Notes"};
    Frame frCmdEditor1{Window, "frCmdEditor1"};
    Frame frCmdEditor2{Window, "frCmdEditor2"};
    Frame frCmdEditor3{Window, "frCmdEditor3"};

    // The MK2 has no M codes: a picture takes the place of their list.
    PictureBox lstMK2Mcodes{Window, "lstMK2Mcodes"};

    CommandButton cmdInsert{Window, "cmdInsert", "Insert"};
    CommandButton cmdDelete{Window, "cmdDelete", "Delete"};

    // The settings lie over the program list, a page each.
    TabStrip tabSettings{Window, "tabSettings"};

    Frame frCompact5{Window, "frCompact5", "Compact5 CNC"};
    Frame frF1CNC{Window, "frF1CNC", "F1 CNC"};
    Frame frMachineType{Window, "frMachineType", "Machine"};

    Label lblHorizontal{Window, "lblHorizontal", "Horizontal"};
    Label lblVertical{Window, "lblVertical", "Vertical"};
    Label lblSettingsIncrColor{Window, "lblSettingsIncrColor", "Color Incremental"};
    Label lblSettingsAbsColor{Window, "lblSettingsAbsColor", "Color Absolute"};

    CommandButton cmdResetAll{Window, "cmdResetAll", "Reset all settings"};

    // Names beside what the rooms show.
    Label lblComment{Window, "lblComment", "Comment"};
    Label lblMachineType{Window, "lblMachineType"};
    Label lblUnits{Window, "lblUnits", "Units"};
    Label lblLines{Window, "lblLines", "Lines"};
    Label lblLinesExecuted{Window, "lblLinesExecuted", "Lines Executed"};
    Label lblMachineTime{Window, "lblMachineTime", "Machine Time"};
    Label lblMin{Window, "lblMin", "Min"};
    Label lblMax{Window, "lblMax", "Max"};
    Label lblTravel{Window, "lblTravel", "Travel"};

    // What has happened: the quiet line.
    Label lblNotice{Window, "lblNotice"};

    // The documents, and what lies beside the last one.
    RichText rtfHelp{Window, "rtfHelp"};
    RichText rtfGcodeHelpMK2{Window, "rtfGcodeHelpMK2"};
    RichText rtfGcodeHelpMK4{Window, "rtfGcodeHelpMK4"};
    RichText rtfAbout{Window, "rtfAbout"};

    ListBox lstAbout{Window, "lstAbout"};

    Timer tmr1sec{Window, "tmr1sec", 1000};
};

// Pages of tabSettings.
namespace settings_page {
inline constexpr int General = 0, Info = 1, Machine = 2, Printer = 3, COM = 4;
}  // namespace settings_page

}  // namespace kvt
