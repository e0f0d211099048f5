#pragma once

#include "platform/services.h"
#include "program/texts.h"
#include "program/workbench_calls.h"

namespace kvt {

// Keeps the main window in a size that its controls fit in.
class WindowSize {
public:
    struct Parts {
        Form& Window;
        const Texts& Language;
        Services& Platform;
        WorkbenchCalls& Calls;
    };
    explicit WindowSize(const Parts& parts) : parts_(parts) {}

    void Form_Resize();
    // At the start: a small screen is filled; one that is too low is told of.
    void FitSmallScreen();
    // Widens a window that is smaller than the smallest.
    void KeepSmallest();

private:
    Parts parts_;
};

}  // namespace kvt
