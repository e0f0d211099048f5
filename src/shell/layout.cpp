#include "shell/layout.h"

#include <algorithm>

#include "shell/axes_pictures.h"
#include "shell/window_size.h"

namespace kvt {

namespace {

constexpr int leftOfPresets = 8340;  // from there to the window's right edge
constexpr int widestButton = 960;    // in a window of the usual width
constexpr int widestInWideWindow = 1440;
constexpr int growth = 20;
constexpr int buttonHeight = 660;
constexpr int buttonTop = 480;
constexpr int edge = 60;
constexpr int noticeGap = 150;
constexpr int leastNotice = 1080;
constexpr int noticeTop = 300;  // beside the first line of the properties
constexpr int noticeBelowComment = 1530;
constexpr int noticeLine = 285;

}  // namespace

void MainLayout::ControlsPositioning() {
    Form& form = parts_.Main.Window;
    if (form.State.Get() == WindowState::Minimised) return;
    if (form.State.Get() == WindowState::Normal) {
        const SmallestSize smallest = SmallestOn(parts_.Screen);
        form.Height = std::max(form.Height.Get(), smallest.Height);
        form.Width = std::max(form.Width.Get(), smallest.Width);
    }
    parts_.Table.Place(parts_.Store.IsF1());
    PlaceTopButtons();
    PlaceNotice();
    DrawLatheAxes(parts_.Entry.picZXaxes);
    DrawLatheAxes(parts_.Main.lstMK2Mcodes);
    DrawMillAxes(parts_.Entry.picXYaxes);
    FileControls& file = parts_.File;
    file.lblPath.ToolTip = file.lblFileName.Caption;
    file.lblFileName.ToolTip = file.lblPath.Caption;
    ShowModeColors();
    ShowWhatBelongs();
}

// The buttons that are in use share the room beside the presets.
void MainLayout::PlaceTopButtons() {
    const auto& buttons = parts_.Main.cmdTopButtons;
    const auto shown = std::count_if(buttons.begin(), buttons.end(),
                                     [](const auto& button) { return button->Visible.Get(); });
    const int room = parts_.Main.Window.Width - leftOfPresets;
    const int widest = std::clamp(widestButton + (parts_.Main.Window.Width - UsualWidth) / growth,
                                  widestButton, widestInWideWindow);
    const int each = std::min(widest, room / std::max(1, static_cast<int>(shown)));
    int left = edge;
    for (const auto& button : buttons) {
        button->Left = left;
        button->Top = buttonTop;
        button->Width = each - edge;
        button->Height = buttonHeight;
        if (button->Visible) left += each;
    }
}

// The quiet line has the empty place at the lower right. A window that is too narrow for one has it as a single line in
// the entry row, below the comment.
void MainLayout::PlaceNotice() {
    const Form& form = parts_.Main.Window;
    const Frame& properties = parts_.Main.frProgramProperties;
    Label& notice = parts_.Main.lblNotice;
    const int left = properties.Left + properties.Width + noticeGap;
    const int room = form.Width - left - noticeGap;
    const bool beside = room >= leastNotice;
    notice.Left = beside ? left : noticeGap;
    notice.Top = properties.Top + (beside ? noticeTop : noticeBelowComment);
    notice.Width = beside ? room : parts_.Entry.frEntry.Width - noticeGap;
    notice.Height = beside ? properties.Height - noticeTop : noticeLine;
}

void MainLayout::ShowModeColors() {
    parts_.Main.lblSettingsIncrColor.ForeColor = parts_.Store.IncrColor;
    parts_.Main.lblSettingsAbsColor.ForeColor = parts_.Store.AbsColor;
}

void MainLayout::ShowWhatBelongs() {
    MainControls& main = parts_.Main;
    main.frFileNotes.Visible = parts_.View.chkViewFileNotes.Value != 0;
    main.frYaxis.Visible = parts_.Store.IsF1();
    if (parts_.Store.TransmitActive) parts_.Results.cmdStop.Visible = true;
    parts_.Entry.picXYaxes.Visible = false;
    parts_.Entry.picZXaxes.Visible = false;
    // Nothing is left to return from but a document.
    const auto documents = main.Documents();
    const bool reading = std::any_of(documents.begin(), documents.end(),
                                     [](const RichText* document) { return document->Visible.Get(); });
    if (!reading) parts_.Entry.cmdReturn.Visible = false;
}

}  // namespace kvt
