#include <gmock/gmock.h>

#include <set>

#include "basic/text.h"
#include "support/table.h"
#include "support/workbench_fixture.h"

namespace kvt::test {

namespace {

using ::testing::ElementsAre;
using ::testing::MatchesRegex;

class WorkbenchTest : public WorkbenchFixture {
protected:
    void LoadPart() {
        const std::vector<Line> lines = {{"92", "100", "", "100"}, {"02", "300", "", "-100", "50"}, {"M30"}};
        ASSERT_EQ(Load(FileText("MK4", lines, "M", "notes")), LoadResult::Loaded);
        Workbench->Entry.frEntry.Caption = "Linear Interpolation";
        Workbench->Lists.lstMK4Gcodes.ListIndex = 3;
        Workbench->Lists.lstMK4Mcodes.ListIndex = 2;
        Workbench->Entry.lblGMcode.Caption = "M";
        Workbench->Entry.txtGMcode.Text = "06";
        std::string code = "06";
        Workbench->Layout.InputFields(code);
        Workbench->Entry.txtComment.Text = "own";
        Workbench->Store.ProgramChanged = true;
    }
    std::vector<Control*> Named(const char* names) {
        std::vector<Control*> controls;
        for (const std::string_view name : Split(names, " ")) {
            controls.push_back(Workbench->frmMain.FindControl(name));
            EXPECT_NE(controls.back(), nullptr) << name;
        }
        return controls;
    }
    // The records of Errors.log, and an empty text behind the last line end.
    std::vector<std::string> LogLines() {
        const std::string text = FileContent("Errors.log");
        const auto lines = Split(text, "\r\n");
        return {lines.begin(), lines.end()};
    }
};

}  // namespace

TEST_F(WorkbenchTest, ClearingEmptiesTheProgramAndTheEntryRow) {
    LoadPart();
    int drawings = 0;
    Workbench->Calls.mnuDraw_Click = [&] { ++drawings; };
    Workbench->Language.EntryCaption = "Eingabe";
    Platform.Dialogs.Answers = {Answer::Yes};
    Workbench->Calls.ClearProgram_Click();
    EXPECT_EQ(Workbench->Store.lvCncProgram.Count(), 0);
    EntryRow& entry = Workbench->Entry;
    EXPECT_EQ(entry.frEntry.Caption, "Eingabe");
    for (const EntryRow::Field& field : entry.Fields()) {
        EXPECT_FALSE(field.Box.Visible) << field.Box.Name();
        EXPECT_EQ(field.Box.Text, "") << field.Box.Name();
    }
    EXPECT_EQ(entry.txtGMcode.Text, "");
    EXPECT_EQ(entry.txtComment.Text, "");
    EXPECT_EQ(Platform.Focus.Focused(), &entry.txtGMcode);
    EXPECT_EQ(Workbench->Lists.lstMK4Gcodes.ListIndex, -1);
    EXPECT_EQ(Workbench->Lists.lstMK4Mcodes.ListIndex, -1);
    EXPECT_EQ(Workbench->File.lblPath.Caption, "");
    EXPECT_EQ(Workbench->File.lblFileName.Caption, "");
    EXPECT_EQ(Workbench->File.txtFileNotes.Text, "");
    EXPECT_FALSE(Workbench->Store.ProgramChanged);
    EXPECT_FALSE(Workbench->Store.ArcPresent);
    EXPECT_EQ(Workbench->Store.MaxLines(), 209);
    EXPECT_EQ(drawings, 1);

    // Nothing to lose, nothing asked.
    Platform.Dialogs.Shown.clear();
    Workbench->Store.AddBlankLine(true);
    Workbench->Store.ProgramChanged = true;
    Workbench->Calls.ClearProgram_Click();
    LoadPart();
    Workbench->Store.ProgramChanged = false;
    Workbench->Calls.ClearProgram_Click();
    EXPECT_TRUE(Platform.Dialogs.Shown.empty());
    EXPECT_EQ(Workbench->Store.lvCncProgram.Count(), 0);
}

TEST_F(WorkbenchTest, AFrozenWindowKeepsItsStop) {
    const auto enabled = [this] {
        std::set<const Control*> controls;
        for (const Control* control : Workbench->frmMain.Controls())
            if (control->Enabled) controls.insert(control);
        return controls;
    };
    Workbench->Entry.cmdReturn.Click();
    const std::set<const Control*> before = enabled();
    Workbench->Modes.ControlsEnable(ControlsMode::Frozen);
    EXPECT_GE(before.size(), enabled().size() + 55);
    for (Control* control :
         Named("mnuFile mnuXfer frSetReplace txtFeedA lstMK4Gcodes txtFileNotes txtXI cmdStop"))
        EXPECT_FALSE(control->EffectivelyEnabled()) << control->Name();
    for (Control* control : Named("lvCncProgram lstF1Gcodes"))
        EXPECT_TRUE(control->Enabled) << control->Name();
    EXPECT_FALSE(Workbench->Modes.ControlsOn());
    // Returning to the editor frees it.
    Workbench->Entry.cmdReturn.Click();
    EXPECT_EQ(enabled(), before);
    EXPECT_TRUE(Workbench->Modes.ControlsOn());

    // The frame of the step buttons is left alone while a program is stepped.
    Workbench->Store.EditorRunMode = true;
    Workbench->Modes.ControlsEnable(ControlsMode::Frozen);
    EXPECT_TRUE(Workbench->Main.frCmdEditor3.Enabled);
    EXPECT_FALSE(Workbench->Results.cmdStop.Enabled);
    Workbench->Store.EditorRunMode = false;
    Workbench->Modes.ControlsEnable(ControlsMode::Free);
    // A transmission can be stopped by hand.
    Workbench->Store.TransmitActive = true;
    Workbench->Modes.ControlsEnable(ControlsMode::Frozen);
    EXPECT_FALSE(Workbench->Results.cmdRun.Enabled);
    EXPECT_TRUE(Workbench->Results.cmdStop.EffectivelyEnabled());
}

TEST_F(WorkbenchTest, TheErrorLogGrowsByOneRecordForEachFailure) {
    Workbench->Log.DataFolder = Folder + "/";
    Attempt("LoadFile", [] { throw RunTimeError(fault::PathFileAccess); });
    EXPECT_THAT(LogLines(),
                ElementsAre(MatchesRegex("#20[0-9][0-9]-[01][0-9]-[0-3][0-9] [0-2][0-9]:[0-5][0-9]:"
                                         "[0-6][0-9]#,75,\"Path/File access error\",\"LoadFile\""),
                            ""));
    for (int i = 0; i < 2; ++i) Attempt("Interpreter", [] { throw RunTimeError(fault::DivisionByZero); });
    Workbench->Log.ReportError(-2147483647, "own words", "Pre-Processor");
    const auto division = MatchesRegex("#.*#,11,\"Division by zero\",\"Interpreter\"");
    EXPECT_THAT(LogLines(),
                ElementsAre(MatchesRegex("#.*#,75,.*"), division, division,
                            MatchesRegex("#.*#,-2147483647,\"own words\",\"Pre-Processor\""), ""));
    EXPECT_TRUE(Platform.Dialogs.Shown.empty());
}

TEST_F(WorkbenchTest, WithoutAFolderThereIsNoLogAndNothingElseHappens) {
    const auto fail = [] { throw RunTimeError(fault::Overflow); };
    Platform.Files.WriteWhole(Path("file"), "");
    for (const std::string& folder : {std::string(), Path("missing/"), Path("file/"), Folder + "/"}) {
        Workbench->Log.DataFolder = folder;
        Platform.Faults.Fail("file", folder == Folder + "/" ? 1 : 2);
        EXPECT_NO_THROW(Attempt("Procedure", fail)) << folder;
    }
    EXPECT_FALSE(Platform.Files.Exists(Path("Errors.log")));
    EXPECT_NO_THROW(Attempt("Procedure", fail));
    EXPECT_EQ(LogLines().size(), 2u);
    EXPECT_EQ(Workbench->Log.Records().size(), 5u);
    EXPECT_TRUE(Platform.Dialogs.Shown.empty());
}

TEST_F(WorkbenchTest, AFailureWhileTheReporterRunsIsDropped) {
    // Reports a failure of its own inside every append, then fails.
    class TroubledFiles : public DiskFiles {
    public:
        void Append(std::string_view, std::string_view) override {
            ++Appends;
            Attempt("Append", [] { throw RunTimeError(fault::InvalidCall); });
            throw RunTimeError(fault::PathFileAccess);
        }
        int Appends = 0;
    };
    TroubledFiles files;
    Services services{files,          Platform.Dialogs, Platform.Clipboard, Platform.Screen,  Platform.System,
                      Platform.Focus, Platform.Port,    Platform.Printer,   Platform.Programs};
    kvt::Workbench workbench(services);
    workbench.Log.DataFolder = Folder + "/";
    for (const char* procedure : {"First", "Second"})
        Attempt(procedure, [] { throw RunTimeError(fault::Overflow); });
    EXPECT_EQ(files.Appends, 2);
    ASSERT_EQ(workbench.Log.Records().size(), 2u);
    EXPECT_EQ(workbench.Log.Records()[0].Procedure, "First");
    EXPECT_EQ(workbench.Log.Records()[1].Procedure, "Second");
}

// Without one it would lie in the corner, outside the Tab order, and stay free while the window is frozen.
TEST_F(WorkbenchTest, EveryControlHasARow) {
    std::set<std::string> rows;
    const auto add = [&rows](std::span<const ControlRow> table, const std::string& side) {
        for (const ControlRow& row : table) {
            std::string name = row.Name;
            if (const std::size_t at = name.find('#'); at != std::string::npos) name.replace(at, 1, side);
            EXPECT_TRUE(rows.insert(name).second) << name;
        }
    };
    add(ControlRows(), "");
    add(PortSideRows(), "TX");
    add(PortSideRows(), "RX");
    add(TransferRows(), "");
    for (const Control* control : Workbench->frmMain.Controls()) {
        const ControlKind kind = control->Kind();
        // The entries for pre-processors, programs and languages come with their folders and files.
        const bool isMade = control->Name() == "mnuPP" || control->Name() == "mnuRecentFile" ||
                            control->Name() == "mnuLanguages";
        if (kind == ControlKind::Timer || kind == ControlKind::FileDialog || isMade) continue;
        EXPECT_TRUE(rows.contains(control->Name())) << control->Name();
    }
}

}  // namespace kvt::test
