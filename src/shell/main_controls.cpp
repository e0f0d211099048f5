#include "shell/main_controls.h"

namespace kvt {

namespace {

struct TopButton {
    const char* Caption;
    const char* ToolTip;
};

constexpr TopButton topButtons[] = {
    {"Open", "Open File"},  {"Save", "Save File"},   {"New", "New File"},   {"Print", "Print File"},
    {"Set", "Settings"},    {"Axes", "Show Axes"},   {"Axes", "Show Axes"}, {"Draw", "Draw Toolpath"},
    {"RX", "Receive File"}, {"TX", "Transmit File"},
};

}  // namespace

MainControls::MainControls(Form& form)
    : mnuFile(form, "mnuFile", "File"),
      mnuSettings(form, "mnuSettings", "Settings"),
      mnuXfer(form, "mnuXfer", "Transfer"),
      mnuConvert(form, "mnuConvert", "Convert"),
      mnuHelp(form, "mnuHelp", "Help"),
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
      rtfHelp(form, "rtfHelp"),
      rtfGcodeHelpMK2(form, "rtfGcodeHelpMK2"),
      rtfGcodeHelpMK4(form, "rtfGcodeHelpMK4"),
      rtfAbout(form, "rtfAbout"),
      lstAbout(form, "lstAbout") {
    for (std::size_t i = 0; i < cmdTopButtons.size(); ++i) {
        cmdTopButtons[i] = std::make_unique<CommandButton>(form, "cmdTopButtons", topButtons[i].Caption,
                                                           static_cast<int>(i));
        cmdTopButtons[i]->ToolTip = topButtons[i].ToolTip;
    }
    for (Control* document : std::initializer_list<Control*>{&rtfHelp, &rtfGcodeHelpMK2, &rtfGcodeHelpMK4,
                                                             &rtfAbout, &lstAbout}) {
        document->Visible = false;
    }
}

}  // namespace kvt
