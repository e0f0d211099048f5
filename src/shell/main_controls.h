#pragma once

#include <array>
#include <memory>

#include "platform/controls.h"
#include "platform/picture_box.h"

namespace kvt {

// The controls of the main window that no lower room is in charge of.
struct MainControls {
    explicit MainControls(Form& form);

    std::array<std::unique_ptr<CommandButton>, 10> cmdTopButtons;

    Menu mnuFile, mnuOpen, mnuNew, mnuSave, mnuSaveAs, mnuFileBar1, mnuImport, mnuLoadClipboard,
        mnuSaveClipboard, mnuFileBar2, mnuFind, mnuDraw, mnuPrint, mnuFileBar3, mnuExit;
    Menu mnuSettings, mnuGeneral, mnuInfo, mnuMachine, mnuPrinter, mnuReset;
    Menu mnuXfer, mnuConvert, mnuHelp;
    Menu mnuRightClick, RCmnuInsert, RCmnuDelete;

    Frame frControlPanel, frSetReplace, frView, frProgramProperties;
    Frame frAxesProperties, frXAxis, frYaxis, frZAxis;
    Frame frFileNotes, frCmdEditor1, frCmdEditor2, frCmdEditor3;
    PictureBox lstMK2Mcodes;  // the MK2 has no M codes: a picture stands in the place of their list
    CommandButton cmdInsert, cmdDelete;

    // The settings lie over the program list, a page each.
    TabStrip tabSettings;
    Frame frCompact5, frF1CNC, frMachineType;
    Label lblHorizontal, lblVertical;
    Label lblSettingsIncrColor, lblSettingsAbsColor;
    CommandButton cmdResetAll;

    // Names beside what the rooms show.
    Label lblComment, lblMachineType, lblUnits, lblLines, lblLinesExecuted, lblMachineTime;
    Label lblMin, lblMax, lblTravel;

    RichText rtfHelp, rtfGcodeHelpMK2, rtfGcodeHelpMK4, rtfAbout;
    ListBox lstAbout;
    Timer tmr1sec;
};

// Pages of tabSettings.
namespace settings_page {
inline constexpr int General = 0, Info = 1, Machine = 2, Printer = 3;
}  // namespace settings_page

}  // namespace kvt
