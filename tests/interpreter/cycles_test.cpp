// How often a cycle repeats, the comment that tells it, and a division of cut that does not fit.

#include "support/short_program.h"

namespace kvt::test {

namespace {

class Cycles : public BenchTest {
protected:
    std::string Comment(int line) const { return Cell(line, column::Comment); }
    int Last() const { return Bench->Store.LineCount() - 1; }
};

}  // namespace

TEST_F(Cycles, RepeatsFollowFromDistanceAndCut) {
    struct Case {
        const char *Units, *Program;
        const char* Comment;  // of the last line, behind "@  "; null for none
    };
    const Case cases[] = {
        // The whole part of (500 - 21) / 180, plus 1; then the largest first part and one more.
        {"M", "73 Z-500 F100", "(3x)Drilling Cycle with Chip Breakage"},
        {"M", "73 Z-20 F100", "(1x)Drilling Cycle with Chip Breakage"},
        {"M", "73 Z-200 F100", "(1x)Drilling Cycle with Chip Breakage"},
        {"M", "73 Z201 F100", "(2x)Drilling Cycle with Chip Breakage"},
        {"\"", "73 Z-100 F100", "(1x)Drilling Cycle with Chip Breakage"},
        {"\"", "73 Z-101 F100", "(2x)Drilling Cycle with Chip Breakage"},
        {"M", "83 Z-600 F100", "(1x)Drilling Cycle with Withdrawal"},
        {"M", "83 Z-601 F100", "(2x)Drilling Cycle with Withdrawal"},
        {"\"", "83 Z-300 F100", "(1x)Drilling Cycle with Withdrawal"},
        {"\"", "83 Z-301 F100", "(2x)Drilling Cycle with Withdrawal"},
        // Absolute: 400 and 801 from where the tool stood before the cycle.
        {"M", "90; 00 Z-100; 73 Z-500 F100", "(3x)Drilling Cycle with Chip Breakage"},
        {"M", "90; 00 Z-100; 83 Z701 F100", "(2x)Drilling Cycle with Withdrawal"},
        // The last cut may be a smaller one.
        {"M", "84 X-250 Z-500 F100 H100", "(3x)Longitudinal Cycle"},
        {"M", "84 X-200 Z-500 F100 H100", "(2x)Longitudinal Cycle"},
        {"M", "84 X-250 Z-500 F100", "(1x)Longitudinal Cycle"},
        {"\"", "78 X31 Z-500 F100 H10", "(4x)Threading Cycle"},
        // From X 1000 on the radius to 750. Then 200.5 counts as 200 and 201.5 as 202.
        {"M", "90; 00 X2000; 84 X-1500 Z-500 F100 H100", "(3x)Longitudinal Cycle"},
        {"M", "90; 00 X2000; 84 X1599 Z-500 F100 H100", "(2x)Longitudinal Cycle"},
        {"M", "90; 00 X2000; 84 X1597 Z-500 F100 H100", "(3x)Longitudinal Cycle"},
        {"M", "24; 90; 00 X1000; 78 X750 Z-500 F100 H100", "(3x)Threading Cycle"},
        {"M", "86 X-50 Z-300 F100 H100", "(3x)Grooving Cycle"},
        {"M", "90; 00 X2000 Z-100; 88 X1500 Z250 F100 H100", "(4x)Facing Cycle"},
        {"M", "90; 00 X2000 Z-100; 88 X1500 Z250 F100 H0", "(1x)Facing Cycle"},
        // Outwards by 250: two whole cuts back and one more, which is none. No count for other cycles.
        {"M", "90; 00 X2000; 84 X2500 Z-500 F100 H100", nullptr},
        {"M", "81 Z-500 F100", nullptr},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(std::string(one.Units) + " " + one.Program);
        Check("MK4", Program(one.Program), one.Units);
        EXPECT_EQ(Comment(Last()), one.Comment ? std::string("@  ") + one.Comment : "");
        EXPECT_EQ(Bench->Store.ErrorRow, 0);
    }
}

TEST_F(Cycles, CutLargerThanTheDistance) {
    // The row is written as far as the tool cells, its time and count are not.
    Check("MK4", Program("01 Z-1000 F100; 90; 84 X-500 Z-400 F100 H300; 21"));
    EXPECT_EQ(Error(2), "!Division-of-cut error");
    EXPECT_EQ(Bench->Store.ErrorLine, 2);
    EXPECT_EQ(Cell(2, column::ToolX), "     0");
    EXPECT_EQ(Cell(2, column::ToolZ), " -1000");
    EXPECT_EQ(Cell(2, column::Time), "        ");
    EXPECT_EQ(Comment(2), "");
    EXPECT_EQ(Bench->Store.lvCncProgram.Row(3).ForeColor, Bench->Store.AbsColor);
    EXPECT_EQ(Bench->Store.lvCncProgram.Row(1).ForeColor, Bench->Store.IncrColor);
    EXPECT_EQ(Bench->Results.lblXAxisMin.Caption.Get(), "-250");
    EXPECT_EQ(Bench->Results.lblPPLinesExe.Caption.Get(), "2");
    EXPECT_EQ(Cell(3, column::ToolX), "     ?");

    for (const auto& [program, fits] : std::initializer_list<std::pair<const char*, bool>>{
             {"84 X-250 Z-500 F100 H250", true},
             {"84 X-250 Z-500 F100 H251", false},
             {"86 X-50 Z-300 F100 H301", false},
             {"73 Z-500 F100 H501", false},
             // Outwards by less than one cut, which counts as one.
             {"90; 00 X2000; 84 X2100 Z-500 F100 H100", false}}) {
        SCOPED_TRACE(program);
        Check("MK4", Program(program));
        EXPECT_EQ(Error(Last()), fits ? "" : "!Division-of-cut error");
    }
}

TEST_F(Cycles, CommentIsRewrittenWhileTheEntryFieldIsEmpty) {
    Check("MK4", {{"73", "", "", "-500", "100", "", "typed"}, {"00", "", "", "10", "", "", "typed"}});
    EXPECT_EQ(Comment(0), "@  (3x)Drilling Cycle with Chip Breakage");
    EXPECT_EQ(Comment(1), "typed");

    Bench->Store.lvCncProgram.Row(1)[column::Comment] = "typed again";
    Bench->Entry.txtComment.Text = " ";
    Bench->Interpreter.Interpreter();
    EXPECT_EQ(Comment(0), "typed again");
    Bench->Entry.txtComment.Text = "";
    Bench->Lists.lstMK4Gcodes.SetEntry(10, "G73 \tSpanbruch\t ");
    Bench->Interpreter.Interpreter();
    EXPECT_EQ(Comment(0), "@  (3x)Spanbruch");

    // The mill has descriptions of its own, but the count takes the lathe's. MK2 counts nothing.
    Check("F1", Program("73 Z-500 F100"));
    EXPECT_EQ(Comment(0), "@  (3x)Spanbruch");
    Check("MK2", {{"84", "-250", "", "-500", "100", "", "typed"}, {"73", "", "", "-500", "100"}});
    EXPECT_EQ(Comment(0), "typed");
    EXPECT_EQ(Comment(1), "");
}

}  // namespace kvt::test
