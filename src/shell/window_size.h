#pragma once

#include "platform/services.h"
#include "program/texts.h"
#include "program/workbench_calls.h"

namespace kvt {

// The smallest size of the main window on a screen: that of its controls, or what the screen has room for where the
// platform lets the user scroll to the rest.
struct SmallestSize {
    int Width, Height;
};
SmallestSize SmallestOn(ScreenService& screen);

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
    // At the start: a small screen is filled; one that is too low is told of, unless the window fits it.
    void FitSmallScreen();
    // Widens a window that is smaller than the smallest.
    void KeepSmallest();

private:
    bool TooSmall() const;

    Parts parts_;
};

}  // namespace kvt
