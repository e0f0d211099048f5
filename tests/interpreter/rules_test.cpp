// What of the check pass no program alone shows: values that are set, and functions by themselves.

#include "basic/run_time_error.h"
#include "interpreter/check_pass.h"
#include "support/short_program.h"
#include "support/table.h"

namespace kvt::test {

namespace {

class RulesTest : public WorkbenchFixture {
protected:
    // Neither the entry row nor a file can write this key, so the cell is set.
    void CheckRadiusLine(const std::string& machine, const std::string& program, int line, float radius) {
        Check(machine, Program(program));
        Workbench->Store.lvCncProgram.Row(line + 1)[column::Code] = "M99R";
        Workbench->Store.M99Radius = radius;
        Workbench->Interpreter.Interpreter();
    }
};

}  // namespace

TEST_F(RulesTest, RadiusLineBecomesAnOrdinaryOne) {
    // Machine|program|line of the radius|radius|line of a finding|finding|its code then|X|Y|Z
    for (const char* line : {"MK4|03 X200 Z-400 F50; M99|1|500|0||M99 |I 300||K  400",
                             "F1|02 X200 Y-400 F50; M99|1|500|0||M99 |I  300|J 400|K   00",
                             "F1|02 X200 Z-400 F50; M99|1|500|0||M99 |I  300|J  00|K  400",
                             "F1|02 Y200 Z-400 F50; M99|1|500|0||M99 |I   00|J 300|K  400",
                             "MK4|03 X-100 Z-84 F50; M99|1|100|1|!1 quadrant max|M99 ",
                             "MK4|02 X100 Z100 F50; M99|1|0|0|!Radius too small|M99R",
                             "MK4|21; M99|1|100|1|!Must be preceded by G02/03|M99R",
                             // A centre that fits neither end is no finding here, as it is behind M99.
                             "F1|02 X10 Y300 F50; M99|1|100|1||M99 ", "MK4|M99; 21|0|100|0||M99R"}) {
        SCOPED_TRACE(line);
        const auto one = Fields(line);
        const int place = std::stoi(one[2]);
        CheckRadiusLine(one[0], one[1], place, std::stof(one[3]));
        EXPECT_EQ(Error(std::stoi(one[4])), one[5]);
        EXPECT_EQ(Cell(place, column::Code), one[6]);
        if (one.size() < 10) continue;
        EXPECT_EQ(Cell(1, column::X), one[7]);
        EXPECT_EQ(Cell(1, column::Y), one[8]);
        EXPECT_EQ(Cell(1, column::Z), one[9]);
        // The radius has done its work: the offsets stand for themselves now.
        Workbench->Store.M99Radius = 1;
        Workbench->Interpreter.Interpreter();
        EXPECT_EQ(Workbench->Store.ErrorRow, 0);
        EXPECT_EQ(Cell(0, column::Radius), "   500");
    }
}

TEST_F(RulesTest, ACountOfCyclesFillsTheCommentWhileTheEntryFieldIsEmpty) {
    Check("MK4", {{"73", "", "", "-500", "100", "", "typed"}});
    EXPECT_EQ(Cell(0, column::Comment), "@  (3x)Drilling Cycle with Chip Breakage");
    Workbench->Store.lvCncProgram.Row(1)[column::Comment] = "typed again";
    Workbench->Entry.txtComment.Text = " ";
    Workbench->Interpreter.Interpreter();
    EXPECT_EQ(Cell(0, column::Comment), "typed again");
    Workbench->Entry.txtComment.Text = "";
    Workbench->Lists.lstMK4Gcodes.SetEntry(10, "G73 \tSpanbruch\t ");
    Workbench->Interpreter.Interpreter();
    EXPECT_EQ(Cell(0, column::Comment), "@  (3x)Spanbruch");
}

TEST(MakeTimeStringTest, RoundsToWholeSeconds) {
    for (const char* line : {"0.49|00:00:00", "0.5|00:00:01", "2.5|00:00:03", "3599.5|01:00:00",
                             "359999.4|99:59:59", "36000061|10000:01:01", "-230.4|00:-03:-50"}) {
        EXPECT_EQ(MakeTimeString(std::stod(Fields(line)[0])), Fields(line)[1]) << line;
    }
}

}  // namespace kvt::test
