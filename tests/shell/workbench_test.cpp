#include <gmock/gmock.h>

#include "basic/run_time_error.h"
#include "basic/text.h"
#include "support/bench_fixture.h"

namespace kvt::test {

namespace {

using ::testing::ElementsAre;
using ::testing::MatchesRegex;

class WorkbenchTest : public BenchTest {
protected:
    void LoadPart() {
        ASSERT_EQ(Load(FileText("MK4", {{"92", "100", "", "100"}, {"02", "300", "", "-100", "50"}, {"M30"}},
                                "M", "notes")),
                  LoadResult::Loaded);
        Bench->Entry.frEntry.Caption = "Linear Interpolation";
        Bench->Lists.lstMK4Gcodes.ListIndex = 3;
        Bench->Lists.lstMK4Mcodes.ListIndex = 2;
        Bench->Entry.lblGMcode.Caption = "M";
        Bench->Entry.txtGMcode.Text = "06";
        std::string code = "06";
        Bench->Layout.InputFields(code);
        Bench->Entry.txtXI.Text = "1";
        Bench->Entry.txtComment.Text = "own";
        Bench->Store.ProgramChanged = true;
    }
    std::vector<Control*> Overlays() {
        MainControls& main = Bench->Main;
        EntryRow& entry = Bench->Entry;
        return {&entry.cmdReturn,      &main.rtfAbout,        &main.lstAbout,   &main.rtfHelp,
                &main.rtfGcodeHelpMK2, &main.rtfGcodeHelpMK4, &entry.picXYaxes, &entry.picZXaxes};
    }
    std::vector<std::string> LogLines() {
        const std::string text = FileContent("Errors.log");
        EXPECT_TRUE(text.ends_with("\r\n"));
        std::vector<std::string> lines;
        for (const std::string_view line : Split(text, "\r\n")) lines.emplace_back(line);
        lines.pop_back();
        return lines;
    }
};

}  // namespace

TEST_F(WorkbenchTest, ClearingAsksAboutChangesAndNoKeepsEverything) {
    LoadPart();
    for (Control* overlay : Overlays()) overlay->Visible = true;
    Platform.Dialogs.Answers = {Answer::No};
    Bench->ClearProgram_Click();
    ASSERT_EQ(Platform.Dialogs.Shown.size(), 1u);
    const MessageBox& box = Platform.Dialogs.Shown[0];
    EXPECT_EQ(box.Text, "File has been changed. Clear anyway?");
    EXPECT_EQ(box.Title, "Clear?");
    EXPECT_EQ(box.Choice, Buttons::YesNo);
    EXPECT_EQ(Bench->Store.LineCount(), 3);
    EXPECT_EQ(Bench->File.lblPath.Caption, Path("program.cnc"));
    EXPECT_EQ(Bench->Entry.txtComment.Text, "own");
    EXPECT_TRUE(Bench->Store.ProgramChanged);
    // The overlays are left before the question.
    for (Control* overlay : Overlays()) EXPECT_FALSE(overlay->Visible) << overlay->Name();
}

TEST_F(WorkbenchTest, ClearingEmptiesTheProgramAndTheEntryRow) {
    LoadPart();
    int drawings = 0;
    Bench->Calls.mnuDraw_Click = [&] { ++drawings; };
    Bench->Language.EntryCaption = "Eingabe";
    Platform.Dialogs.Answers = {Answer::Yes};
    Bench->ClearProgram_Click();
    EXPECT_EQ(Bench->Store.lvCncProgram.Count(), 0);
    EntryRow& entry = Bench->Entry;
    EXPECT_EQ(entry.frEntry.Caption, "Eingabe");
    EXPECT_EQ(entry.lblGMcode.Caption, "G");
    for (TextBox* box : {&entry.txtGMcode, &entry.txtXI, &entry.txtZK, &entry.txtFKTL, &entry.txtComment}) {
        EXPECT_EQ(box->Text, "") << box->Name();
    }
    for (const EntryRow::Field& field : entry.Fields()) EXPECT_FALSE(field.Box.Visible) << field.Box.Name();
    EXPECT_EQ(Platform.Focus.Focused(), &entry.txtGMcode);
    EXPECT_EQ(Bench->Lists.lstMK4Gcodes.ListIndex, -1);
    EXPECT_EQ(Bench->Lists.lstMK4Mcodes.ListIndex, -1);
    EXPECT_EQ(Bench->File.lblPath.Caption, "");
    EXPECT_EQ(Bench->File.lblFileName.Caption, "");
    EXPECT_EQ(Bench->File.txtFileNotes.Text, "");
    EXPECT_FALSE(Bench->Store.ProgramChanged);
    EXPECT_FALSE(Bench->Store.ArcPresent);
    EXPECT_EQ(Bench->Store.MaxLines(), 209);
    EXPECT_EQ(Bench->Results.lblPPLines.Caption, "0");
    EXPECT_EQ(Bench->Results.lblPPMachineTime.Caption, "xx:xx:xx");
    EXPECT_EQ(Bench->Results.lblXAxisMax.Caption, "0");
    EXPECT_EQ(Bench->Results.lblZAxisTravel.Caption, "0");
    EXPECT_EQ(drawings, 1);

    // Nothing to lose, nothing asked.
    Platform.Dialogs.Shown.clear();
    Bench->Store.AddBlankLine(true);
    Bench->Store.ProgramChanged = true;
    Bench->ClearProgram_Click();
    LoadPart();
    Bench->Store.ProgramChanged = false;
    Bench->ClearProgram_Click();
    EXPECT_TRUE(Platform.Dialogs.Shown.empty());
    EXPECT_EQ(Bench->Store.lvCncProgram.Count(), 0);
}

TEST_F(WorkbenchTest, TheMachineIsAppliedToTheWindow) {
    struct Case {
        const char* Machine;
        bool MK2, MK4, F1;
        const char* Units;
    };
    const Case cases[] = {{"F1", false, false, true, "V 1/100 mm"},
                          {"MK2", true, false, false, "1/100 mm"},
                          {"mk4", false, true, false, "1/100 mm"}};
    for (const Case& one : cases) {
        SCOPED_TRACE(one.Machine);
        Bench->cmdReturn_Click();
        Bench->Store.Machine = one.Machine;
        Bench->Entry.lblGMcode.Caption = "M";
        Bench->ClearProgram_Click();
        EXPECT_EQ(Bench->Entry.lblGMcode.Caption, "G");
        EXPECT_EQ(Bench->Machine.optSettingsMK2.Value, one.MK2);
        EXPECT_EQ(Bench->Machine.optSettingsMK4.Value, one.MK4);
        EXPECT_EQ(Bench->Machine.optSettingsF1CNC.Value, one.F1);
        EXPECT_EQ(Bench->Machine.lblPPUnits.Caption, one.Units);
        EXPECT_EQ(Bench->Lists.lstMK2Gcodes.Visible, one.MK2);
        EXPECT_EQ(Bench->Main.lstMK2Mcodes.Visible, one.MK2);
        EXPECT_EQ(Bench->Lists.lstMK4Gcodes.Visible, one.MK4);
        EXPECT_EQ(Bench->Lists.lstMK4Mcodes.Visible, one.MK4);
        EXPECT_EQ(Bench->Lists.lstF1Gcodes.Visible, one.F1);
        EXPECT_EQ(Bench->Lists.lstF1Mcodes.Visible, one.F1);
        // The Y columns are the mill's.
        EXPECT_EQ(Bench->Store.lvCncProgram.Header(column::Y + 1).Width > 0, one.F1);
        EXPECT_EQ(Bench->Store.lvCncProgram.Header(column::ToolY + 1).Width > 0, one.F1);
        // So is the picture of the axes, with the button that takes it away.
        EXPECT_EQ(Bench->Entry.picXYaxes.Visible, one.F1);
        EXPECT_EQ(Bench->Entry.cmdReturn.Visible, one.F1);
    }
    Bench->Store.Machine = "F1";
    Bench->Store.Horizontal = true;
    Bench->Store.Metric = false;
    Bench->Entry.picXYaxes.Enabled = false;
    Bench->Entry.cmdReturn.Enabled = false;
    Bench->RefreshMachine();
    EXPECT_EQ(Bench->Machine.lblPPUnits.Caption, "H 1/1000 \"");
    EXPECT_TRUE(Bench->Machine.optSettingsHinch.Value);
    EXPECT_FALSE(Bench->Machine.optSettingsVinch.Value);
    EXPECT_TRUE(Bench->Machine.mnuINCHtoMM.Enabled);
    EXPECT_FALSE(Bench->Machine.mnuMMtoINCH.Enabled);
    EXPECT_TRUE(Bench->Entry.picXYaxes.Enabled);
    EXPECT_TRUE(Bench->Entry.cmdReturn.Enabled);
}

TEST_F(WorkbenchTest, AFrozenWindowKeepsItsStop) {
    const char* const frozen[] = {"mnuFile",
                                  "mnuSettings",
                                  "mnuXfer",
                                  "mnuConvert",
                                  "mnuHelp",
                                  "frControlPanel",
                                  "frSetReplace",
                                  "txtFeedA",
                                  "txtFeedB",
                                  "frView",
                                  "chkViewToolPos",
                                  "chkViewLineProperties",
                                  "chkViewMachineTime",
                                  "chkViewGcode",
                                  "chkViewFileNotes",
                                  "frProgramProperties",
                                  "frAxesProperties",
                                  "frXAxis",
                                  "frYaxis",
                                  "frZAxis",
                                  "lstMK2Gcodes",
                                  "lstMK2Mcodes",
                                  "lstMK4Gcodes",
                                  "lstMK4Mcodes",
                                  "frFileNotes",
                                  "txtFileNotes",
                                  "frEntry",
                                  "frCmdEditor1",
                                  "frCmdEditor2",
                                  "frCmdEditor3",
                                  "cmdInsert",
                                  "cmdRun",
                                  "cmdDelete",
                                  "cmdStep",
                                  "cmdStop",
                                  "cmdFeedA",
                                  "cmdFeedB"};
    const auto control = [&](const char* name) -> Control& { return *Bench->frmMain.FindControl(name); };
    const auto expect = [&](bool enabled) {
        for (const char* name : frozen) EXPECT_EQ(control(name).Enabled, enabled) << name;
        for (int i = 0; i < 10; ++i)
            EXPECT_EQ(Bench->frmMain.FindControl("cmdTopButtons", i)->Enabled, enabled) << i;
        for (Control* label : Bench->frmMain.Controls()) {
            const std::string frame = label->Kind() == ControlKind::Label ? label->Container->Name() : "";
            const bool shown = frame == "frProgramProperties" || frame == "frAxesProperties" ||
                               frame == "frXAxis" || frame == "frYaxis" || frame == "frZAxis";
            if (shown) {
                EXPECT_EQ(label->Enabled, enabled) << label->Name();
            }
        }
        EXPECT_EQ(Bench->ControlsOn, enabled);
    };
    Bench->ControlsEnable(0);
    expect(false);
    EXPECT_TRUE(Bench->Store.lvCncProgram.Enabled);
    EXPECT_TRUE(Bench->Lists.lstF1Gcodes.Enabled);
    for (Control* overlay : Overlays()) overlay->Visible = true;
    Bench->Entry.cmdReturn.Click();
    expect(true);
    for (Control* overlay : Overlays()) EXPECT_FALSE(overlay->Visible) << overlay->Name();

    // The frame of the step buttons is left alone while a program is stepped.
    Bench->Store.EditorRunMode = true;
    Bench->ControlsEnable(0);
    EXPECT_TRUE(Bench->Main.frCmdEditor3.Enabled);
    EXPECT_FALSE(Bench->Results.cmdStop.Enabled);
    Bench->Store.EditorRunMode = false;
    Bench->ControlsEnable(1);
    // A transmission can be stopped by hand.
    Bench->Store.TransmitActive = true;
    Bench->ControlsEnable(0);
    EXPECT_FALSE(Bench->Results.cmdRun.Enabled);
    EXPECT_TRUE(Bench->Results.cmdStop.Enabled);
    EXPECT_TRUE(Bench->Results.cmdStop.ReallyEnabled());
}

TEST_F(WorkbenchTest, ABoxWithoutATitleOfItsOwnHasThatOfTheProgram) {
    Bench->Store.lvCncProgram.Clear();
    Bench->Interpreter.cmdRun_Click();
    ASSERT_EQ(Platform.Dialogs.Shown.size(), 1u);
    EXPECT_EQ(Platform.Dialogs.Shown[0].Text, "No Lines of code present");
    EXPECT_EQ(Platform.Dialogs.Shown[0].Title, "Kestrel Vise Toolkit");
}

TEST_F(WorkbenchTest, TheErrorLogGrowsByOneRecordForEachFailure) {
    Bench->Log.DataFolder = Folder + "/";
    EXPECT_FALSE(Platform.Files.Exists(Path("Errors.log")));
    Attempt("LoadFile", [] { throw RunTimeError(fault::PathFileAccess); });
    EXPECT_THAT(LogLines(),
                ElementsAre(MatchesRegex("#20[0-9][0-9]-[01][0-9]-[0-3][0-9] [0-2][0-9]:[0-5][0-9]:"
                                         "[0-6][0-9]#,75,\"Path/File access error\",\"LoadFile\"")));
    Attempt("Interpreter", [] { throw RunTimeError(fault::DivisionByZero); });
    Attempt("Interpreter", [] { throw RunTimeError(fault::DivisionByZero); });
    Bench->Log.ReportError(-2147483647, "own words", "Pre-Processor");
    EXPECT_THAT(LogLines(), ElementsAre(MatchesRegex("#.*#,75,.*"),
                                        MatchesRegex("#.*#,11,\"Division by zero\",\"Interpreter\""),
                                        MatchesRegex("#.*#,11,\"Division by zero\",\"Interpreter\""),
                                        MatchesRegex("#.*#,-2147483647,\"own words\",\"Pre-Processor\"")));
    // Another run goes on behind.
    Bench.reset();
    Bench = std::make_unique<Workbench>(Platform.Services);
    Bench->Log.DataFolder = Folder + "/";
    Attempt("Form_Load", [] { throw RunTimeError(fault::PrinterError); });
    EXPECT_EQ(LogLines().size(), 5u);
    EXPECT_TRUE(Platform.Dialogs.Shown.empty());
}

TEST_F(WorkbenchTest, WithoutAFolderThereIsNoLogAndNothingElseHappens) {
    const auto fail = [] { throw RunTimeError(fault::Overflow); };
    EXPECT_FALSE(Attempt("First", fail));
    Bench->Log.DataFolder = Path("missing/");
    EXPECT_NO_THROW(Attempt("Second", fail));
    Platform.Files.WriteWhole(Path("file"), "");
    Bench->Log.DataFolder = Path("file/");
    EXPECT_NO_THROW(Attempt("Third", fail));
    Bench->Log.DataFolder = Folder + "/";
    Platform.Faults.Fail("file", 1);
    EXPECT_NO_THROW(Attempt("Fourth", fail));
    EXPECT_FALSE(Platform.Files.Exists(Path("Errors.log")));
    EXPECT_NO_THROW(Attempt("Fifth", fail));
    EXPECT_EQ(LogLines().size(), 1u);
    EXPECT_EQ(Bench->Log.Records().size(), 5u);
    EXPECT_TRUE(Platform.Dialogs.Shown.empty());
}

TEST_F(WorkbenchTest, AFailureWhileTheReporterRunsIsDropped) {
    // Reports a failure of its own inside every append, then fails.
    class TroubledFiles : public DiskFiles {
    public:
        using DiskFiles::DiskFiles;
        void Append(std::string_view, std::string_view) override {
            ++Appends;
            Attempt("Append", [] { throw RunTimeError(fault::InvalidCall); });
            throw RunTimeError(fault::PathFileAccess);
        }
        int Appends = 0;
    };
    TroubledFiles files(Platform.Faults);
    Services services{files,           Platform.Dialogs, Platform.Clipboard,
                      Platform.Screen, Platform.System,  Platform.Focus};
    Workbench bench(services);
    bench.Log.DataFolder = Folder + "/";
    for (const char* procedure : {"First", "Second"})
        Attempt(procedure, [] { throw RunTimeError(fault::Overflow); });
    EXPECT_EQ(files.Appends, 2);
    ASSERT_EQ(bench.Log.Records().size(), 2u);
    EXPECT_EQ(bench.Log.Records()[0].Procedure, "First");
    EXPECT_EQ(bench.Log.Records()[1].Procedure, "Second");
}

}  // namespace kvt::test
