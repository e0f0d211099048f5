#include "files/cnc_writer.h"

#include <filesystem>

#include "support/bench_fixture.h"

namespace kvt::test {

namespace {

std::string Blanks(std::size_t count) { return std::string(count, ' '); }

class WriterTest : public BenchTest {
protected:
    std::string Text() { return Bench->Writer.GenerateAll(); }
    std::int16_t Save(std::int16_t mode) {
        Bench->Writer.SaveFile_Click(mode);
        return mode;
    }
    ListRow& Row(int line) { return Bench->Store.lvCncProgram.Row(line + 1); }
    std::string Notes() const { return Bench->File.txtFileNotes.Text.Get(); }
    std::string PathShown() const { return Bench->File.lblPath.Caption.Get(); }
    const std::vector<MessageBox>& Shown() const { return Platform.Dialogs.Shown; }
    void LoadSmall(const std::string& name = "program.cnc") {
        ASSERT_EQ(Load(small, name), LoadResult::Loaded);
        Bench->Store.ProgramChanged = true;
    }
    const std::string small = FileText("MK4", {{"M30"}});
};

}  // namespace

TEST_F(WriterTest, EveryCellGoesToItsColumn) {
    const struct {
        const char *Machine, *Expected;
    } cases[] = {
        {"MK2", "%\r\n   N23 Gde Xghijk Zpqrstu Fwxy a b\r\n   M\r\n"},
        {"MK4", "%\r\n    N` G`   X `    Z `  F`  H \r\n   123cde ghijk pqrstuvwxy z12  a b\r\n   M\r\n"},
        {"F1", "%\r\n    N` G`  X  `  Y `   Z ` F  \r\n   123cdeghijklmnopqrstuvwxy a b\r\n   MI\r\n"},
    };
    for (const auto& one : cases) {
        const std::string machine = one.Machine;
        Check(machine, {{machine == "MK2" ? "22" : "M30"}});
        ListRow& row = Row(0);
        row[column::Number] = "123";
        row[column::Code] = "cde ";
        row[column::X] = "ghijk";
        row[column::Y] = "lmno";
        row[column::Z] = "pqrstu";
        row[column::F] = machine == "MK2" ? "wxy" : "vwxy";
        row[column::H] = "z12";
        row[column::Error] = "!not in a file";
        row[column::Comment] = "  a b ";
        EXPECT_EQ(Text(), one.Expected) << machine;
    }
}

TEST_F(WriterTest, WhatLinesAndFieldsBecomeWithoutText) {
    // An empty comment leaves the blanks in front of it; F takes the last three characters.
    Check("MK2", {{"00"}, {"22"}});
    Row(0)[column::F] = "2";
    EXPECT_EQ(Text(), "%\r\n   N00 G00 X      Z       F 2 \r\n   N01 G22 X      Z       F    \r\n   M\r\n");
    Check("MK4", {{"M30"}}, "\"");
    EXPECT_EQ(Text().substr(35), "    00M30" + Blanks(23) + "\r\n   \"\r\n");
    // Rows whose number holds N are left out, in whatever case.
    for (const char* machine : {"MK4", "F1"}) {
        Check(machine, {{"91"}, {"90"}, {"M30"}});
        Row(1)[column::Number] = " n1";
        const std::string text = Text();
        EXPECT_EQ(text.find(" 90"), std::string::npos) << machine;
        EXPECT_NE(text.find(" 91"), std::string::npos) << machine;
        EXPECT_NE(text.find("M30"), std::string::npos) << machine;
    }
    const struct {
        const char *Units, *Line;
    } units[] = {{"M-", "   M-\r\n"},
                 {"MI", "   MI\r\n"},
                 {"\"-", "   \"-\r\n"},
                 {"\"I", "   \"I\r\n"},
                 {"M", "   MI\r\n"}};
    for (const auto& one : units) {
        Check("F1", {{"M30"}}, one.Units);
        EXPECT_TRUE(Text().ends_with(one.Line)) << one.Units;
    }
}

TEST_F(WriterTest, NotesGrowByOneLineEndWithEachLoadAndSave) {
    ASSERT_EQ(Load(FileText("MK4", {{"M30"}}, "M", "one. two")), LoadResult::Loaded);
    EXPECT_TRUE(Text().starts_with("one. two\r\n\r\n%\r\n    N`"));
    const std::string once = Text();
    ASSERT_EQ(Load(once), LoadResult::Loaded);
    EXPECT_EQ(Notes(), "one. two\r\n\r\n");
    EXPECT_TRUE(Text().starts_with("one. two\r\n\r\n\r\n%\r\n    N`"));
    Bench->File.txtFileNotes.Text = "";
    EXPECT_TRUE(Text().starts_with("%\r\n    N`"));
}

TEST_F(WriterTest, PrintModeShowsTheColumnsInSight) {
    const struct {
        std::string Machine, Head, Line;
    } cases[] = {
        {"MK2", Blanks(30), "   N00 G22 X" + Blanks(5) + " Z" + Blanks(6) + " F  7"},
        {"MK4", "     N   G    X      Z   F   H ", "    00M30" + Blanks(13) + "   7" + Blanks(5)},
        {"F1", "     N  G     X    Y     Z   F", "    00M30" + Blanks(17) + "   7"},
    };
    ListView& list = Bench->Store.lvCncProgram;
    for (const auto& one : cases) {
        const std::string& machine = one.Machine;
        SCOPED_TRACE(machine);
        Check(machine, {{machine == "MK2" ? "22" : "M30", "", "", "", "", "", " end"}});
        Bench->File.txtFileNotes.Text = "One. Two.Three. ";
        for (int header = 9; header <= 19; ++header) list.SetHeaderWidth(header, 0);
        list.SetHeaderWidth(9, 2);
        list.SetHeaderText(9, "Error in line 0");
        list.SetHeaderWidth(10, 1);  // too narrow to count
        list.SetHeaderWidth(18, 1050);
        list.SetHeaderWidth(19, 5000);
        Row(0)[column::F] = machine == "MK2" ? "  7" : "   7";
        Row(0)[column::Error] = "!eleven big";
        Row(0)[column::ToolX] = "hidden";
        Row(0)[column::Time] = "00:00:01";
        Bench->Writer.PrintMode = true;
        const std::string end = std::string("   ") + (machine == "F1" ? "MI" : "M") + "\r\n";
        EXPECT_EQ(Text(), "One.\r\nTwo.Three.\r\n\r\n\r\n" + one.Head +
                              " Error in line 0      Time   Comment\r\n" + one.Line +
                              " !eleven big  00:00:01 end\r\n" + end);
        Bench->Writer.PrintMode = false;
    }
}

TEST_F(WriterTest, AnEmptyProgramGivesNoText) {
    EXPECT_EQ(Text(), "");
    Bench->File.txtFileNotes.Text = "notes alone";
    EXPECT_EQ(Text(), "");
    // Nothing selected: nothing to save, in any mode.
    for (const std::int16_t mode : {save::ToFile, save::As, save::ToClipboard}) {
        Platform.Dialogs.Shown.clear();
        EXPECT_EQ(Save(mode), mode);
        ASSERT_EQ(Shown().size(), 1u);
        EXPECT_EQ(Shown()[0].Text, "No Lines of code present");
        EXPECT_EQ(Shown()[0].Title, "Kestrel Vise Toolkit");
        EXPECT_EQ(Shown()[0].Choice, Buttons::Ok);
    }
}

TEST_F(WriterTest, TheEndCodeComesLastAndLeavesThePlace) {
    for (const std::string machine : {"MK2", "MK4", "F1"}) {
        SCOPED_TRACE(machine);
        std::vector<Line> lines(60, Line{"21", "", "", "", "", "", "x"});
        Check(machine, lines);
        ListView& list = Bench->Store.lvCncProgram;
        list.Select(40);
        list.EnsureVisible(40);
        const int top = list.TopRow();
        ASSERT_GT(top, 1);
        Bench->Entry.txtComment.Text = "typed meanwhile";
        ASSERT_FALSE(Bench->Store.EndCodePresent);
        Bench->Writer.AddEndCode();
        EXPECT_EQ(Bench->Store.LineCount(), 61);
        EXPECT_EQ(Cell(60, column::Number), " 60");
        EXPECT_EQ(Cell(60, column::Code), machine == "MK2" ? " 22 " : "M30 ");
        EXPECT_EQ(Cell(60, column::Comment), "");
        EXPECT_EQ(Cell(61, column::Number), "NN");
        EXPECT_TRUE(Bench->Store.EndCodePresent);
        EXPECT_TRUE(Bench->Store.ProgramChanged);
        EXPECT_EQ(list.SelectedRow(), 40);
        EXPECT_EQ(list.TopRow(), top);
        Bench->Writer.AddEndCode();
        EXPECT_EQ(Bench->Store.LineCount(), 61);
    }
}

TEST_F(WriterTest, SavingWritesTheFileAndNamesIt) {
    ASSERT_EQ(Load(FileText("MK4", {{"91"}})), LoadResult::Loaded);
    int titles = 0;
    Bench->Calls.RefreshTitle = [&] { ++titles; };
    Bench->Main.rtfHelp.Visible = true;
    Bench->Store.ProgramChanged = true;
    Bench->Writer.mnuSave_Click();
    EXPECT_EQ(FileContent("program.cnc"), "%\r\n    N` G`   X `    Z `  F`  H \r\n    00 91" + Blanks(23) +
                                              "\r\n    01M30" + Blanks(23) + "\r\n   M\r\n");
    EXPECT_FALSE(Bench->Main.rtfHelp.Visible);
    EXPECT_FALSE(Bench->Store.ProgramChanged);
    EXPECT_EQ(PathShown(), Path("program.cnc"));
    EXPECT_EQ(Bench->File.lblFileName.Caption.Get(), "program.cnc");
    EXPECT_EQ(titles, 1);
    EXPECT_TRUE(Shown().empty());
    // The dialog's name as it is: no extension comes to it, and a new file needs no question.
    Platform.Dialogs.FileAnswers = {{false, Path("other")}};
    Bench->Writer.mnuSaveAs_Click();
    EXPECT_EQ(FileContent("other"), FileContent("program.cnc"));
    EXPECT_EQ(PathShown(), Path("other"));
    EXPECT_TRUE(Shown().empty());
    EXPECT_TRUE(Bench->File.dlgFile.CancelError);
}

TEST_F(WriterTest, SaveWithoutANameAsksForOne) {
    LoadSmall();
    Bench->File.lblPath.Caption = "";
    // Cancelled: nothing is written, the program stays unsaved, the caller sees the other mode.
    Platform.Dialogs.FileAnswers = {{true, ""}};
    EXPECT_EQ(Save(save::ToFile), save::As);
    EXPECT_EQ(Bench->File.dlgFile.FileName, "");
    EXPECT_TRUE(Bench->Store.ProgramChanged);
    EXPECT_TRUE(Shown().empty());
    EXPECT_TRUE(Bench->Log.Records().empty());
    // An empty name is told.
    Platform.Dialogs.FileAnswers = {{false, ""}};
    EXPECT_EQ(Save(save::ToFile), save::As);
    ASSERT_EQ(Shown().size(), 1u);
    EXPECT_EQ(Shown()[0].Text, "No file specified");
    EXPECT_EQ(Shown()[0].Title, "Kestrel Vise Toolkit");
    EXPECT_TRUE(Bench->Store.ProgramChanged);
    EXPECT_EQ(PathShown(), "");
}

TEST_F(WriterTest, AnExistingFileIsAskedAbout) {
    LoadSmall();
    const auto fresh = [&] {
        Platform.Files.WriteWhole(Path("there.cnc"), "old");
        Platform.Dialogs.Shown.clear();
    };
    fresh();
    Platform.Dialogs.FileAnswers = {{false, Path("there.cnc")}};
    Platform.Dialogs.Answers = {Answer::Cancel};
    Save(save::As);
    ASSERT_EQ(Shown().size(), 1u);
    EXPECT_EQ(Shown()[0].Text, "Overwrite there.cnc?");
    EXPECT_EQ(Shown()[0].Title, "Kestrel Vise Toolkit");
    EXPECT_EQ(Shown()[0].Choice, Buttons::YesNoCancel);
    EXPECT_EQ(FileContent("there.cnc"), "old");
    EXPECT_TRUE(Bench->Store.ProgramChanged);
    // No shows the dialog again, from the current name on.
    fresh();
    Platform.Dialogs.FileAnswers = {{false, Path("there.cnc")}, {false, Path("new.cnc")}};
    Platform.Dialogs.Answers = {Answer::No};
    Save(save::As);
    EXPECT_EQ(Shown().size(), 1u);
    EXPECT_EQ(FileContent("there.cnc"), "old");
    EXPECT_EQ(FileContent("new.cnc"), small);
    EXPECT_EQ(PathShown(), Path("new.cnc"));
    // Yes replaces it; the queue of answers is used up.
    fresh();
    Platform.Dialogs.FileAnswers = {{false, Path("there.cnc")}};
    Platform.Dialogs.Answers = {Answer::Yes};
    Save(save::As);
    EXPECT_EQ(FileContent("there.cnc"), small);
    EXPECT_FALSE(Bench->Store.ProgramChanged);
}

TEST_F(WriterTest, AFailingWriteIsReportedAndTheNameIsTakenAllTheSame) {
    LoadSmall();
    Platform.Files.WriteWhole(Path("kept.cnc"), "old");
    Platform.Dialogs.FileAnswers = {{false, Path("kept.cnc")}};
    Platform.Dialogs.Answers = {Answer::Yes};
    Platform.Faults.Fail("file", 1);
    Save(save::As);
    ASSERT_EQ(Bench->Log.Records().size(), 1u);
    EXPECT_EQ(Bench->Log.Records()[0].Number, fault::PathFileAccess);
    EXPECT_EQ(Bench->Log.Records()[0].Procedure, "SaveFile_Click");
    EXPECT_FALSE(Bench->Store.ProgramChanged);
    EXPECT_EQ(PathShown(), Path("kept.cnc"));
    EXPECT_EQ(Bench->Store.LineCount(), 1);
    // The new text did not arrive, so the old one is still whole.
    EXPECT_EQ(FileContent("kept.cnc"), "old");
}

TEST_F(WriterTest, TheClipboardTakesTheTextAndNothingElseChanges) {
    ASSERT_EQ(Load(FileText("MK4", {{"91"}})), LoadResult::Loaded);
    const std::string file = FileContent("program.cnc");
    Platform.Clipboard.Content = "before";
    Bench->Writer.mnuSaveClipboard_Click();
    // The end code comes to the program, which counts as changed by it.
    EXPECT_EQ(Platform.Clipboard.Content, Text());
    EXPECT_NE(Platform.Clipboard.Content.find("    01M30"), std::string::npos);
    EXPECT_TRUE(Bench->Store.ProgramChanged);
    EXPECT_EQ(FileContent("program.cnc"), file);
    EXPECT_EQ(Bench->File.lblFileName.Caption.Get(), "");
    // Errors are ignored one by one: where the clearing fails, the text goes there all the same.
    Platform.Clipboard.Content = "before";
    Platform.Faults.Fail("clipboard", 1);
    Bench->Writer.mnuSaveClipboard_Click();
    EXPECT_EQ(Platform.Clipboard.Content, Text());
    Platform.Faults.Fail("clipboard", 2);
    Bench->Writer.mnuSaveClipboard_Click();
    EXPECT_EQ(Platform.Clipboard.Content, "");
    EXPECT_TRUE(Bench->Log.Records().empty());
    EXPECT_TRUE(Shown().empty());
}

}  // namespace kvt::test
