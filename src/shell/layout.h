#pragma once

#include "editor/entry_row.h"
#include "files/file_controls.h"
#include "interpreter/interpreter_controls.h"
#include "interpreter/view_columns.h"
#include "shell/control_table.h"
#include "shell/main_controls.h"

namespace kvt {

// The layout of the main window: list on the left, code lists on the right, the entry row below.
class MainLayout {
public:
    struct Parts {
        const ControlTable& Table;
        MainControls& Main;
        const ProgramStore& Store;
        EntryRow& Entry;
        FileControls& File;
        const ViewColumns& View;
        InterpreterControls& Results;
        ScreenService& Screen;
    };
    explicit MainLayout(const Parts& parts) : parts_(parts) {}

    // Places every control. Also keeps the window from being too small for its screen, sets the tool tips of path and file name from
    // each other, shows the mode colours and hides the entry help pictures.
    void ControlsPositioning();
    // Shows the colours of absolute and incremental lines.
    void ShowModeColors();

private:
    void PlaceTopButtons();
    void PlaceNotice();
    void ShowWhatBelongs();

    Parts parts_;
};

}  // namespace kvt
