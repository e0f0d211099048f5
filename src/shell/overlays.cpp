#include "shell/overlays.h"

namespace kvt {

void Overlays::ShowSettings(int page) {
    TabStrip& settings = parts_.Main.tabSettings;
    const bool leaves = settings.Visible && settings.Value == page;
    Run(parts_.Calls.cmdReturn_Click);
    Run(OnSettings);
    settings.Value = page;
    settings.Visible = !leaves;
    // The keys go into the settings, and come back to the list.
    if (leaves) {
        parts_.Focus.SetFocus(parts_.List);
    } else {
        parts_.Focus.SetFocus(settings);
    }
}

void Overlays::ShowAxes(PictureBox& picture) {
    const bool leaves = picture.Visible;
    Run(parts_.Calls.cmdReturn_Click);
    parts_.Main.tabSettings.Visible = false;
    if (leaves) return;
    for (Control* control : std::initializer_list<Control*>{&picture, &parts_.Entry.cmdReturn}) {
        control->Visible = true;
        control->Enabled = true;
    }
}

}  // namespace kvt
