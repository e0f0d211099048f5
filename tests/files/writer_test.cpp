#include "files/cnc_writer.h"

#include "support/workbench_fixture.h"

namespace kvt::test {

namespace {

std::string Blanks(std::size_t count) { return std::string(count, ' '); }

class WriterTest : public WorkbenchFixture {
protected:
    std::string Text() { return Workbench->Writer.GenerateAll(); }
    std::int16_t Save(std::int16_t mode) {
        Workbench->Writer.SaveFile_Click(mode);
        return mode;
    }
    ListRow& Row(int line) { return Workbench->Store.lvCncProgram.Row(line + 1); }
    std::string PathShown() const { return Workbench->File.lblPath.Caption.Get(); }
    const std::vector<MessageBox>& Shown() const { return Platform.Dialogs.Shown; }
    void LoadSmall(const std::string& name = "program.cnc") {
        ASSERT_EQ(Load(small, name), LoadResult::Loaded);
        Workbench->Store.ProgramChanged = true;
    }
    const std::string small = FileText("MK4", {{"M30"}});
};

}  // namespace

TEST_F(WriterTest, PrintModeShowsTheColumnsInSight) {
    const struct {
        std::string Machine, Head, Line;
    } cases[] = {
        {"MK2", Blanks(30), "   N00 G22 X" + Blanks(5) + " Z" + Blanks(6) + " F  7"},
        {"MK4", "     N   G    X      Z   F   H ", "    00M30" + Blanks(13) + "   7" + Blanks(5)},
        {"F1", "     N  G     X    Y     Z   F", "    00M30" + Blanks(17) + "   7"},
    };
    ListView& list = Workbench->Store.lvCncProgram;
    for (const auto& one : cases) {
        const std::string& machine = one.Machine;
        SCOPED_TRACE(machine);
        Check(machine, {{machine == "MK2" ? "22" : "M30", "", "", "", "", "", " end"}});
        Workbench->File.txtFileNotes.Text = "One. Two.Three. ";
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
        Workbench->Writer.PrintMode = true;
        const std::string end = std::string("   ") + (machine == "F1" ? "MI" : "M") + "\r\n";
        EXPECT_EQ(Text(), "One.\r\nTwo.Three.\r\n\r\n\r\n" + one.Head +
                              " Error in line 0      Time   Comment\r\n" + one.Line +
                              " !eleven big  00:00:01 end\r\n" + end);
        Workbench->Writer.PrintMode = false;
    }
}

TEST_F(WriterTest, TheEndCodeComesLastAndLeavesThePlace) {
    for (const std::string machine : {"MK2", "MK4", "F1"}) {
        SCOPED_TRACE(machine);
        std::vector<Line> lines(60, Line{"21", "", "", "", "", "", "x"});
        Check(machine, lines);
        ListView& list = Workbench->Store.lvCncProgram;
        list.Select(40);
        list.EnsureVisible(40);
        const int top = list.TopRow();
        ASSERT_GT(top, 1);
        Workbench->Entry.txtComment.Text = "typed meanwhile";
        ASSERT_FALSE(Workbench->Store.EndCodePresent);
        Workbench->Writer.AddEndCode();
        EXPECT_EQ(Workbench->Store.LineCount(), 61);
        EXPECT_EQ(Cell(60, column::Number), " 60");
        EXPECT_EQ(Cell(60, column::Code), machine == "MK2" ? " 22 " : "M30 ");
        EXPECT_EQ(Cell(60, column::Comment), "");
        EXPECT_EQ(Cell(61, column::Number), "NN");
        EXPECT_TRUE(Workbench->Store.EndCodePresent);
        EXPECT_TRUE(Workbench->Store.ProgramChanged);
        EXPECT_EQ(list.SelectedRow(), 40);
        EXPECT_EQ(list.TopRow(), top);
        Workbench->Writer.AddEndCode();
        EXPECT_EQ(Workbench->Store.LineCount(), 61);
    }
}

TEST_F(WriterTest, AnEmptyNameIsTold) {
    LoadSmall();
    Workbench->File.lblPath.Caption = "";
    Platform.Dialogs.FileAnswers = {{false, ""}};
    EXPECT_EQ(Save(save::ToFile), save::As);
    ASSERT_EQ(Shown().size(), 1u);
    EXPECT_EQ(Shown()[0].Text, "No file specified");
    EXPECT_TRUE(Workbench->Store.ProgramChanged);
}

TEST_F(WriterTest, TheClipboardTakesTheTextAndNothingElseChanges) {
    ASSERT_EQ(Load(FileText("MK4", {{"91"}})), LoadResult::Loaded);
    const std::string file = FileContent("program.cnc");
    Platform.Clipboard.Content = "before";
    Workbench->Writer.mnuSaveClipboard_Click();
    // The end code comes to the program, which counts as changed by it.
    EXPECT_EQ(Platform.Clipboard.Content, Text());
    EXPECT_NE(Platform.Clipboard.Content.find("    01M30"), std::string::npos);
    EXPECT_TRUE(Workbench->Store.ProgramChanged);
    EXPECT_EQ(FileContent("program.cnc"), file);
    EXPECT_EQ(Workbench->File.lblFileName.Caption.Get(), "");
    // Errors are ignored one by one: where the clearing fails, the text goes there all the same.
    Platform.Clipboard.Content = "before";
    Platform.Faults.Fail("clipboard", 1);
    Workbench->Writer.mnuSaveClipboard_Click();
    EXPECT_EQ(Platform.Clipboard.Content, Text());
    Platform.Faults.Fail("clipboard", 2);
    Workbench->Writer.mnuSaveClipboard_Click();
    EXPECT_EQ(Platform.Clipboard.Content, "");
    EXPECT_TRUE(Workbench->Log.Records().empty());
    EXPECT_TRUE(Shown().empty());
}

}  // namespace kvt::test
