#include "shell/control_table.h"
#include "shell/main_controls.h"

namespace kvt {

namespace {

// The bands of the window: frames and buttons at the top, the program list with the code lists beside it, and at
// the bottom the entry row with what is told about the program.
constexpr int listTop = 1360;
constexpr int bandHeight = 2000;
constexpr int frameHeight = bandHeight - 90;
constexpr int sideWidth = 3700;  // of what lies right of the list
constexpr int codeListWidth = 3540;
constexpr int mListHeight = 2735;
constexpr int lathesMTop = 3060;
constexpr int millMTop = 4000;
// The notes keep a few lines in sight above the band. In a low window they lie over the end of the mill's list,
// which has its full height in each; that of the lathes gives way.
constexpr int smallestNotes = 1000;
constexpr int gap = 60;

// Inside frames: the first line lies below the frame's title.
constexpr int firstLine = 300;
constexpr int fieldHeight = 360;
constexpr int lineHeight = 285;
// On the pages of the settings.
constexpr int pageTop = 600;

constexpr Length Wide(int twips) { return {twips, Length::Of::Width}; }
constexpr Length WideUpTo(int twips, int most) {
    return {twips, Length::Of::Width, std::numeric_limits<int>::min(), most};
}
constexpr Length High(int twips) { return {twips, Length::Of::Height}; }
constexpr Length HighUpTo(int twips, int most) {
    return {twips, Length::Of::Height, std::numeric_limits<int>::min(), most};
}
constexpr Length HighFrom(int twips, int least) { return {twips, Length::Of::Height, least}; }
constexpr Length HighWithin(int twips, int least, int most) {
    return {twips, Length::Of::Height, least, most};
}
// So much up to the usual width of the window, and a share of what a wider one has more.
constexpr Length Grown(int twips, int percent) {
    return {twips - UsualWidth * percent / 100, Length::Of::Width, twips, std::numeric_limits<int>::max(),
            percent};
}
// So much from the smallest height on, and half of what a lower window lacks less.
constexpr Length HalfLower(int twips) {
    return {twips - SmallestHeight / 2, Length::Of::Height, std::numeric_limits<int>::min(), twips, 50};
}
// So much from the smallest height on, and all that a lower window lacks less.
constexpr Length Lower(int twips) { return HighUpTo(twips - SmallestHeight, twips); }

constexpr Area At(Length left, Length top, Length width, Length height) {
    return {left, top, width, height, true};
}
constexpr Length bandTop = High(-bandHeight);
constexpr Area InBand(Length left, Length width) { return At(left, bandTop, width, frameHeight); }
// The rectangle of the program list, and what lies within its edges.
constexpr Area OverList(int inset = 0) {
    return At(inset, listTop + inset, Wide(-sideWidth - 2 * inset), High(-3370 - 2 * inset));
}
constexpr Area CodeList(Length top, Length height) {
    return At(Wide(-sideWidth), top, codeListWidth, height);
}
// Below the smallest height both lists of the lathes give way, and the first one of the mill.
constexpr int listsAndNotes = bandHeight + smallestNotes + gap;
constexpr Length lathesMHeight =
    HighWithin(-listsAndNotes - lathesMTop, SmallestHeight - listsAndNotes - lathesMTop, mListHeight);
// Below the M codes, and down to the band.
constexpr int lathesNotes = lathesMTop + mListHeight + gap;
constexpr int millNotes = millMTop + mListHeight + gap;
constexpr Length NotesHeight(int top, int less) {
    return HighFrom(-bandHeight - gap - top - less, smallestNotes - gap - less);
}
constexpr Area Notes(int top) {
    return At(Wide(-3680), HighUpTo(-bandHeight - smallestNotes, top), codeListWidth, NotesHeight(top, 0));
}
constexpr Area NotesText(int top) { return At(60, 270, codeListWidth - 120, NotesHeight(top, 330)); }

// The fields of the entry row below their labels.
constexpr int fieldWidth = 840;
constexpr int commentTop = firstLine + 270 + 510;
constexpr Area EntryLabel(int left) { return At(left, firstLine, fieldWidth, 240); }
constexpr Area EntryField(int left) { return At(left, firstLine + 270, fieldWidth, fieldHeight); }

// How the entry row, the frame of the axes and what is told at the lower right share the room of a wide window.
constexpr int entryShare = 40;
constexpr int axesShare = 24;
constexpr Length AfterEntry(int left) { return Grown(left, entryShare); }

// The columns of minimum, maximum and travel within the frame of an axis. Without a Y axis the other two have its
// room.
constexpr int axisLeft = 60;
struct AxisColumn {
    int Left, Share;
};
constexpr AxisColumn minColumn = {555, axesShare / 3}, maxColumn = {1155, axesShare * 2 / 3},
                     travelColumn = {1725, axesShare};
constexpr Area AxisFrame(int top) { return At(axisLeft, top, Grown(2430, axesShare), 450); }
constexpr Area AxisHead(AxisColumn column) {
    return At(Grown(axisLeft + column.Left, column.Share), 210, 645, 210);
}
constexpr Area AxisValue(AxisColumn column) { return At(Grown(column.Left, column.Share), 165, 645, 240); }

// Names at the left edge of the frame, values at the right.
constexpr int propertiesRoom = 9660, propertiesWidth = 2700;
constexpr Area PropertyName(int line) { return At(105, firstLine + line * 310, 1500, lineHeight); }
constexpr Area PropertyValue(int line) {
    return At(1050, firstLine + line * 310, WideUpTo(-propertiesRoom - 1155, propertiesWidth - 1155),
              lineHeight);
}

constexpr Area SettingsLine(int line) { return At(240, pageTop + line, 3000, lineHeight); }
constexpr Area Option(int left, int top, int width) { return At(left, top, width, lineHeight); }
constexpr Area PathLabel(int line) { return At(240, pageTop + line * 900, 6600, 255); }
constexpr Area PathText(int line) { return At(240, pageTop + line * 900 + 300, 6600, 345); }

constexpr unsigned stop = ControlRow::TabStop;
constexpr unsigned frozen = ControlRow::Frozen;
constexpr unsigned overlay = ControlRow::Overlay;
constexpr unsigned hidden = ControlRow::Hidden;
constexpr unsigned atRight = ControlRow::AtRight;

constexpr const char* entryFrame = "frEntry";
constexpr const char* settings = "tabSettings";

constexpr ControlRow controlRows[] = {
    {"mnuFile", "", {}, frozen},
    {"mnuOpen", "mnuFile"},
    {"mnuNew", "mnuFile"},
    {"mnuSave", "mnuFile"},
    {"mnuSaveAs", "mnuFile"},
    {"mnuRecent", "mnuFile"},
    {"mnuSamples", "mnuFile", {}, hidden},
    {"mnuFileBar1", "mnuFile"},
    {"mnuImport", "mnuFile", {}, hidden},
    {"mnuLoadClipboard", "mnuFile"},
    {"mnuSaveClipboard", "mnuFile"},
    {"mnuFileBar2", "mnuFile"},
    {"mnuFind", "mnuFile"},
    {"mnuGoToError", "mnuFile"},
    {"mnuDraw", "mnuFile"},
    {"mnuPrint", "mnuFile"},
    {"mnuPrintPreview", "mnuFile"},
    {"mnuFileBar3", "mnuFile"},
    {"mnuExit", "mnuFile"},
    {"mnuEdit", "", {}, frozen},
    {"mnuUndo", "mnuEdit"},
    {"mnuRedo", "mnuEdit"},
    {"mnuSettings", "", {}, frozen},
    {"mnuGeneral", "mnuSettings"},
    {"mnuInfo", "mnuSettings"},
    {"mnuMachine", "mnuSettings"},
    {"mnuPrinter", "mnuSettings"},
    {"mnuReset", "mnuSettings"},
    {"mnuCOM", "mnuSettings"},
    {"mnuLanguage", "mnuSettings"},
    {"mnuXfer", "", {}, frozen},
    {"mnuRX", "mnuXfer"},
    {"mnuTX", "mnuXfer"},
    {"mnuConvert", "", {}, frozen},
    {"mnuINCHtoMM", "mnuConvert"},
    {"mnuMMtoINCH", "mnuConvert"},
    {"mnuCalculator", "mnuConvert"},
    {"mnuDelComments", "mnuConvert"},
    {"mnuHelp", "", {}, frozen},
    {"mnuHelpText", "mnuHelp"},
    {"mnuGhelp", "mnuHelp"},
    {"mnuAbout", "mnuHelp"},
    {"mnuRightClick", "", {}, hidden},
    {"RCmnuInsert", "mnuRightClick"},
    {"RCmnuDelete", "mnuRightClick"},
    {"RCmnuTX", "mnuRightClick"},
    {"RCmnuRX", "mnuRightClick"},

    // The chain of the entry row comes first for the Tab key. On the mill a code has Y or H, never both.
    {entryFrame, "", InBand(30, Grown(4860, entryShare)), frozen},
    {"lblGMcode", entryFrame, At(120, firstLine, 300, 240)},
    {"txtGMcode", entryFrame, EntryField(120), stop},
    {"lblXI", entryFrame, EntryLabel(1080)},
    {"txtXI", entryFrame, EntryField(1080), stop},
    {"lblYJ", entryFrame, EntryLabel(1080), 0, -1, EntryLabel(2040)},
    {"txtYJ", entryFrame, EntryField(1080), stop, -1, EntryField(2040)},
    {"lblZK", entryFrame, EntryLabel(2040), 0, -1, EntryLabel(3000)},
    {"txtZK", entryFrame, EntryField(2040), stop, -1, EntryField(3000)},
    {"lblFKTL", entryFrame, EntryLabel(3000), 0, -1, EntryLabel(3960)},
    {"txtFKTL", entryFrame, EntryField(3000), stop, -1, EntryField(3960)},
    {"lblH", entryFrame, EntryLabel(3960), 0, -1, EntryLabel(2040)},
    {"txtH", entryFrame, EntryField(3960), stop, -1, EntryField(2040)},
    {"lblComment", entryFrame, At(90, commentTop + 60, 1020, 240)},
    {"txtComment", entryFrame, At(1120, commentTop, Grown(3680, entryShare), fieldHeight), stop},
    {"lblBefore", entryFrame, At(90, commentTop + fieldHeight + 60, Grown(4680, entryShare), 285)},

    {"lvCncProgram", "", OverList(), stop},

    // cmdStop lies over frCmdEditor3, not in it: a frozen window keeps it.
    {"frCmdEditor1", "", InBand(AfterEntry(4920), 1020), frozen},
    {"frCmdEditor2", "", At(AfterEntry(4920), bandTop, 0, 0), frozen},
    {"frCmdEditor3", "", InBand(AfterEntry(5970), 1020)},
    {"cmdInsert", "frCmdEditor1", At(60, firstLine, 900, fieldHeight), stop | frozen},
    {"cmdDelete", "frCmdEditor1", At(60, firstLine + 450, 900, fieldHeight), stop | frozen},
    {"cmdRun", "frCmdEditor3", At(60, firstLine, 900, fieldHeight), stop | frozen},
    {"cmdStep", "frCmdEditor3", At(60, firstLine + 450, 900, fieldHeight), stop | frozen},
    {"cmdStop", "", At(AfterEntry(5970 + 60), High(-bandHeight + firstLine + 900), 900, fieldHeight),
     stop | frozen},

    {"frSetReplace", "", At(Wide(-8180), 30, 1440, listTop - 60), frozen},
    {"cmdFeedA", "frSetReplace", At(60, firstLine, 705, fieldHeight), stop | frozen},
    {"txtFeedA", "frSetReplace", At(780, firstLine, 600, fieldHeight), stop | frozen},
    {"cmdFeedB", "frSetReplace", At(60, 780, 705, fieldHeight), stop | frozen},
    {"txtFeedB", "frSetReplace", At(780, 780, 600, fieldHeight), stop | frozen},

    {"frView", "", At(Wide(-6700), 30, 2940, listTop - 60), frozen},
    {"chkViewToolPos", "frView", At(60, firstLine, 1665, lineHeight), stop | frozen},
    {"chkViewLineProperties", "frView", At(60, firstLine + 310, 1665, lineHeight), stop | frozen},
    {"chkViewMachineTime", "frView", At(60, firstLine + 620, 1665, lineHeight), stop | frozen},
    {"chkViewGcode", "frView", At(1725, firstLine, 1215, lineHeight), stop | frozen},
    {"chkViewFileNotes", "frView", At(1725, firstLine + 310, 1215, lineHeight), stop | frozen},

    // Only those of the lathes are disabled in a frozen window.
    {"lstMK2Gcodes", "", CodeList(0, HalfLower(3030)), stop | frozen},
    {"lstMK2Mcodes", "", CodeList(HalfLower(lathesMTop), lathesMHeight), frozen},
    {"lstMK4Gcodes", "", CodeList(0, HalfLower(3030)), stop | frozen},
    {"lstMK4Mcodes", "", CodeList(HalfLower(lathesMTop), lathesMHeight), stop | frozen},
    {"lstF1Gcodes", "", CodeList(0, Lower(3985)), stop},
    {"lstF1Mcodes", "", CodeList(Lower(millMTop), mListHeight), stop},
    {"frFileNotes", "", Notes(lathesNotes), frozen, -1, Notes(millNotes)},
    {"txtFileNotes", "frFileNotes", NotesText(lathesNotes), stop | frozen, -1, NotesText(millNotes)},

    {"frAxesProperties", "", InBand(AfterEntry(7020), Grown(2550, axesShare)), frozen},
    {"lblMin", "frAxesProperties", AxisHead(minColumn), frozen | atRight},
    {"lblMax", "frAxesProperties", AxisHead(maxColumn), frozen | atRight},
    {"lblTravel", "frAxesProperties", AxisHead(travelColumn), frozen | atRight},
    {"frXAxis", "frAxesProperties", AxisFrame(480), frozen, -1, AxisFrame(390)},
    {"lblXAxisMin", "frXAxis", AxisValue(minColumn), frozen | atRight},
    {"lblXAxisMax", "frXAxis", AxisValue(maxColumn), frozen | atRight},
    {"lblXAxisTravel", "frXAxis", AxisValue(travelColumn), frozen | atRight},
    {"frYaxis", "frAxesProperties", AxisFrame(1110), frozen, -1, AxisFrame(870)},
    {"lblYAxisMin", "frYaxis", AxisValue(minColumn), frozen | atRight},
    {"lblYAxisMax", "frYaxis", AxisValue(maxColumn), frozen | atRight},
    {"lblYAxisTravel", "frYaxis", AxisValue(travelColumn), frozen | atRight},
    {"frZAxis", "frAxesProperties", AxisFrame(1110), frozen, -1, AxisFrame(1350)},
    {"lblZAxisMin", "frZAxis", AxisValue(minColumn), frozen | atRight},
    {"lblZAxisMax", "frZAxis", AxisValue(maxColumn), frozen | atRight},
    {"lblZAxisTravel", "frZAxis", AxisValue(travelColumn), frozen | atRight},

    {"frProgramProperties", "",
     InBand(Grown(9600, entryShare + axesShare), WideUpTo(-propertiesRoom, propertiesWidth)), frozen},
    {"lblMachineType", "frProgramProperties",
     At(105, firstLine, WideUpTo(-propertiesRoom - 210, propertiesWidth - 210), lineHeight), frozen},
    {"lblUnits", "frProgramProperties", PropertyName(1), frozen},
    {"lblPPUnits", "frProgramProperties", PropertyValue(1), frozen | atRight},
    {"lblLines", "frProgramProperties", PropertyName(2), frozen},
    {"lblPPLines", "frProgramProperties", PropertyValue(2), frozen | atRight},
    {"lblLinesExecuted", "frProgramProperties", PropertyName(3), frozen},
    {"lblPPLinesExe", "frProgramProperties", PropertyValue(3), frozen | atRight},
    {"lblMachineTime", "frProgramProperties", PropertyName(4), frozen},
    {"lblPPMachineTime", "frProgramProperties", PropertyValue(4), frozen | atRight},

    // Where there is room for it: see PlaceNotice.
    {"lblNotice", "", {}, hidden},

    {settings, "", OverList(), stop | hidden},
    {"chkSettingsAutowidth", settings, SettingsLine(0), stop, settings_page::General},
    {"chkSettingsDWC", settings, SettingsLine(390), stop, settings_page::General},
    {"lblSettingsAbsColor", settings, At(240, pageTop + 900, 2400, 300), stop, settings_page::General},
    {"lblSettingsIncrColor", settings, At(240, pageTop + 1260, 2400, 300), stop, settings_page::General},
    {"cmdResetAll", settings, At(240, pageTop + 1800, 2400, 420), stop, settings_page::General},
    {"lblCurrentFilePath", settings, PathLabel(0), 0, settings_page::Info},
    {"txtCurrentFilePath", settings, PathText(0), stop, settings_page::Info},
    {"lblApplicationPath", settings, PathLabel(1), 0, settings_page::Info},
    {"txtApplicationPath", settings, PathText(1), stop, settings_page::Info},
    {"lblSettingsPath", settings, PathLabel(2), 0, settings_page::Info},
    {"txtSettingsPath", settings, PathText(2), stop, settings_page::Info},
    {"frMachineType", settings, At(240, pageTop, 2600, 1500), 0, settings_page::Machine},
    {"optSettingsMK2", "frMachineType", Option(120, firstLine, 2400), stop},
    {"optSettingsMK4", "frMachineType", Option(120, firstLine + 360, 2400), stop},
    {"optSettingsF1CNC", "frMachineType", Option(120, firstLine + 720, 2400), stop},
    {"frCompact5", settings, At(2940, pageTop, 1620, 1500), 0, settings_page::Machine},
    {"optSettingsMm", "frCompact5", Option(120, firstLine, 1200), stop},
    {"optSettingsInch", "frCompact5", Option(120, firstLine + 360, 1200), stop},
    {"frF1CNC", settings, At(240, pageTop + 1650, 4320, 1500), 0, settings_page::Machine},
    {"lblVertical", "frF1CNC", Option(120, firstLine, 1800)},
    {"optSettingsVmm", "frF1CNC", Option(120, 630, 900), stop},
    {"optSettingsVinch", "frF1CNC", Option(1080, 630, 900), stop},
    {"lblHorizontal", "frF1CNC", Option(2220, firstLine, 1800)},
    {"optSettingsHmm", "frF1CNC", Option(2220, 630, 900), stop},
    {"optSettingsHinch", "frF1CNC", Option(3180, 630, 900), stop},
    {"lblFontName", settings, At(240, pageTop, 2600, lineHeight), 0, settings_page::Printer},
    {"cboFontName", settings, At(240, pageTop + 300, 3000, fieldHeight), stop, settings_page::Printer},
    {"lblFontSize", settings, At(3480, pageTop, 900, lineHeight), 0, settings_page::Printer},
    {"cboFontSize", settings, At(3480, pageTop + 300, 900, fieldHeight), stop, settings_page::Printer},
    {"cmdPrinterDialog", settings, At(240, pageTop + 900, 2400, 420), stop, settings_page::Printer},

    {"rtfHelp", "", OverList(), overlay | hidden},
    {"rtfGcodeHelpMK2", "", OverList(), overlay | hidden},
    {"rtfGcodeHelpMK4", "", OverList(), overlay | hidden},
    {"rtfAbout", "", OverList(), overlay | hidden},
    {"lstAbout", "", At(Wide(-sideWidth - 2640), listTop + 600, 3450, 900), overlay | hidden},
    {"picZXaxes", "", OverList(20), overlay},
    {"picXYaxes", "", OverList(20), overlay},
    {"txtSearch", "", At(Wide(-sideWidth - 780 - 2700), listTop + 110, 2600, 345), hidden},
    {"cmdReturn", "", At(Wide(-sideWidth - 780), listTop + 110, 720, fieldHeight), stop | overlay},

    // A click on either shows the other one. The buttons share the room below them: see PlaceTopButtons.
    {"frControlPanel", "", At(0, 30, Wide(-3740), listTop - 60), frozen},
    {"lblPath", "frControlPanel", At(60, 240, Wide(-8340), 240), stop},
    {"lblFileName", "frControlPanel", At(60, 240, Wide(-8340), 240), stop},
    {"cmdTopButtons", "frControlPanel", {}, stop | frozen},

    {"frComPorts", settings, At(60, 480, 7980, 4740), 0, settings_page::COM},
    {"chkEnableCom", "frComPorts", At(150, 300, 3600, 285), stop},
    {"frTX", "frComPorts", At(60, 660, 3900, 3990)},
    {"frRX", "frComPorts", At(4020, 660, 3900, 3990)},
};

constexpr ControlRow portSideRows[] = {
    {"frPort#", "fr#", At(90, 270, 3720, 600)},
    {"optPort#", "frPort#", At(60, 240, 905, 285), stop, -1, {}, {4, 910, 300}},
    {"frBaud#", "fr#", At(90, 900, 3720, 900)},
    {"optBaud#", "frBaud#", At(60, 240, 905, 285), stop, -1, {}, {4, 910, 300}},
    {"frParity#", "fr#", At(90, 1830, 1560, 600)},
    {"optParity#", "frParity#", At(50, 240, 500, 285), stop, -1, {}, {3, 500, 300}},
    {"frDataBits#", "fr#", At(1665, 1830, 1065, 600)},
    {"optDataBits#", "frDataBits#", At(60, 240, 490, 285), stop, -1, {}, {2, 500, 300}},
    {"frStopBits#", "fr#", At(2745, 1830, 1065, 600)},
    {"optStopBits#", "frStopBits#", At(60, 240, 490, 285), stop, -1, {}, {2, 500, 300}},
    {"frHandshake#", "fr#", At(90, 2460, 3720, 600)},
    {"chk#xonxoff", "frHandshake#", At(60, 240, 1210, 285), stop},
    {"chk#dtrdsr", "frHandshake#", At(1275, 240, 1210, 285), stop},
    {"chk#rtscts", "frHandshake#", At(2490, 240, 1210, 285), stop},
    {"chk#filter", "fr#", At(180, 3120, 3540, 285), stop},
    {"lbl#standard", "fr#", At(180, 3495, 1980, 330)},
    {"cmd#Emco", "fr#", At(2280, 3480, 1530, 360), stop},
};

// The view of what is received lies over the list, its buttons and the progress of a transmission over the band. The
// third line of frCmdRX is left free: a transmission can be under way, and cmdStop is there.
constexpr ControlRow transferRows[] = {
    {"frRXcode", "", OverList()},
    {"txtRX", "frRXcode", At(90, 270, Wide(-sideWidth - 180), High(-3370 - 690)), stop},
    {"lblReceived", "frRXcode", At(120, High(-3370 - 360), Wide(-sideWidth - 240), 285)},
    {"frCmdRX", "", InBand(AfterEntry(4920), 2070)},
    {"cmdReceiveImport", "frCmdRX", At(90, 300, 930, 360), stop},
    {"cmdReceiveSave", "frCmdRX", At(1050, 300, 930, 360), stop},
    {"cmdReceiveNew", "frCmdRX", At(90, 750, 930, 360), stop},
    {"cmdReceiveExit", "frCmdRX", At(1050, 750, 930, 360), stop},
    {"frTransmit", "", InBand(30, Grown(4860, entryShare))},
    {"prgTransmit", "frTransmit", At(150, 420, Grown(4560, entryShare), 330)},
    {"lblTransmitLine", "frTransmit", At(150, 840, Grown(4560, entryShare), 285)},
    {"lblTransmitLeft", "frTransmit", At(150, 1140, Grown(4560, entryShare), 285)},
};

}  // namespace

std::span<const ControlRow> ControlRows() { return controlRows; }
std::span<const ControlRow> PortSideRows() { return portSideRows; }
std::span<const ControlRow> TransferRows() { return transferRows; }

}  // namespace kvt
