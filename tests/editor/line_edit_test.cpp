#include "support/table.h"
#include "support/workbench_fixture.h"

namespace kvt::test {

namespace {

class LineEditTest : public WorkbenchFixture {
protected:
    LineEditTest() {
        Workbench->Calls.RedrawAfterEdit = [this] { ++Redraws; };
        Begin("MK4");
    }
    // An empty program of a machine, with its open line.
    void Begin(const std::string& machine) {
        Workbench->Store.Machine = MachineNamed(machine).value();
        List.Clear();
        Workbench->Display.RefreshMachine();
        Workbench->Store.AddBlankLine(true);
    }
    // The entry row as a user has it before Enter in the comment: code, five fields, comment.
    void Type(const std::string& line) {
        auto fields = Fields(line);
        fields.resize(7);
        EntryRow& entry = Workbench->Entry;
        // From the list, so that a code which the machine does not know is not refused on the way.
        entry.txtGMcode.Text = "";
        Platform.Focus.SetFocus(List);
        const bool mCode = fields[0][0] == 'M';
        entry.lblGMcode.Caption = mCode ? "M" : "G";
        entry.txtGMcode.Text = fields[0].substr(mCode ? 1 : 0);
        std::string code = entry.txtGMcode.Text.Get();
        Workbench->Layout.InputFields(code);
        const auto boxes = entry.Fields();
        for (std::size_t i = 0; i < boxes.size(); ++i) boxes[i].Box.Text = fields[i + 1];
        entry.txtComment.Text = fields[6];
    }
    void Enter(const std::string& line) {
        Type(line);
        Workbench->Lines.LineEdit();
    }
    // Columns 2 to 7 of a line.
    std::string Cells(int line) const {
        std::string cells;
        for (int c = column::Code; c <= column::H; ++c) cells += "[" + Cell(line, c) + "]";
        return cells;
    }

    ListView& List = Workbench->Store.lvCncProgram;
    int Redraws = 0;
};

}  // namespace

TEST_F(LineEditTest, PrefixesAndWidthsOfEveryField) {
    const std::pair<const char*, const char*> cases[] = {
        {"MK4|01|-5||-12345|100", "[ 01 ][-  05][     ][-12345][ 100][   ]"},
        {"MK4|00|5999||0", "[ 00 ][ 5999][     ][    00][    ][   ]"},
        {"MK4|25||||5", "[ 25 ][     ][     ][      ][L 05][   ]"},
        {"MK4|27||||105", "[ 27 ][     ][     ][      ][L105][   ]"},
        {"MK4|33|||-100|50", "[ 33 ][     ][     ][-  100][K 50][   ]"},
        {"MK4|84|-100||-200|40|7", "[ 84 ][- 100][     ][-  200][  40][ 07]"},
        {"MK4|78|100||200|40|110", "[ 78 ][  100][     ][   200][K 40][110]"},
        {"MK4|M06|-5||6|3", "[M06 ][-  05][     ][    06][T 03][   ]"},
        {"MK4|M26|1|2|3|4|123", "[M26 ][     ][     ][      ][    ][123]"},
        {"MK4|M99|100||200", "[M99 ][I 100][     ][K  200][    ][   ]"},
        {"MK4|21|1|2|3|4|5", "[ 21 ][     ][     ][      ][    ][   ]"},
        {"MK2|23|1||999|499", "[ 23 ][   01][     ][   999][T499][   ]"},
        {"MK2|84|1||2|30|4", "[ 84 ][   01][     ][    02][  30][   ]"},
        {"F1|01|-12345|-9999|-1|499", "[ 01 ][-12345][-9999][-   01][ 499][   ]"},
        {"F1|81|1|2|-300|40", "[ 81 ][      ][     ][-  300][  40][   ]"},
        {"F1|M06|500|1200|-5|1", "[M06 ][D  500][S1200][-   05][T 01][   ]"},
        {"F1|M99|100|50|0", "[M99 ][I  100][J  50][K   00][    ][   ]"},
        // On the mill a visible H takes the place of the fourth parameter.
        {"F1|84|-100||-200|40|7", "[ 84 ][-  100][     ][-  200][  07][   ]"},
        {"F1|M26|||||1234", "[M26 ][      ][     ][      ][1234][   ]"},
        // What the fields without a number, or without a tool, become.
        {"MK4|01|||1|", "[ 01 ][   00][     ][    01][ 120][   ]"},
        {"MK4|01|||1|1", "[ 01 ][   00][     ][    01][ 120][   ]"},
        {"MK4|01|||1|-9", "[ 01 ][   00][     ][    01][ 120][   ]"},
        {"MK4|01|||1|2", "[ 01 ][   00][     ][    01][  02][   ]"},
        {"MK4|M06", "[M06 ][   00][     ][    00][T 01][   ]"},
        {"MK4|M06||||00", "[M06 ][   00][     ][    00][T 00][   ]"},
        {"MK4|33", "[ 33 ][     ][     ][    00][K 00][   ]"},
    };
    Workbench->Entry.txtFeedA.Text = "  120";
    for (const auto& [typed, cells] : cases) {
        const std::string line = typed;
        Begin(line.substr(0, line.find('|')));
        Enter(line.substr(line.find('|') + 1));
        EXPECT_EQ(Cells(0), cells) << typed;
        EXPECT_EQ(Cell(0, column::Number), " 00") << typed;
    }
}

// What is written without a key in the comment, as by the list's menu.
TEST_F(LineEditTest, RangesAndCommentsAreThoseOfTheKeys) {
    Enter("00|-123456||1");
    EXPECT_EQ(Platform.Dialogs.Shown.back().Text, "Lowest value for this field is -5999");
    EXPECT_EQ(Workbench->Store.LineCount(), 0);
    Workbench->View.chkViewGcode.Value = 1;
    for (const char* line : {"01|1||1|50", "01|1||1|50||  own "}) Enter(line);
    EXPECT_EQ(Cell(0, column::Comment), "@  Linear Interpolation");
    EXPECT_EQ(Cell(1, column::Comment), "  own ");
}

TEST_F(LineEditTest, WritesWhicheverRowIsSelected) {
    Enter("00|100||200");
    EXPECT_EQ(List.Count(), 2);
    EXPECT_EQ(List.SelectedRow(), 2);
    EXPECT_EQ(Cell(1, column::Number), "NN");
    Enter("01|1||2|50||own");
    Enter("M30");
    EXPECT_EQ(List.Count(), 4);
    EXPECT_TRUE(Workbench->Store.EndCodePresent);

    // A row inside the program: the selection stays there.
    Type("00|7||8|||copied");
    List.Select(2);
    Workbench->Lines.LineEdit();
    EXPECT_EQ(List.Count(), 4);
    EXPECT_EQ(List.SelectedRow(), 2);
    EXPECT_EQ(Cells(1), "[ 00 ][   07][     ][    08][    ][   ]");
    EXPECT_EQ(Cell(1, column::Comment), "copied");
    // The fields keep their texts, so the line can be written again elsewhere.
    List.Select(1);
    Workbench->Lines.LineEdit();
    EXPECT_EQ(Cells(0), Cells(1));
    EXPECT_EQ(Cell(0, column::Number), " 00");
    // The last row without an open line behind it.
    List.RemoveRow(4);
    List.Select(3);
    Workbench->Lines.LineEdit();
    EXPECT_EQ(List.SelectedRow(), 4);
    EXPECT_EQ(Cell(3, column::Number), "NN");
    EXPECT_FALSE(Workbench->Store.EndCodePresent);
}

TEST_F(LineEditTest, WhatComesWithAnEdit) {
    EntryRow& entry = Workbench->Entry;
    const std::vector<Control*> help = {&entry.picXYaxes, &entry.picZXaxes, &entry.cmdReturn};
    for (Control* control : help) control->Visible = true;
    Workbench->Store.ProgramChanged = false;
    entry.txtGMcode.Text = "";
    Workbench->Lines.LineEdit();
    for (Control* control : help) EXPECT_FALSE(control->Visible) << control->Name();
    // Without a code that is all.
    EXPECT_FALSE(Workbench->Store.ProgramChanged);
    EXPECT_EQ(Workbench->Store.LineCount(), 0);

    Enter("M06||||1");
    EXPECT_TRUE(Workbench->Store.ProgramChanged);
    EXPECT_EQ(Workbench->Results.lblPPLines.Caption, "1");
    EXPECT_EQ(Platform.Focus.Focused(), &entry.txtGMcode);
    EXPECT_EQ(entry.txtGMcode.Selection.Get(), (TextSelection{0, 2}));
    Enter("21");
    EXPECT_EQ(Redraws, 1);
    Enter("M30");
    EXPECT_EQ(Redraws, 2);
    EXPECT_TRUE(Workbench->Log.Records().empty());
}

}  // namespace kvt::test
