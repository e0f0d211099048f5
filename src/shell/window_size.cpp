#include "shell/window_size.h"

#include "shell/control_table.h"

namespace kvt {

namespace {

constexpr int smallScreenWidth = 12000;
constexpr int smallScreenHeight = 9000;

}  // namespace

void WindowSize::FitSmallScreen() {
    ScreenService& screen = parts_.Platform.Screen;
    Form& form = parts_.Window;
    if (screen.WorkAreaHeight() < SmallestHeight) {
        parts_.Platform.Dialogs.ShowMessage(Notice(parts_.Language.MessageTexts(text::BlockedByTaskbar)));
        if (form.State.Get() == WindowState::Normal) {
            form.Height = SmallestHeight;
            form.Width = SmallestWidth;
        }
    } else if (screen.Width() <= smallScreenWidth && screen.Height() <= smallScreenHeight) {
        form.State = WindowState::Maximised;
    }
}

void WindowSize::Form_Resize() {
    Form& form = parts_.Window;
    if (form.State.Get() == WindowState::Maximised &&
        parts_.Platform.Screen.WorkAreaHeight() <= SmallestHeight) {
        parts_.Platform.Dialogs.ShowMessage(Notice(parts_.Language.MessageTexts(text::DragTaskbar)));
        form.State = WindowState::Normal;
    }
    // A window that the user has drawn too small gets its size back with the next tick of the timer; a maximised one
    // has what the screen gives.
    const bool tooSmall = form.Height < SmallestHeight || form.Width < SmallestWidth;
    if (tooSmall && form.State.Get() == WindowState::Normal) return;
    Run(parts_.Calls.ControlsPositioning);
}

void WindowSize::KeepSmallest() {
    Form& form = parts_.Window;
    if (form.State.Get() != WindowState::Normal) return;
    // The positioning takes the window to the smallest size.
    if (form.Height < SmallestHeight || form.Width < SmallestWidth) Run(parts_.Calls.ControlsPositioning);
}

}  // namespace kvt
