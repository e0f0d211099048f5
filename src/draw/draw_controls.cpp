#include "draw/draw_controls.h"

#include <algorithm>

namespace kvt {

namespace {

constexpr const char* scaleCaptions[ScaleCount] = {
    "Scale  \xF7 8", "Scale  \xF7 4", "Scale  \xF7 2", "Scale  x 1", "Scale  x 2",  "Scale  x 4",
    "Scale  x 8",    "Scale  x16",    "Scale  x32",    "Scale  x64", "Scale  x128",
};
constexpr const char* simulationCaptions[SimulationCount] = {"Run", "Step", "Speed1", "Speed2", "Speed3"};

constexpr int firstWidth = 12000;
constexpr int firstHeight = 9000;
// What the window's own edges, title and menus take of the form's size. The scroll bars end where a higher one would
// begin, the bar has the difference.
constexpr int edgeWidth = 180;
constexpr int edgeHeight = 945 - DrawControls::BarHeight;
constexpr int barBreadth = 255;
constexpr int fieldSize = 40000;
constexpr int firstFieldWidth = 600;
constexpr int distanceWidth = 860;

void Put(Control& container, std::initializer_list<Control*> inside) {
    for (Control* control : inside) control->Container = &container;
}

void Place(Control& control, int left, int top, int width, int height) {
    control.Left = left;
    control.Top = top;
    control.Width = width;
    control.Height = height;
}

struct LabelledField {
    Label* Name;
    TextBox* Field;
    int Width;
};

// Fields side by side in a frame, their names above them.
void FillFrame(Frame& frame, std::initializer_list<LabelledField> fields) {
    constexpr int gap = 20;
    int left = gap;
    for (const LabelledField& one : fields) {
        Put(frame, {one.Name, one.Field});
        Place(*one.Name, left, 30, one.Width, 210);
        Place(*one.Field, left, 245, one.Width, 285);
        left += one.Width + gap;
    }
    Place(frame, 20, 30, left, 560);
}

}  // namespace

DrawControls::DrawControls()
    : frmDraw("frmDraw"),
      mnuFile(frmDraw, "mnuFile", "File"),
      mnuEditor(frmDraw, "mnuEditor", "Editor"),
      mnuRedraw(frmDraw, "mnuRedraw", "Redraw"),
      mnuAutoFit(frmDraw, "mnuAutoFit", "AutoFit"),
      mnuSaveBMP(frmDraw, "mnuSaveBMP", "Save BMP"),
      mnuSaveClipboard(frmDraw, "mnuSaveClipboard", "Save to Clipboard"),
      mnuSavePicture(frmDraw, "mnuSavePicture", "Save picture as\x85"),
      mnuPrint(frmDraw, "mnuPrint", "Print"),
      mnuPrintPreview(frmDraw, "mnuPrintPreview", "Print preview"),
      mnuExit(frmDraw, "mnuExit", "Exit"),
      mnuView(frmDraw, "mnuView", "View"),
      mnuRadiiArcs(frmDraw, "mnuRadiiArcs", "Radii Arcs"),
      mnuFillCycles(frmDraw, "mnuFillCycles", "Fill Cycles"),
      mnuProgramWindow(frmDraw, "mnuProgramWindow", "Program"),
      mnuToolWidth(frmDraw, "mnuToolWidth", "Tool Width"),
      mnuToolCenter(frmDraw, "mnuToolCenter", "Tool Center"),
      mnuGrid(frmDraw, "mnuGrid", "Grid"),
      mnuBackground(frmDraw, "mnuBackground", "Background"),
      mnuLegend(frmDraw, "mnuLegend", "Color Legend"),
      mnuDistinctColors(frmDraw, "mnuDistinctColors", "Color-blind safe"),
      mnuHoleMarks(frmDraw, "mnuHoleMarks", "Hole Marks"),
      mnuSettings(frmDraw, "mnuSettings", "Settings"),
      mnuScaleMenu(frmDraw, "mnuScaleMenu", "Scale"),
      mnuSimulation(frmDraw, "mnuSimulation", "Simulation"),
      mnuAutoRedraw(frmDraw, "mnuAutoRedraw", "AutoRedraw"),
      pbxViewWindow(frmDraw, "pbxViewWindow"),
      pbxDrawField(frmDraw, "pbxDrawField"),
      pbxDummy(frmDraw, "pbxDummy"),
      dlgPicture(frmDraw, "dlgPicture"),
      hsbViewWindow(frmDraw, "hsbViewWindow", false),
      vsbViewWindow(frmDraw, "vsbViewWindow", true),
      frProperties(frmDraw, "frProperties"),
      frDiameter(frmDraw, "frDiameter"),
      frX1Z1(frmDraw, "frX1Z1"),
      frX2Z2(frmDraw, "frX2Z2"),
      frDelta(frmDraw, "frDelta"),
      frGrid(frmDraw, "frGrid"),
      lblDiameter(frmDraw, "lblDiameter", "\xD8"),
      lblX1(frmDraw, "lblX1", "X1"),
      lblZ1(frmDraw, "lblZ1", "Z1"),
      lblX2(frmDraw, "lblX2", "X2"),
      lblZ2(frmDraw, "lblZ2", "Z2"),
      lblDeltaX(frmDraw, "lblDeltaX", "X"),
      lblDeltaZ(frmDraw, "lblDeltaZ", "Z"),
      lblDeltaXZ(frmDraw, "lblDeltaXZ", "XZ1-XZ2"),
      lblGrid(frmDraw, "lblGrid", "Grid size"),
      lblFileName(frmDraw, "lblFileName"),
      txtDiameter(frmDraw, "txtDiameter"),
      txtX1(frmDraw, "txtX1"),
      txtZ1(frmDraw, "txtZ1"),
      txtX2(frmDraw, "txtX2"),
      txtZ2(frmDraw, "txtZ2"),
      txtDeltaX(frmDraw, "txtDeltaX"),
      txtDeltaZ(frmDraw, "txtDeltaZ"),
      txtDeltaXZ(frmDraw, "txtDeltaXZ"),
      txtGrid(frmDraw, "txtGrid"),
      cmdAutoFit(frmDraw, "cmdAutoFit", "AutoFit"),
      cmdRedraw(frmDraw, "cmdRedraw", "Redraw"),
      UpDown(frmDraw, "UpDown"),
      frStepControls(frmDraw, "frStepControls"),
      cmdStep(frmDraw, "cmdStep", "Step"),
      cmdStop(frmDraw, "cmdStop", "Abort"),
      cmdRun(frmDraw, "cmdRun", "Run"),
      Timer1(frmDraw, "Timer1", 0) {
    frmDraw.Visible = false;
    frmDraw.Width = firstWidth;
    frmDraw.Height = firstHeight;
    frmDraw.EdgeWidth = edgeWidth;
    frmDraw.EdgeHeight = edgeHeight;
    Timer1.Enabled = false;
    MakeMenus();
    PlaceField();
    PlaceFrames();
}

void DrawControls::MakeMenus() {
    for (int i = 0; i < ScaleCount; ++i) {
        auto& entry = mnuScale[static_cast<std::size_t>(i)];
        entry = std::make_unique<Menu>(frmDraw, "mnuScale", scaleCaptions[i], i);
        entry->Container = &mnuScaleMenu;
        entry->Checked = i == IndexOfScale1;
    }
    for (int i = 0; i < SimulationCount; ++i) {
        auto& entry = mnuSim[static_cast<std::size_t>(i)];
        entry = std::make_unique<Menu>(frmDraw, "mnuSim", simulationCaptions[i], i);
        entry->Container = &mnuSimulation;
        entry->Checked = i == simulation::Run;
    }
    Put(mnuFile, {&mnuEditor, &mnuRedraw, &mnuAutoFit, &mnuSaveBMP, &mnuSaveClipboard, &mnuSavePicture,
                  &mnuPrint, &mnuPrintPreview, &mnuExit});
    Put(mnuView, {&mnuRadiiArcs, &mnuFillCycles, &mnuProgramWindow, &mnuToolWidth, &mnuToolCenter, &mnuGrid,
                  &mnuBackground, &mnuLegend, &mnuDistinctColors, &mnuHoleMarks});
    Put(mnuSettings, {&mnuScaleMenu, &mnuSimulation, &mnuAutoRedraw});
    mnuEditor.Shortcut = "F6";
    mnuSavePicture.Shortcut = "Ctrl+Shift+S";
    mnuSavePicture.ToolTip = "The whole drawing as a PNG, SVG, PDF or BMP file";
    mnuPrint.Shortcut = "Ctrl+P";
    mnuPrintPreview.Shortcut = "Ctrl+Shift+P";
    dlgPicture.Filter = "PNG|*.png|SVG|*.svg|PDF|*.pdf|BMP|*.bmp";
    dlgPicture.CancelError = false;
    SetDesignMarks();
}

void DrawControls::SetDesignMarks() {
    for (Menu* entry : {&mnuRadiiArcs, &mnuFillCycles, &mnuProgramWindow, &mnuBackground, &mnuDistinctColors,
                        &mnuHoleMarks})
        entry->Checked = false;
    for (Menu* entry : {&mnuToolWidth, &mnuToolCenter, &mnuGrid, &mnuAutoRedraw, &mnuLegend})
        entry->Checked = true;
}

void DrawControls::PlaceField() {
    Put(pbxViewWindow, {&pbxDrawField});
    Place(pbxDrawField, -14330, -15000, fieldSize, fieldSize);
    pbxDrawField.BackColor = 0;
    pbxDrawField.TabIndex = 0;
    pbxDummy.Visible = false;
    hsbViewWindow.Height = barBreadth;
    vsbViewWindow.Width = barBreadth;
    for (ScrollBar* bar : {&hsbViewWindow, &vsbViewWindow}) {
        bar->SmallChange = 30;
        bar->LargeChange = 300;
    }
}

void DrawControls::FillFrames(int fieldWidth) {
    const int number = fieldWidth;
    const int distance = std::max(number, distanceWidth);
    FillFrame(frDiameter, {{&lblDiameter, &txtDiameter, number}});
    FillFrame(frX1Z1, {{&lblX1, &txtX1, number}, {&lblZ1, &txtZ1, number}});
    FillFrame(frX2Z2, {{&lblX2, &txtX2, number}, {&lblZ2, &txtZ2, number}});
    FillFrame(frDelta, {{&lblDeltaX, &txtDeltaX, number},
                        {&lblDeltaZ, &txtDeltaZ, number},
                        {&lblDeltaXZ, &txtDeltaXZ, distance}});
    FillFrame(frGrid, {{&lblGrid, &txtGrid, 1480}});
}

void DrawControls::PlaceFrames() {
    FillFrames(firstFieldWidth);
    Place(cmdAutoFit, 0, 120, 840, 380);
    Place(cmdRedraw, 0, 120, 820, 380);
    Place(UpDown, 0, 100, 280, 420);
    Put(frProperties,
        {&frDiameter, &frX1Z1, &frX2Z2, &frDelta, &frGrid, &cmdAutoFit, &cmdRedraw, &UpDown, &lblFileName});
    Place(frProperties, 0, 0, 8700, 620);
    Place(lblFileName, 60, 590, 6000, 200);
    lblFileName.Visible = false;
    for (TextBox* numeric : {&txtX1, &txtZ1, &txtX2, &txtZ2}) numeric->Numeric = true;
    for (TextBox* shown : {&txtDiameter, &txtDeltaX, &txtDeltaZ, &txtDeltaXZ, &txtGrid})
        shown->ReadOnly = true;
    lblDiameter.ToolTip = "Diameter";
    UpDown.Max = ScaleCount - 1;
    UpDown.SetValue(IndexOfScale1);

    Place(frStepControls, 0, 600, 2900, 480);
    Put(frStepControls, {&cmdStep, &cmdStop, &cmdRun});
    Place(cmdStep, 60, 100, 900, 330);
    Place(cmdStop, 1000, 100, 900, 330);
    Place(cmdRun, 1940, 100, 900, 330);
    frStepControls.Visible = false;
    int next = 1;
    for (Control* stop :
         std::initializer_list<Control*>{&txtX1, &txtZ1, &txtX2, &txtZ2, &cmdAutoFit, &cmdRedraw, &UpDown,
                                         &cmdStep, &cmdStop, &cmdRun, &hsbViewWindow, &vsbViewWindow}) {
        stop->TabIndex = next++;
    }
}

}  // namespace kvt
