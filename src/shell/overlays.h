#pragma once

#include <functional>

#include "editor/entry_row.h"
#include "platform/services.h"
#include "program/workbench_calls.h"
#include "shell/main_controls.h"

namespace kvt {

// The settings and the pictures of the axes, which lie over the program list.
class Overlays {
public:
    struct Parts {
        MainControls& Main;
        EntryRow& Entry;
        ListView& List;
        FocusService& Focus;
        WorkbenchCalls& Calls;
    };
    explicit Overlays(const Parts& parts) : parts_(parts) {}

    // Shows the settings on a page; on the page that is in front it leaves them.
    void ShowSettings(int page);
    // Shows a picture of the axes, or leaves it.
    void ShowAxes(PictureBox& picture);
    // Called when the settings are shown.
    std::function<void()> OnSettings;

private:
    Parts parts_;
};

}  // namespace kvt
