#include "shell/main_controls.h"

namespace kvt {

namespace {

struct TopButtonText {
    const char* Caption;
    const char* ToolTip;
    bool Visible;
    const char* Picture;
};

constexpr const char* axesPicture = "M 5 3 L 5 19 L 21 19 M 2 6 L 5 3 L 8 6 M 18 16 L 21 19 L 18 22";

// A button for the axes is shown on the machine that has them.
constexpr TopButtonText topButtons[] = {
    {"Open", "Open File", true, "M 3 19 L 3 5 L 9 5 L 11 7 L 19 7 L 19 10 M 3 19 L 6 10 L 22 10 L 19 19 Z"},
    {"Save", "Save File", true,
     "M 4 4 L 17 4 L 20 7 L 20 20 L 4 20 Z M 8 4 L 8 9 L 15 9 L 15 4 M 7 20 L 7 13 L 17 13 L 17 20"},
    {"New", "New File", true, "M 6 3 L 14 3 L 18 7 L 18 21 L 6 21 Z M 14 3 L 14 7 L 18 7"},
    {"Print", "Print File", true,
     "M 7 9 L 7 3 L 17 3 L 17 9 M 7 17 L 4 17 L 4 9 L 20 9 L 20 17 L 17 17 M 7 14 L 17 14 L 17 21 L 7 21 Z"},
    {"Set", "Settings", true,
     "M 4 7 L 7 7 M 11 7 L 20 7 M 4 12 L 13 12 M 17 12 L 20 12 M 4 17 L 6 17 M 10 17 L 20 17 "
     "O 9 7 2 O 15 12 2 O 8 17 2"},
    {"Axes", "Show Axes", false, axesPicture},
    {"Axes", "Show Axes", false, axesPicture},
    {"Draw", "Draw Toolpath", true, "M 3 20 L 3 14 L 8 14 C 8 9 11 6 16 6 L 19 6 O 21 6 1.5"},
    {"RX", "Receive File", true, "M 12 3 L 12 14 M 7 9 L 12 14 L 17 9 M 4 16 L 4 20 L 20 20 L 20 16"},
    {"TX", "Transmit File", true, "M 12 14 L 12 3 M 7 8 L 12 3 L 17 8 M 4 16 L 4 20 L 20 20 L 20 16"},
};

}  // namespace

const char* CaptionOf(TopButton button) { return topButtons[Index(button)].Caption; }

MainControls::MainControls(Form& window) : Window(window) {
    for (std::size_t i = 0; i < cmdTopButtons.size(); ++i) {
        cmdTopButtons[i] = std::make_unique<CommandButton>(window, "cmdTopButtons", topButtons[i].Caption,
                                                           static_cast<int>(i));
        cmdTopButtons[i]->ToolTip = topButtons[i].ToolTip;
        cmdTopButtons[i]->Visible = topButtons[i].Visible;
        cmdTopButtons[i]->Picture = topButtons[i].Picture;
    }
    lstAbout.InFront = true;
    lblNotice.Announced = true;
    mnuOpen.Shortcut = "Ctrl+O";
    mnuNew.Shortcut = "Ctrl+N";
    mnuSave.Shortcut = "Ctrl+S";
    mnuSaveAs.Shortcut = "Ctrl+Shift+S";
    mnuUndo.Shortcut = "Ctrl+Z";
    mnuRedo.Shortcut = "Ctrl+Shift+Z";
    mnuDraw.Shortcut = "F5";
    mnuFind.Shortcut = "Ctrl+F";
    mnuPrint.Shortcut = "Ctrl+P";
    mnuPrintPreview.Shortcut = "Ctrl+Shift+P";
    mnuGoToError.Shortcut = "F8";
    lblMachineType.ToolTip = "Machine Type";
    tabSettings.KeepsTab = true;
    tabSettings.Captions = {"General", "Info", "Machine", "Printer", "COM"};
}

}  // namespace kvt
