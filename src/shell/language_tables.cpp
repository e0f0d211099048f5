#include "shell/language_tables.h"

#include "shell/main_controls.h"

namespace kvt {

namespace {

constexpr ShownText caption = ShownText::Caption;
constexpr ShownText toolTip = ShownText::ToolTip;
constexpr ShownText tab = ShownText::Tab;

constexpr LabelRow labelRows[] = {
    {"menu RightClick", "Delete line", "RCmnuDelete"},
    {"menu RightClick", "Insert line", "RCmnuInsert"},
    {"menu RightClick", "Receive file", "RCmnuRX"},
    {"menu RightClick", "Transmit file", "RCmnuTX"},

    {"menu File", "File", "mnuFile"},
    {"menu File", "Open", "mnuOpen"},
    {"menu File", "New", "mnuNew"},
    {"menu File", "Save", "mnuSave"},
    {"menu File", "Save As", "mnuSaveAs"},
    {"menu File", "Recent files", "mnuRecent"},
    {"menu File", "Samples", "mnuSamples"},
    {"menu File", "Load from Clipboard", "mnuLoadClipboard"},
    {"menu File", "Save to Clipboard", "mnuSaveClipboard"},
    {"menu File", "Import", "mnuImport"},
    {"menu File", "Find", "mnuFind"},
    {"menu File", "Find", "frmFind"},
    {"menu File", "Find", "frmFind.lblFind"},
    {"menu File", "Go to error", "mnuGoToError"},
    {"menu File", "Draw", "mnuDraw"},
    {"menu File", "Print", "mnuPrint"},
    {"menu File", "Print preview", "mnuPrintPreview"},
    {"menu File", "Print preview", "frmDraw.mnuPrintPreview"},
    {"menu File", "Exit", "mnuExit"},

    {"menu Settings", "Settings", "mnuSettings"},

    {"menu Transfer", "Transfer", "mnuXfer"},
    {"menu Transfer", "Receive from Emco", "mnuRX"},
    {"menu Transfer", "Transmit to Emco", "mnuTX"},
    {"menu Transfer", "Transmit to Emco", "frTransmit"},

    {"menu Convert", "Convert", "mnuConvert"},
    {"menu Convert", "mm to inch", "mnuMMtoINCH"},
    {"menu Convert", "inch to mm", "mnuINCHtoMM"},
    {"menu Convert", "Calculator", "mnuCalculator"},
    {"menu Convert", "Delete all comments", "mnuDelComments"},

    {"menu Help", "Help", "mnuHelp"},
    {"menu Help", "Help", "mnuHelpText"},
    {"menu Help", "G-Code", "mnuGhelp"},
    {"menu Help", "About", "mnuAbout"},

    {"Toolbar", "Open File", "cmdTopButtons", toolTip, Index(TopButton::Open)},
    {"Toolbar", "Save File", "cmdTopButtons", toolTip, Index(TopButton::Save)},
    {"Toolbar", "New File", "cmdTopButtons", toolTip, Index(TopButton::New)},
    {"Toolbar", "Print File", "cmdTopButtons", toolTip, Index(TopButton::Print)},
    {"Toolbar", "Settings", "cmdTopButtons", toolTip, Index(TopButton::Settings)},
    {"Toolbar", "Show Axes", "cmdTopButtons", toolTip, Index(TopButton::LatheAxes)},
    {"Toolbar", "Show Axes", "cmdTopButtons", toolTip, Index(TopButton::MillAxes)},
    {"Toolbar", "Draw Toolpath", "cmdTopButtons", toolTip, Index(TopButton::Draw)},
    {"Toolbar", "Receive File", "cmdTopButtons", toolTip, Index(TopButton::Receive)},
    {"Toolbar", "Transmit File", "cmdTopButtons", toolTip, Index(TopButton::Transmit)},

    {"Frame Path", "Current File", "frControlPanel"},

    {"Frame Set & Replace", "Set/Replace", "frSetReplace"},
    {"Frame Set & Replace", "Feed A", "cmdFeedA"},
    {"Frame Set & Replace", "Feed B", "cmdFeedB"},

    {"Frame View", "View", "frView"},
    {"Frame View", "Tool Position", "chkViewToolPos"},
    {"Frame View", "Line Properties", "chkViewLineProperties"},
    {"Frame View", "Machine Time", "chkViewMachineTime"},
    {"Frame View", "Gcode", "chkViewGcode"},
    {"Frame View", "File Notes", "chkViewFileNotes"},

    {"Frame Axes Properties", "Axes Properties", "frAxesProperties"},
    {"Frame Axes Properties", "Min", "lblMin"},
    {"Frame Axes Properties", "Max", "lblMax"},
    {"Frame Axes Properties", "Travel", "lblTravel"},
    {"Frame Axes Properties", "X-axis", "frXAxis"},
    {"Frame Axes Properties", "Y-axis", "frYaxis"},
    {"Frame Axes Properties", "Z-axis", "frZAxis"},

    {"Frame Program Properties", "Program Properties", "frProgramProperties"},
    // The label shows which machine it is; its tool tip tells what that is.
    {"Frame Program Properties", "Machine Type", "lblMachineType", toolTip},
    {"Frame Program Properties", "Units", "lblUnits"},
    {"Frame Program Properties", "Lines", "lblLines"},
    {"Frame Program Properties", "Lines Executed", "lblLinesExecuted"},
    {"Frame Program Properties", "Machine Time", "lblMachineTime"},

    {"Frame Entry", "Parameters", "frEntry"},
    // The label shows the letter of the code.
    {"Frame Entry", "Code", "lblGMcode", toolTip},
    {"Frame Entry", "Comment", "lblComment"},
    {"Frame Entry", "Run", "cmdRun"},
    {"Frame Entry", "Step", "cmdStep"},
    {"Frame Entry", "Stop", "cmdStop"},
    {"Frame Entry", "Insert", "cmdInsert"},
    {"Frame Entry", "Delete", "cmdDelete"},
    {"Frame Entry", "Return", "cmdReturn"},

    {"Frame File Notes", "File Notes", "frFileNotes"},

    {"Settings", "General", "mnuGeneral"},
    {"Settings", "General", "tabSettings", tab},
    {"Settings", "Info", "mnuInfo"},
    {"Settings", "Info", "tabSettings", tab},
    {"Settings", "Machine", "mnuMachine"},
    {"Settings", "Machine", "tabSettings", tab},
    {"Settings", "Machine", "frMachineType"},
    {"Settings", "Printer", "mnuPrinter"},
    {"Settings", "Printer", "tabSettings", tab},
    {"Settings", "COM", "mnuCOM"},
    {"Settings", "COM", "tabSettings", tab},
    {"Settings", "AutoWidth", "chkSettingsAutowidth"},
    {"Settings", "Delete without confirmation", "chkSettingsDWC"},
    {"Settings", "Color Incremental", "lblSettingsIncrColor"},
    {"Settings", "Color Absolute", "lblSettingsAbsColor"},
    {"Settings", "Reset all settings", "cmdResetAll"},
    {"Settings", "Reset all settings", "mnuReset"},
    {"Settings", "Compact5 CNC", "frCompact5"},
    {"Settings", "mm", "optSettingsMm"},
    {"Settings", "mm", "optSettingsHmm"},
    {"Settings", "mm", "optSettingsVmm"},
    {"Settings", "Inch", "optSettingsInch"},
    {"Settings", "Inch", "optSettingsHinch"},
    {"Settings", "Inch", "optSettingsVinch"},
    {"Settings", "F1 CNC", "frF1CNC"},
    {"Settings", "F1 CNC", "optSettingsF1CNC"},
    {"Settings", "Horizontal", "lblHorizontal"},
    {"Settings", "Vertical", "lblVertical"},
    {"Settings", "Current File Path", "lblCurrentFilePath"},
    {"Settings", "Application Path", "lblApplicationPath"},
    {"Settings", "Settings Path", "lblSettingsPath"},
    {"Settings", "Compact5 CNC MK2", "optSettingsMK2"},
    {"Settings", "Compact5 CNC MK4", "optSettingsMK4"},
    {"Settings", "Font", "lblFontName"},
    {"Settings", "Size", "lblFontSize"},
    {"Settings", "Printer Settings", "cmdPrinterDialog"},
    {"Settings", "Com ports", "frComPorts"},
    {"Settings", "Enable Communication", "chkEnableCom"},
    {"Settings", "Port", "frPortTX"},
    {"Settings", "Port", "frPortRX"},
    {"Settings", "Baud", "frBaudTX"},
    {"Settings", "Baud", "frBaudRX"},
    {"Settings", "Parity", "frParityTX"},
    {"Settings", "Parity", "frParityRX"},
    {"Settings", "Data bits", "frDataBitsTX"},
    {"Settings", "Data bits", "frDataBitsRX"},
    {"Settings", "Stop bits", "frStopBitsTX"},
    {"Settings", "Stop bits", "frStopBitsRX"},
    {"Settings", "Handshake", "frHandshakeTX"},
    {"Settings", "Handshake", "frHandshakeRX"},
    {"Settings", "Transmit", "frTX"},
    {"Settings", "Receive", "frRX"},
    {"Settings", "G/M-code filter", "chkTXfilter"},
    {"Settings", "G/M-code filter", "chkRXfilter"},
    {"Settings", "Standard setting", "lblTXstandard"},
    {"Settings", "Standard setting", "lblRXstandard"},

    {"Import", "Abort", "frmPreProcessor.cmdAbort"},

    {"TRANSFER Frames", "Received Code from Emco", "frRXcode"},

    {"TRANSFER Buttons Tooltips", "Bring Code to KVT editor", "cmdReceiveImport", toolTip},
    {"TRANSFER Buttons Tooltips", "Exit Transfer Mode", "cmdReceiveExit", toolTip},
    {"TRANSFER Buttons Tooltips", "Clear Received Code", "cmdReceiveNew", toolTip},
    {"TRANSFER Buttons Tooltips", "Save Received Code", "cmdReceiveSave", toolTip},

    {"DRAW Menu File", "File", "frmDraw.mnuFile"},
    {"DRAW Menu File", "Editor", "frmDraw.mnuEditor"},
    {"DRAW Menu File", "Redraw", "frmDraw.mnuRedraw"},
    {"DRAW Menu File", "AutoFit", "frmDraw.mnuAutoFit"},
    {"DRAW Menu File", "Save BMP", "frmDraw.mnuSaveBMP"},
    {"DRAW Menu File", "Save to Clipboard", "frmDraw.mnuSaveClipboard"},
    {"DRAW Menu File", "Save picture as\x85", "frmDraw.mnuSavePicture"},
    {"DRAW Menu File", "Print", "frmDraw.mnuPrint"},
    {"DRAW Menu File", "Exit", "frmDraw.mnuExit"},

    {"DRAW Menu View", "View", "frmDraw.mnuView"},
    {"DRAW Menu View", "Radii Arcs", "frmDraw.mnuRadiiArcs"},
    {"DRAW Menu View", "Fill Cycles", "frmDraw.mnuFillCycles"},
    {"DRAW Menu View", "Program", "frmDraw.mnuProgramWindow"},
    {"DRAW Menu View", "Tool Width", "frmDraw.mnuToolWidth"},
    {"DRAW Menu View", "Tool Center", "frmDraw.mnuToolCenter"},
    {"DRAW Menu View", "Grid", "frmDraw.mnuGrid"},
    {"DRAW Menu View", "Background", "frmDraw.mnuBackground"},

    {"DRAW Menu Settings", "Settings", "frmDraw.mnuSettings"},
    {"DRAW Menu Settings", "Scale", "frmDraw.mnuScaleMenu"},
    {"DRAW Menu Settings", "Simulation", "frmDraw.mnuSimulation"},
    {"DRAW Menu Settings", "Simulation", "frmDraw.cboBarSim", toolTip},
    {"DRAW Menu Settings", "AutoRedraw", "frmDraw.mnuAutoRedraw"},

    {"DRAW Menu Scale", "Scale  \xF7 8", "frmDraw.mnuScale", caption, 0},
    {"DRAW Menu Scale", "Scale  \xF7 4", "frmDraw.mnuScale", caption, 1},
    {"DRAW Menu Scale", "Scale  \xF7 2", "frmDraw.mnuScale", caption, 2},
    {"DRAW Menu Scale", "Scale  x 1", "frmDraw.mnuScale", caption, 3},
    {"DRAW Menu Scale", "Scale  x 2", "frmDraw.mnuScale", caption, 4},
    {"DRAW Menu Scale", "Scale  x 4", "frmDraw.mnuScale", caption, 5},
    {"DRAW Menu Scale", "Scale  x 8", "frmDraw.mnuScale", caption, 6},
    {"DRAW Menu Scale", "Scale  x16", "frmDraw.mnuScale", caption, 7},
    {"DRAW Menu Scale", "Scale  x32", "frmDraw.mnuScale", caption, 8},
    {"DRAW Menu Scale", "Scale  x64", "frmDraw.mnuScale", caption, 9},
    {"DRAW Menu Scale", "Scale  x128", "frmDraw.mnuScale", caption, 10},

    {"DRAW Menu Simulation", "Run", "frmDraw.mnuSim", caption, 0},
    {"DRAW Menu Simulation", "Step", "frmDraw.mnuSim", caption, 1},
    {"DRAW Menu Simulation", "Speed1", "frmDraw.mnuSim", caption, 2},
    {"DRAW Menu Simulation", "Speed2", "frmDraw.mnuSim", caption, 3},
    {"DRAW Menu Simulation", "Speed3", "frmDraw.mnuSim", caption, 4},

    {"DRAW Controls", "Diameter", "frmDraw.lblDiameter", toolTip},
    {"DRAW Controls", "Grid size", "frmDraw.lblGrid"},
    {"DRAW Controls", "Scale Up/Down", "frmDraw.UpDown", toolTip},
    {"DRAW Controls", "AutoFit", "frmDraw.cmdAutoFit"},
    {"DRAW Controls", "Redraw", "frmDraw.cmdRedraw"},
    {"DRAW Controls", "Step", "frmDraw.cmdStep"},
    {"DRAW Controls", "Step", "frmDraw.cmdBarStep"},
    {"DRAW Controls", "Abort", "frmDraw.cmdStop"},
    {"DRAW Controls", "Abort", "frmDraw.cmdBarStop"},
    {"DRAW Controls", "Run", "frmDraw.cmdRun"},
    {"DRAW Controls", "Run", "frmDraw.cmdBarRun"},
    {"DRAW Controls", "Program Lines", "frmProgramWindow"},
    // In the View menu, whose section knows the entries by their order.
    {"DRAW Controls", "Beside the program", "frmDraw.mnuBeside"},
    {"DRAW Controls", "Line under way", "frmDraw.txtBarLine", toolTip},
};

constexpr TableSection tableSections[] = {
    {"Program error codes", [](Texts& texts) -> TextTable& { return texts.ProgramErrorTexts; }},
    {"Error Messages", [](Texts& texts) -> TextTable& { return texts.ErrorTexts; }},
    {"Messages", [](Texts& texts) -> TextTable& { return texts.MessageTexts; }},
    {"DRAW Error Message", [](Texts& texts) -> TextTable& { return texts.DrawErrorTexts; }},
    {"Notices", [](Texts& texts) -> TextTable& { return texts.NoticeTexts; }},
    {"Explanations", [](Texts& texts) -> TextTable& { return texts.ExplanationTexts; }},
    // The entries of the View menu are looked up by their order too, when the draw window comes to the front.
    {"DRAW Menu View", [](Texts& texts) -> TextTable& { return texts.DrawViewTexts; }},
};

constexpr ListSection listSections[] = {
    {"G-code MK2", "lstMK2Gcodes"}, {"G-code MK4", "lstMK4Gcodes"}, {"G-code F1", "lstF1Gcodes"},
    {"M-Code MK4", "lstMK4Mcodes"}, {"M-Code F1", "lstF1Mcodes"},
};

}  // namespace

std::span<const LabelRow> LabelRows() { return labelRows; }
std::span<const TableSection> TableSections() { return tableSections; }
std::span<const ListSection> ListSections() { return listSections; }

}  // namespace kvt
