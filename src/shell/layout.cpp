#include "shell/layout.h"

#include <algorithm>
#include <utility>

#include "shell/axes_pictures.h"
#include "shell/placing.h"
#include "shell/transfer_wiring.h"
#include "shell/workbench.h"

namespace kvt {

namespace {

// The bands of the window.
constexpr int listTop = 1360;
constexpr int entryBand = 2000;
constexpr int frameHeight = entryBand - 90;
constexpr int codeListWidth = 3540;
constexpr int mListHeight = 2735;
constexpr int millMTop = 4000;
constexpr int smallestNotes = 1000;

// Inside frames: the first line stands below the frame's title.
constexpr int firstLine = 300;
constexpr int fieldHeight = 360;
constexpr int lineHeight = 285;

void PlaceTopBand(Workbench& bench, int width) {
    MainControls& main = bench.Main;
    Place({{main.frControlPanel, 0, 30, width - 3740, listTop - 60},
           {main.frSetReplace, width - 8180, 30, 1440, listTop - 60},
           {main.frView, width - 6700, 30, 2940, listTop - 60},
           {bench.File.lblPath, 60, 240, width - 8340, 240},
           {bench.File.lblFileName, 60, 240, width - 8340, 240}});
    // The buttons that are in use share the room beside the presets.
    const int room = width - 8340;
    int shown = 0;
    for (const auto& button : main.cmdTopButtons) shown += button->Visible ? 1 : 0;
    const int each = std::min(960, room / std::max(1, shown));
    int left = 60;
    for (const auto& button : main.cmdTopButtons) {
        Place({{*button, left, 480, each - 60, 660}});
        if (button->Visible) left += each;
    }
    Place({{bench.Entry.cmdFeedA, 90, firstLine, 660, fieldHeight},
           {bench.Entry.txtFeedA, 780, firstLine, 570, fieldHeight},
           {bench.Entry.cmdFeedB, 90, 780, 660, fieldHeight},
           {bench.Entry.txtFeedB, 780, 780, 570, fieldHeight}});
    ViewColumns& view = bench.View;
    Place({{view.chkViewToolPos, 90, firstLine, 1560, lineHeight},
           {view.chkViewLineProperties, 90, firstLine + 310, 1560, lineHeight},
           {view.chkViewMachineTime, 90, firstLine + 620, 1560, lineHeight},
           {view.chkViewGcode, 1680, firstLine, 1200, lineHeight},
           {view.chkViewFileNotes, 1680, firstLine + 310, 1200, lineHeight}});
}

void PlaceCodeLists(Workbench& bench, int width, int bandTop) {
    const int left = width - 3700;
    CodeLists& lists = bench.Lists;
    const int lathesMTop = 3060;
    // The notes keep a few lines in sight above the entry band. In a low window they lie over the end of the mill's
    // list, which has its full height in each.
    const int lathesMHeight = std::min(mListHeight, bandTop - lathesMTop - smallestNotes - 60);
    Place({{lists.lstMK2Gcodes, left, 0, codeListWidth, 3030},
           {bench.Main.lstMK2Mcodes, left, lathesMTop, codeListWidth, lathesMHeight},
           {lists.lstMK4Gcodes, left, 0, codeListWidth, 3030},
           {lists.lstMK4Mcodes, left, lathesMTop, codeListWidth, lathesMHeight},
           {lists.lstF1Gcodes, left, 0, codeListWidth, 3985},
           {lists.lstF1Mcodes, left, millMTop, codeListWidth, mListHeight}});
    const int listEnd = bench.Store.IsF1() ? millMTop + mListHeight : lathesMTop + lathesMHeight;
    const int notesTop = std::min(listEnd + 60, bandTop - smallestNotes);
    const int notesHeight = bandTop - notesTop - 60;
    Place({{bench.Main.frFileNotes, width - 3680, notesTop, codeListWidth, notesHeight},
           {bench.File.txtFileNotes, 60, 270, codeListWidth - 120, notesHeight - 330}});
    bench.Main.frFileNotes.Visible = bench.View.chkViewFileNotes.Value != 0;
}

void PlaceList(Workbench& bench, int width, int height) {
    const int listWidth = width - 3700;
    const int listHeight = height - 3370;
    MainControls& main = bench.Main;
    EntryRow& entry = bench.Entry;
    Place({{bench.Store.lvCncProgram, 0, listTop, listWidth, listHeight},
           {entry.picZXaxes, 20, listTop + 20, listWidth - 40, listHeight - 40},
           {entry.picXYaxes, 20, listTop + 20, listWidth - 40, listHeight - 40},
           {main.rtfHelp, 0, listTop, listWidth, listHeight},
           {main.rtfGcodeHelpMK2, 0, listTop, listWidth, listHeight},
           {main.rtfGcodeHelpMK4, 0, listTop, listWidth, listHeight},
           {main.rtfAbout, 0, listTop, listWidth, listHeight},
           {main.tabSettings, 0, listTop, listWidth, listHeight},
           {bench.Help.txtSearch, listWidth - 780 - 2700, listTop + 110, 2600, 345},
           {main.lstAbout, listWidth - 2640, listTop + 600, 3450, 900},
           {entry.cmdReturn, listWidth - 780, listTop + 110, 720, fieldHeight}});
}

// Left edges of label and field of the chain, by machine.
struct FieldColumns {
    int X, Y, Z, F, H;
};
constexpr FieldColumns latheFields{1080, 1080, 2040, 3000, 3960};
// On the mill a code has Y or H, never both.
constexpr FieldColumns millFields{1080, 2040, 3000, 3960, 2040};

void PlaceEntry(Workbench& bench, int bandTop) {
    EntryRow& entry = bench.Entry;
    const FieldColumns& at = bench.Store.IsF1() ? millFields : latheFields;
    const int labelTop = firstLine;
    const int fieldTop = firstLine + 270;
    const int commentTop = fieldTop + 510;
    const int fieldWidth = 840;
    Place({{entry.frEntry, 30, bandTop, 4860, frameHeight},
           {entry.lblGMcode, 120, labelTop, 300, 240},
           {entry.txtGMcode, 120, fieldTop, fieldWidth, fieldHeight},
           {entry.lblXI, at.X, labelTop, fieldWidth, 240},
           {entry.txtXI, at.X, fieldTop, fieldWidth, fieldHeight},
           {entry.lblYJ, at.Y, labelTop, fieldWidth, 240},
           {entry.txtYJ, at.Y, fieldTop, fieldWidth, fieldHeight},
           {entry.lblZK, at.Z, labelTop, fieldWidth, 240},
           {entry.txtZK, at.Z, fieldTop, fieldWidth, fieldHeight},
           {entry.lblFKTL, at.F, labelTop, fieldWidth, 240},
           {entry.txtFKTL, at.F, fieldTop, fieldWidth, fieldHeight},
           {entry.lblH, at.H, labelTop, fieldWidth, 240},
           {entry.txtH, at.H, fieldTop, fieldWidth, fieldHeight},
           {bench.Main.lblComment, 90, commentTop + 60, 975, 240},
           {entry.txtComment, 1080, commentTop, 3720, fieldHeight}});
}

void PlaceEditorButtons(Workbench& bench, int bandTop) {
    MainControls& main = bench.Main;
    InterpreterControls& results = bench.Results;
    const int buttonWidth = 840;
    const int step = 450;
    Place({{main.frCmdEditor1, 4920, bandTop, 1020, frameHeight},
           {main.frCmdEditor2, 4920, bandTop, 0, 0},
           {main.frCmdEditor3, 5970, bandTop, 1020, frameHeight},
           {main.cmdInsert, 90, firstLine, buttonWidth, fieldHeight},
           {main.cmdDelete, 90, firstLine + step, buttonWidth, fieldHeight},
           {results.cmdRun, 90, firstLine, buttonWidth, fieldHeight},
           {results.cmdStep, 90, firstLine + step, buttonWidth, fieldHeight},
           {results.cmdStop, 5970 + 90, bandTop + firstLine + 2 * step, buttonWidth, fieldHeight}});
}

// Right edges of the columns of minimum, maximum and travel, within the frame of an axis.
constexpr int axisColumns[] = {1200, 1800, 2370};
constexpr int axisColumnWidth = 645;
constexpr int axisFrameLeft = 60;

void PlaceAxis(Frame& frame, int top, Label& min, Label& max, Label& travel) {
    Place({{frame, axisFrameLeft, top, 2430, 450}});
    Label* const values[] = {&min, &max, &travel};
    for (int i = 0; i < 3; ++i) {
        Place({{*values[i], axisColumns[i] - axisColumnWidth, 165, axisColumnWidth, 240}});
    }
}

void PlaceAxes(Workbench& bench, int bandTop) {
    MainControls& main = bench.Main;
    InterpreterControls& results = bench.Results;
    Place({{main.frAxesProperties, 7020, bandTop, 2550, frameHeight}});
    Label* const heads[] = {&main.lblMin, &main.lblMax, &main.lblTravel};
    for (int i = 0; i < 3; ++i) {
        Place({{*heads[i], axisFrameLeft + axisColumns[i] - axisColumnWidth, 210, axisColumnWidth, 210}});
    }
    // Without a Y axis the other two have its room.
    const bool three = bench.Store.IsF1();
    const int first = three ? 390 : 480;
    const int step = three ? 480 : 630;
    PlaceAxis(main.frXAxis, first, results.lblXAxisMin, results.lblXAxisMax, results.lblXAxisTravel);
    PlaceAxis(main.frYaxis, first + step, results.lblYAxisMin, results.lblYAxisMax, results.lblYAxisTravel);
    PlaceAxis(main.frZAxis, first + (three ? 2 : 1) * step, results.lblZAxisMin, results.lblZAxisMax,
              results.lblZAxisTravel);
}

// Names at the left edge of the frame, values at the right.
void PlaceProperties(Workbench& bench, int width, int bandTop) {
    MainControls& main = bench.Main;
    InterpreterControls& results = bench.Results;
    const int frameWidth = std::min(width - 9660, 2700);
    const int nameWidth = 1500;
    const int margin = 105;
    Place({{main.frProgramProperties, 9600, bandTop, frameWidth, frameHeight},
           {main.lblMachineType, margin, firstLine, frameWidth - 2 * margin, lineHeight}});
    const std::pair<Label*, Label*> lines[] = {{&main.lblUnits, &bench.Machine.lblPPUnits},
                                               {&main.lblLines, &results.lblPPLines},
                                               {&main.lblLinesExecuted, &results.lblPPLinesExe},
                                               {&main.lblMachineTime, &results.lblPPMachineTime}};
    int top = firstLine;
    for (const auto& [name, value] : lines) {
        top += 310;
        Place({{*name, margin, top, nameWidth, lineHeight},
               {*value, 1050, top, frameWidth - margin - 1050, lineHeight}});
    }
}

void PlaceSettings(Workbench& bench) {
    MainControls& main = bench.Main;
    MachineControls& machine = bench.Machine;
    const int top = 600;
    Place({{bench.View.chkSettingsAutowidth, 240, top, 3000, lineHeight},
           {bench.Entry.chkSettingsDWC, 240, top + 390, 3000, lineHeight},
           {main.lblSettingsAbsColor, 240, top + 900, 2400, 300},
           {main.lblSettingsIncrColor, 240, top + 1260, 2400, 300},
           {main.cmdResetAll, 240, top + 1800, 2400, 420},
           {bench.Paper.lblFontName, 240, top, 2600, lineHeight},
           {bench.Paper.cboFontName, 240, top + 300, 3000, fieldHeight},
           {bench.Paper.lblFontSize, 3480, top, 900, lineHeight},
           {bench.Paper.cboFontSize, 3480, top + 300, 900, fieldHeight},
           {bench.Paper.cmdPrinterDialog, 240, top + 900, 2400, 420},
           {main.frMachineType, 240, top, 2600, 1500},
           {machine.optSettingsMK2, 120, firstLine, 2400, lineHeight},
           {machine.optSettingsMK4, 120, firstLine + 360, 2400, lineHeight},
           {machine.optSettingsF1CNC, 120, firstLine + 720, 2400, lineHeight},
           {main.frCompact5, 3000, top, 1500, 1500},
           {machine.optSettingsMm, 120, firstLine, 1200, lineHeight},
           {machine.optSettingsInch, 120, firstLine + 360, 1200, lineHeight},
           {main.frF1CNC, 240, top + 1650, 4260, 1500},
           {machine.optSettingsVmm, 120, 630, 900, lineHeight},
           {machine.optSettingsVinch, 1080, 630, 900, lineHeight},
           {machine.optSettingsHmm, 2220, 630, 900, lineHeight},
           {machine.optSettingsHinch, 3180, 630, 900, lineHeight},
           {main.lblVertical, 120, firstLine, 1800, lineHeight},
           {main.lblHorizontal, 2220, firstLine, 1800, lineHeight}});
}

}  // namespace

void PlaceMainWindow(Workbench& bench) {
    Form& form = bench.frmMain;
    // 1.
    if (form.State.Get() == WindowState::Minimised) return;
    if (form.State.Get() == WindowState::Normal) {
        form.Height = std::max(form.Height.Get(), SmallestHeight);
        form.Width = std::max(form.Width.Get(), SmallestWidth);
    }
    // 2., 3.
    const int width = form.Width;
    const int height = form.Height;
    const int bandTop = height - entryBand;
    PlaceTopBand(bench, width);
    PlaceCodeLists(bench, width, bandTop);
    PlaceList(bench, width, height);
    PlaceEntry(bench, bandTop);
    PlaceEditorButtons(bench, bandTop);
    PlaceAxes(bench, bandTop);
    PlaceProperties(bench, width, bandTop);
    PlaceSettings(bench);
    DrawLatheAxes(bench.Entry.picZXaxes);
    DrawLatheAxes(bench.Main.lstMK2Mcodes);
    DrawMillAxes(bench.Entry.picXYaxes);
    PlaceTransfer(bench, width, height);

    FileControls& file = bench.File;
    file.lblPath.ToolTip = file.lblFileName.Caption;
    file.lblFileName.ToolTip = file.lblPath.Caption;
    bench.Main.lblSettingsIncrColor.ForeColor = bench.Store.IncrColor;
    bench.Main.lblSettingsAbsColor.ForeColor = bench.Store.AbsColor;
    bench.Entry.picXYaxes.Visible = false;
    bench.Entry.picZXaxes.Visible = false;
    // Nothing is left to return from but a document.
    const auto& main = bench.Main;
    if (!main.rtfHelp.Visible && !main.rtfGcodeHelpMK2.Visible && !main.rtfGcodeHelpMK4.Visible &&
        !main.rtfAbout.Visible) {
        bench.Entry.cmdReturn.Visible = false;
    }
    bench.Main.frYaxis.Visible = bench.Store.IsF1();
}

}  // namespace kvt
