#pragma once

#include <array>
#include <memory>
#include <vector>

#include "platform/controls.h"

namespace kvt {

// The controls of the main window that no lower room is in charge of.
struct MainControls {
    explicit MainControls(Form& form);

    std::array<std::unique_ptr<CommandButton>, 10> cmdTopButtons;
    Menu mnuFile, mnuSettings, mnuXfer, mnuConvert, mnuHelp;
    Frame frControlPanel, frSetReplace, frView, frProgramProperties;
    Frame frAxesProperties, frXAxis, frYaxis, frZAxis;
    Frame frFileNotes, frCmdEditor1, frCmdEditor2, frCmdEditor3;
    Picture lstMK2Mcodes;  // the MK2 has no M codes: a picture stands in the place of their list
    CommandButton cmdInsert, cmdDelete;
    RichText rtfHelp, rtfGcodeHelpMK2, rtfGcodeHelpMK4, rtfAbout;
    ListBox lstAbout;
};

}  // namespace kvt
