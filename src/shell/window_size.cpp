#include "shell/window_size.h"

#include <algorithm>

#include "shell/control_table.h"

namespace kvt {

namespace {

constexpr int smallScreenWidth = 12000;
constexpr int smallScreenHeight = 9000;

// Whether a window that shows all of its controls reaches below the screen.
bool ReachesBelow(ScreenService& screen, int workArea) {
    return workArea < SmallestHeight && screen.HeightFor(SmallestHeight) == SmallestHeight;
}

}  // namespace

SmallestSize SmallestOn(ScreenService& screen) {
    return {screen.WidthFor(SmallestWidth), std::max(LeastHeight, screen.HeightFor(SmallestHeight))};
}

void WindowSize::FitSmallScreen() {
    ScreenService& screen = parts_.Platform.Screen;
    Form& form = parts_.Window;
    const bool lacksRoom =
        screen.HeightFor(SmallestHeight) < SmallestHeight || screen.WidthFor(SmallestWidth) < SmallestWidth;
    if (ReachesBelow(screen, screen.WorkAreaHeight())) {
        parts_.Platform.Dialogs.ShowMessage(Notice(parts_.Language.MessageTexts(text::BlockedByTaskbar)));
        if (form.State.Get() == WindowState::Normal) {
            form.Height = SmallestHeight;
            form.Width = SmallestWidth;
        }
    } else if (lacksRoom || (screen.Width() <= smallScreenWidth && screen.Height() <= smallScreenHeight)) {
        form.State = WindowState::Maximised;
    }
}

void WindowSize::Form_Resize() {
    Form& form = parts_.Window;
    ScreenService& screen = parts_.Platform.Screen;
    if (form.State.Get() == WindowState::Maximised && ReachesBelow(screen, screen.WorkAreaHeight() - 1)) {
        parts_.Platform.Dialogs.ShowMessage(Notice(parts_.Language.MessageTexts(text::DragTaskbar)));
        form.State = WindowState::Normal;
    }
    // A window that the user has drawn too small gets its size back with the next tick of the timer; a maximised one
    // has what the screen gives.
    if (TooSmall()) return;
    Run(parts_.Calls.ControlsPositioning);
}

void WindowSize::KeepSmallest() {
    // The positioning takes the window to the smallest size.
    if (TooSmall()) Run(parts_.Calls.ControlsPositioning);
}

bool WindowSize::TooSmall() const {
    const Form& form = parts_.Window;
    const SmallestSize smallest = SmallestOn(parts_.Platform.Screen);
    return form.State.Get() == WindowState::Normal &&
           (form.Height < smallest.Height || form.Width < smallest.Width);
}

}  // namespace kvt
