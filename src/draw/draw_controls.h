#pragma once

#include <array>
#include <memory>

#include "platform/picture_box.h"

namespace kvt {

// Entries of mnuSim.
namespace simulation {
inline constexpr int Run = 0, Step = 1, Speed1 = 2, Speed2 = 3, Speed3 = 4;
}  // namespace simulation

inline constexpr int ScaleCount = 11;
// The entry of mnuScale for x 1; each is twice the one before.
inline constexpr int IndexOfScale1 = 3;
inline constexpr int SimulationCount = 5;

// The drawing window: its menus, the field behind its view window, and the frames above the drawing.
struct DrawControls {
    DrawControls();
    // The marks of the menus as they are without a settings file.
    void SetDesignMarks();
    // Fills the frames with measure fields of a width in twips.
    void FillFrames(int fieldWidth);
    // Of the bar below the drawing, in twips.
    static constexpr int BarHeight = 600;

    Form frmDraw;

    Menu mnuFile, mnuEditor, mnuRedraw, mnuAutoFit, mnuSaveBMP, mnuSaveClipboard, mnuSavePicture, mnuPrint,
        mnuPrintPreview, mnuExit;
    Menu mnuView, mnuRadiiArcs, mnuFillCycles, mnuProgramWindow, mnuToolWidth, mnuToolCenter, mnuGrid,
        mnuBackground, mnuLegend, mnuDistinctColors, mnuHoleMarks;
    Menu mnuSettings, mnuScaleMenu, mnuSimulation, mnuAutoRedraw;
    std::array<std::unique_ptr<Menu>, ScaleCount> mnuScale;
    std::array<std::unique_ptr<Menu>, SimulationCount> mnuSim;

    PictureBox pbxViewWindow, pbxDrawField;
    // Never shown: the size of the picture that goes out, which is what the view window shows.
    PictureBox pbxDummy;
    FileDialog dlgPicture;
    ScrollBar hsbViewWindow, vsbViewWindow;

    Frame frProperties, frDiameter, frX1Z1, frX2Z2, frDelta, frGrid;
    Label lblDiameter, lblX1, lblZ1, lblX2, lblZ2, lblDeltaX, lblDeltaZ, lblDeltaXZ, lblGrid, lblFileName;
    TextBox txtDiameter, txtX1, txtZ1, txtX2, txtZ2, txtDeltaX, txtDeltaZ, txtDeltaXZ, txtGrid;
    CommandButton cmdAutoFit, cmdRedraw;
    kvt::UpDown UpDown;

    Frame frStepControls;
    CommandButton cmdStep, cmdStop, cmdRun;
    Timer Timer1;

private:
    void MakeMenus();
    void PlaceField();
    void PlaceFrames();
};

}  // namespace kvt
