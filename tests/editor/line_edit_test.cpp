#include "basic/number.h"
#include "support/bench_fixture.h"

namespace kvt::test {

namespace {

class LineEditTest : public BenchTest {
protected:
    LineEditTest() {
        Bench->Calls.RedrawAfterEdit = [this] { ++Redraws; };
        Begin("MK4");
    }
    // An empty program of a machine, with its open line.
    void Begin(const char* machine) {
        Bench->Store.Machine = machine;
        Bench->Store.lvCncProgram.Clear();
        Bench->RefreshMachine();
        Bench->Store.AddBlankLine(true);
    }
    // Fills the entry row as a user has it before Enter in the comment.
    void Type(const Line& line) {
        const bool mCode = line.Code[0] == 'M';
        EntryRow& entry = Bench->Entry;
        entry.lblGMcode.Caption = mCode ? "M" : "G";
        entry.txtGMcode.Text = line.Code + (mCode ? 1 : 0);
        std::string code = entry.txtGMcode.Text.Get();
        Bench->Layout.InputFields(code);
        entry.txtXI.Text = line.X;
        entry.txtYJ.Text = line.Y;
        entry.txtZK.Text = line.Z;
        entry.txtFKTL.Text = line.F;
        entry.txtH.Text = line.H;
        entry.txtComment.Text = line.Comment;
    }
    void Enter(const Line& line) {
        Type(line);
        Bench->Lines.LineEdit();
    }
    // Columns 2 to 7 of a line, each between bars.
    std::string Cells(int line) const {
        std::string cells = "|";
        for (int c = column::Code; c <= column::H; ++c) cells += Cell(line, c) + "|";
        return cells;
    }
    ListView& List() { return Bench->Store.lvCncProgram; }

    int Redraws = 0;
};

}  // namespace

TEST_F(LineEditTest, PrefixesAndWidthsOfEveryField) {
    struct Case {
        const char* Machine;
        Line Typed;
        const char* Cells;
    };
    const Case cases[] = {
        {"MK4", {"01", "-5", "", "-12345", "100"}, "| 01 |-  05|     |-12345| 100|   |"},
        {"MK4", {"00", "5999", "", "0", ""}, "| 00 | 5999|     |    00|    |   |"},
        {"MK4", {"04", "50"}, "| 04 |   50|     |      |    |   |"},
        {"MK4", {"25", "", "", "", "5"}, "| 25 |     |     |      |L 05|   |"},
        {"MK4", {"27", "", "", "", "105"}, "| 27 |     |     |      |L105|   |"},
        {"MK4", {"33", "", "", "-100", "50"}, "| 33 |     |     |-  100|K 50|   |"},
        {"MK4", {"84", "-100", "", "-200", "40", "7"}, "| 84 |- 100|     |-  200|  40| 07|"},
        {"MK4", {"78", "100", "", "200", "-40", "110"}, "| 78 |  100|     |   200|K 40|110|"},
        {"MK4", {"M06", "-5", "", "6", "3"}, "|M06 |-  05|     |    06|T 03|   |"},
        {"MK4", {"M26", "1", "2", "3", "4", "1234"}, "|M26 |     |     |      |    |234|"},
        {"MK4", {"M98", "10", "", "20"}, "|M98 |   10|     |    20|    |   |"},
        {"MK4", {"M99", "-100", "", "200"}, "|M99 |I 100|     |K  200|    |   |"},
        {"MK4", {"21", "1", "2", "3", "4", "5"}, "| 21 |     |     |      |    |   |"},
        {"MK2", {"23", "1", "", "999", "499"}, "| 23 |   01|     |   999|T499|   |"},
        {"MK2", {"84", "1", "", "2", "-3", "4"}, "| 84 |   01|     |    02|  03|   |"},
        {"F1", {"01", "-12345", "-9999", "-1", "499"}, "| 01 |-12345|-9999|-   01| 499|   |"},
        {"F1", {"92", "5", "5", "5"}, "| 92 |    05|   05|    05|    |   |"},
        {"F1", {"81", "1", "2", "-300", "40"}, "| 81 |      |     |-  300|  40|   |"},
        {"F1", {"M06", "-500", "1200", "-5", "1"}, "|M06 |D  500|S1200|-   05|T 01|   |"},
        {"F1", {"M99", "100", "-50", "0"}, "|M99 |I  100|J  50|K   00|    |   |"},
        // On the mill a visible H takes the place of the fourth parameter.
        {"F1", {"84", "-100", "", "-200", "40", "7"}, "| 84 |-  100|     |-  200|  07|   |"},
        {"F1", {"M26", "", "", "", "", "1234"}, "|M26 |      |     |      |1234|   |"},
        // Longer texts lose characters on the left.
        {"MK4", {"00", "-123456", "", "1234567"}, "| 00 |-3456|     | 34567|    |   |"},
    };
    for (const Case& one : cases) {
        Begin(one.Machine);
        Enter(one.Typed);
        EXPECT_EQ(Cells(0), one.Cells) << one.Machine << " " << one.Typed.Code;
        EXPECT_EQ(Cell(0, column::Number), " 00");
    }
}

TEST_F(LineEditTest, TheRadiusLineLosesADigitAndKeepsItsRadius) {
    Enter({"M99R", "-500"});
    EXPECT_EQ(Cells(0), "|M9R |R 500|     |      |    |   |");
    EXPECT_EQ(Bench->Store.M99Radius, -500);
    Enter({"M99", "7", "", "8"});
    EXPECT_EQ(Bench->Store.M99Radius, -500);
    // The row that a file brings has its whole key; nothing but the code field decides here.
    Bench->Entry.txtGMcode.Text = "199";
    Bench->Lines.LineEdit();
    EXPECT_EQ(Cell(2, column::Code), "M99 ");
}

TEST_F(LineEditTest, EmptyFeedAndToolHaveDefaults) {
    Bench->Entry.txtFeedA.Text = "  120";
    struct Case {
        Line Typed;
        const char* Cell;
    };
    const Case cases[] = {{{"01", "1", "", "1", ""}, " 120"},  {{"01", "1", "", "1", "0"}, " 120"},
                          {{"01", "1", "", "1", "1"}, " 120"}, {{"01", "1", "", "1", "-9"}, " 120"},
                          {{"01", "1", "", "1", "2"}, "  02"}, {{"M06", "", "", "", ""}, "T 01"},
                          {{"M06", "", "", "", "00"}, "T 00"}, {{"33", "", "", "1", ""}, "K 00"},
                          {{"25", "", "", "", ""}, "L 00"}};
    for (const Case& one : cases) {
        Begin("MK4");
        Enter(one.Typed);
        EXPECT_EQ(Cell(0, column::F), one.Cell) << one.Typed.Code << " " << one.Typed.F;
    }
    // A hidden field takes its default too, which shows in no cell.
    Enter({"01", "1", "", "1", "5"});
    Enter({"90"});
    EXPECT_EQ(Bench->Entry.txtFKTL.Text, "  120");
    EXPECT_EQ(Cell(2, column::F), "    ");
}

TEST_F(LineEditTest, WritesWhicheverRowIsSelected) {
    Enter({"00", "100", "", "200"});
    EXPECT_EQ(List().Count(), 2);
    EXPECT_EQ(List().SelectedRow(), 2);
    EXPECT_EQ(Cell(1, column::Number), "NN");
    Enter({"01", "1", "", "2", "50", "", "own"});
    Enter({"M30"});
    EXPECT_EQ(List().Count(), 4);
    EXPECT_TRUE(Bench->Store.EndCodePresent);

    // A row inside the program: the selection stays there.
    Type({"00", "7", "", "8", "", "", "copied"});
    List().Select(2);
    Bench->Lines.LineEdit();
    EXPECT_EQ(List().Count(), 4);
    EXPECT_EQ(List().SelectedRow(), 2);
    EXPECT_EQ(Cells(1), "| 00 |   07|     |    08|    |   |");
    EXPECT_EQ(Cell(1, column::Comment), "copied");
    // The fields keep their texts, so the line can be written again elsewhere.
    List().Select(1);
    Bench->Lines.LineEdit();
    EXPECT_EQ(Cells(0), "| 00 |   07|     |    08|    |   |");
    EXPECT_EQ(Cell(0, column::Number), " 00");

    // The last row without an open line behind it.
    List().RemoveRow(4);
    List().Select(3);
    Bench->Lines.LineEdit();
    EXPECT_EQ(List().Count(), 4);
    EXPECT_EQ(List().SelectedRow(), 4);
    EXPECT_EQ(Cell(3, column::Number), "NN");
    EXPECT_FALSE(Bench->Store.EndCodePresent);
}

TEST_F(LineEditTest, TheNumberIsThePlaceOfTheRow) {
    for (int i = 0; i < 120; ++i) List().AddRow();
    for (const auto& [row, number] : {std::pair{1, " 00"}, {10, " 09"}, {100, " 99"}, {121, "120"}}) {
        List().Select(row);
        Bench->Lines.FormatInputs();
        EXPECT_EQ(Cell(row - 1, column::Number), number);
    }
}

TEST_F(LineEditTest, AnAutomaticCommentFillsAnEmptyOne) {
    Enter({"01", "1", "", "1", "50"});
    EXPECT_EQ(Cell(0, column::Comment), "");
    Bench->View.chkViewGcode.Value = 1;
    Enter({"01", "1", "", "1", "50"});
    EXPECT_EQ(Cell(1, column::Comment), "@  Linear Interpolation");
    Enter({"01", "1", "", "1", "50", "", "  own "});
    EXPECT_EQ(Cell(2, column::Comment), "  own ");
    Enter({"M08"});
    EXPECT_EQ(Cell(3, column::Comment), "@  Switch output X62 PIN 15 HIGH");
    Enter({"71"});
    EXPECT_EQ(Cell(4, column::Comment), "");
}

TEST_F(LineEditTest, WhatComesWithAnEdit) {
    EntryRow& entry = Bench->Entry;
    entry.picXYaxes.Visible = true;
    entry.picZXaxes.Visible = true;
    entry.cmdReturn.Visible = true;
    Bench->Store.ProgramChanged = false;
    entry.txtGMcode.Text = "";
    Bench->Lines.LineEdit();
    EXPECT_FALSE(entry.picXYaxes.Visible);
    EXPECT_FALSE(entry.picZXaxes.Visible);
    EXPECT_FALSE(entry.cmdReturn.Visible);
    // Without a code that is all.
    EXPECT_FALSE(Bench->Store.ProgramChanged);
    EXPECT_EQ(Bench->Store.LineCount(), 0);

    Enter({"M06", "", "", "", "1"});
    EXPECT_TRUE(Bench->Store.ProgramChanged);
    EXPECT_EQ(Bench->Results.lblPPLines.Caption, "1");
    EXPECT_EQ(Platform.Focus.Focused(), &entry.txtGMcode);
    EXPECT_EQ(entry.txtGMcode.Selection.Get(), (TextSelection{0, 2}));
    EXPECT_EQ(Redraws, 1);
    Enter({"21"});
    EXPECT_EQ(Redraws, 1);
    Enter({"M30"});
    EXPECT_EQ(Redraws, 2);
    EXPECT_TRUE(Bench->Log.Records().empty());
}

}  // namespace kvt::test
