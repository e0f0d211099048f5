// Tool positions and the factor of X, angles, axes, machine time, and the rules of the mill.

#include "support/short_program.h"

namespace kvt::test {

namespace {

class Positions : public BenchTest {
protected:
    // The three tool cells of a line, six characters each.
    std::string Tool(int line) const {
        return Cell(line, column::ToolX) + Cell(line, column::ToolY) + Cell(line, column::ToolZ);
    }
    int Last() const { return Bench->Store.LineCount() - 1; }
};

}  // namespace

TEST_F(Positions, FactorOfXAndMode) {
    struct Case {
        const char *Machine, *Program;
        const char* Tool;  // behind the last line
    };
    const Case cases[] = {
        // Diameters behind G90; what comes after G91 counts from there, as a radius.
        {"MK4", "00 X100 Z-20; 00 X100 Z-20", "   200     0   -40"},
        {"MK4", "90; 00 X2000 Z-50", "  1000     0   -50"},
        {"MK4", "90; 00 X2000 Z-50; 91; 00 X-100 Z7", "   900     0   -43"},
        {"MK4", "24; 90; 00 X2000 Z-50", "  2000     0   -50"},
        {"MK4", "90; 91; 24; 90; 00 X2000", "  2000     0     0"},
        {"MK2", "90; 00 X1001 Z50 F100", " 500.5     0    50"},
        // G92 halves what the factor in force has left: behind G90 it is a quarter.
        {"MK4", "92 X3000 Z100; 91; 00 X100", "  1600     0   100"},
        {"MK4", "92 X3000 Z100; 00 X1000 Z0", "   500     0     0"},
        {"MK4", "90; 92 X1001 Z100", "250.25     0   100"},
        {"MK4", "24; 92 X3000 Z100", "  3000     0   100"},
        {"MK4", "24; 92 X3000 Z100; 00 X10 Z1", "    10     0     1"},
        {"MK2", "92 X3000 Z100", "  1500     0   100"},
        // The mill never halves X.
        {"F1", "00 X10 Y20; 00 X10 Y20; 00 Z-30", "    20    40   -30"},
        {"F1", "90; 00 X2001 Y30; 00 X2003 Y40 Z50", "  2003    40    50"},
        {"F1", "92 X501 Y-60 Z70", "   501   -60    70"},
        {"F1", "92 X501 Y-60 Z70; 00 X7; 91; 00 X1 Y1 Z1", "     8     1     1"},
        // A thread adds its X in both modes.
        {"MK4", "00 X100; 33 X10 Z-500 F100", "   110     0  -500"},
        {"MK4", "90; 00 X200 Z-9; 33 X10 Z-500 F100", "   105     0  -500"},
        // Cycles come back, and these do not move at all.
        {"MK4", "00 X100 Z-9; 84 X-50 Z-500 F100", "   100     0    -9"},
        {"F1", "90; 00 X5 Y6 Z7; 89 Z-500 F100", "     5     6     7"},
        {"MK4", "00 X100 Z-9; 04 X150", "   100     0    -9"},
        {"MK4", "00 X100 Z-9; M06 X50 Z60 T1", "   100     0    -9"},
        {"MK4", "00 X100 Z-9; M98 X50 Z60 F1", "   100     0    -9"},
        // A letter in the cell is no number.
        {"F1", "90; 00 XI100 YJ10 ZK500", "     0     0     0"},
        // Six characters: first the sign's blank gives way, then decimals, then what stands on the left.
        {"MK4", "90; 00 X1 Z-1", "    .5     0    -1"},
        {"MK4", "90; 00 X-1 Z32760", "   -.5     0 32760"},
        {"MK4", "90; 00 X2469 Z-32760", "1234.5     0-32760"},
        {"MK4", "90; 00 X-2469", " -1235     0     0"},
        {"MK4", "00 Z30000; 00 Z30000; 00 Z30000; 00 Z30000", "     0     0120000"},
        {"MK4", "00 Z-32000; 00 Z-32000; 00 Z-32000; 00 Z-32000", "     0     0128000"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(std::string(one.Machine) + " " + one.Program);
        Check(one.Machine, Program(one.Program));
        EXPECT_EQ(Tool(Last()), one.Tool);
    }
}

TEST_F(Positions, AngleOfASlopingLine) {
    struct Case {
        const char *Machine, *Program, *Angle;
    };
    const Case cases[] = {
        {"MK4", "01 X100 Z100 F50", "L45.0"},
        {"MK4", "01 X-100 Z-100 F50", "L45.0"},
        {"MK4", "01 X-300 Z400 F50", "R36.9"},
        {"MK2", "01 X400 Z300 F50", "L53.1"},
        {"F1", "01 X100 Z-100 F50", "R45.0"},
        {"MK4", "90; 01 X200 Z100 F50", "L45.0"},  // on the radius
        {"MK4", "01 X100 F50", "   "},
        {"F1", "01 Y100 Z100 F50", "   "},
        {"MK4", "00 X100 Z100", "   "},
        // A 32-bit float: 45.2499998 degrees are 45.25, and a half is rounded up.
        {"MK4", "01 X1266 Z1255 F50", "L45.3"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(std::string(one.Machine) + " " + one.Program);
        Check(one.Machine, Program(one.Program));
        EXPECT_EQ(Cell(Last(), column::Angle), one.Angle);
    }
    Bench->Language.MessageTexts.Set(24, "links ");
    Check("MK4", Program("01 X100 Z100 F50"));
    EXPECT_EQ(Cell(0, column::Angle), "links 45.0");
}

// The zero point is always inside, and so is the far end of a cycle.
TEST_F(Positions, AxesTakeInTheFarEndOfACycle) {
    const auto axes = [&] {
        const InterpreterControls& c = Bench->Results;
        std::string all;
        for (const Label* label :
             {&c.lblXAxisMin, &c.lblXAxisMax, &c.lblXAxisTravel, &c.lblYAxisMin, &c.lblYAxisMax,
              &c.lblYAxisTravel, &c.lblZAxisMin, &c.lblZAxisMax, &c.lblZAxisTravel}) {
            all += label->Caption.Get() + " ";
        }
        return all;
    };
    Check("MK4", Program("90; 00 X2001 Z100; 84 X-400 Z-900 F100"));
    EXPECT_EQ(axes(), "-200 1000.5 1200.5 0 0 0 -900 100 1000 ");
    // What an error keeps from being run has no part in it.
    Check("F1", Program("00 X-70 Y50; 00 Y-80 Z-1; M17; 00 X-70"));
    EXPECT_EQ(axes(), "-70 0 70 -30 50 80 -1 0 1 ");
    Check("F1", Program("00 X0; 21"));
    EXPECT_EQ(axes(), "0 0 0 0 0 0 0 0 0 ");
}

TEST_F(Positions, TimeOfEachCode) {
    struct Case {
        const char *Machine, *Units, *Program, *Time;
    };
    const Case cases[] = {
        // Rapid: 1.1 s for 1000 along one axis, 1.3 s sloping, and 0.45 s.
        {"MK4", "M", "00 Z-30000", "00:00:33"},       // 33.45
        {"MK4", "M", "00 X3000 Z-4000", "00:00:07"},  // 6.5 + 0.45
        {"MK4", "\"", "00 Z-10000", "00:00:28"},      // 11 * 2.54 + 0.45 = 28.39
        // Feed: 6 s for 1000 at 100, 1.1 times that when sloping; no feed is 1.
        {"MK4", "M", "01 Z-1000 F100", "00:00:06"},
        {"MK4", "M", "01 X3000 Z-4000 F100", "00:00:33"},
        {"MK4", "\"", "01 Z-1000 F100", "00:00:15"},  // 15.24
        {"MK4", "M", "01 Z-1000", "00:10:00"},
        // Arcs: 1570.8 / 78.55 at 50, the same in inches.
        {"MK4", "M", "02 X1000 Z1000 F50", "00:00:20"},
        {"MK4", "\"", "02 X1000 Z1000 F100", "00:00:10"},
        // One without an angle has the length of the arc before, or none.
        {"F1", "M", "02 X1000 Y1000 F50; 02 Y300 F100; M99 I100 J0 K0", "00:00:10"},
        {"F1", "M", "21; 02 Y300 F100; M99 I100 J0 K0", "        "},
        {"MK4", "M", "04 X150", "00:00:02"},
        // 3 repeats of 2.5 s; in absolute mode 400 deep, 3 repeats of 1.5 s.
        {"MK4", "M", "73 Z-500 F50", "00:00:08"},
        {"F1", "M", "90; 00 Z100; 73 Z-300 F100", "00:00:05"},
        // (0.015 + 0.9 + 0.18 + 0.025 + 0.012) * 60 = 67.92; on MK2 without the repeats 2.4.
        {"MK4", "M", "84 X-250 Z-3000 F100 H100", "00:01:08"},
        {"MK2", "M", "84 X-250 Z-3000 F100", "00:00:02"},
        {"MK4", "M", "83 Z-3000 F100", "        "},
        {"MK4", "M", "33 Z-3000 F100", "        "},
        {"MK4", "M", "92 X1000 Z1000", "        "},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(std::string(one.Machine) + " " + one.Units + " " + one.Program);
        Check(one.Machine, Program(one.Program), one.Units);
        // The offsets of an arc stand behind it.
        EXPECT_EQ(Cell(Cell(Last(), column::Code) == "M99 " ? Last() - 1 : Last(), column::Time), one.Time);
    }
}

// A line that is run twice counts twice; behind the end code nothing does.
TEST_F(Positions, TotalOfARun) {
    Check("MK4", Program("25 L04; 25 L04; M30; 01 Z-1000 F100; 01 Z-1000 F100; 04 X150; M17"));
    EXPECT_EQ(Bench->Results.lblPPMachineTime.Caption.Get(), "00:00:15");  // twice 6 + 1.5
    EXPECT_EQ(Bench->Results.lblPPLinesExe.Caption.Get(), "9");
    EXPECT_EQ(Bench->Results.lblPPLines.Caption.Get(), "7");
    EXPECT_EQ(Cell(3, column::ToolX), "     ?");
    EXPECT_EQ(Cell(4, column::ToolZ), " -2000");
    // Outwards in 1000 cuts of 1, which counts below zero: (0.12 + 0.04 - 4) * 60 = -230.4.
    Check("MK4", Program("90; 84 X2000 Z0 F499 H1"));
    EXPECT_EQ(Cell(1, column::Time), "        ");
    EXPECT_EQ(Bench->Results.lblPPMachineTime.Caption.Get(), "00:-03:-50");
}

TEST(MakeTimeString, RoundsToWholeSeconds) {
    for (const auto& [seconds, text] :
         std::initializer_list<std::pair<double, const char*>>{{0.49, "00:00:00"},
                                                               {0.5, "00:00:01"},
                                                               {2.5, "00:00:03"},
                                                               {59.5, "00:01:00"},
                                                               {3599.5, "01:00:00"},
                                                               {3661, "01:01:01"},
                                                               {359999.4, "99:59:59"},
                                                               {36000061, "10000:01:01"},
                                                               {-230.4, "00:-03:-50"},
                                                               {-7230, "-02:00:-30"}}) {
        EXPECT_EQ(MakeTimeString(seconds), text) << seconds;
    }
}

TEST_F(Positions, MillMovesInAPlane) {
    // The run goes on, in the plane of the line before.
    Check("F1", Program("00 Y100 Z100; 00 X1 Y1 Z1; 00 X1 Y1 Z1"));
    EXPECT_EQ(Error(1), "!No 3-d allowed");
    EXPECT_EQ(Bench->Store.ErrorRow, 3);
    EXPECT_EQ(Bench->Store.ErrorLine, 1);
    EXPECT_EQ(Tool(2), "     2   102   102");
    EXPECT_EQ(Bench->Store.ActivePlane, "YZ");
    EXPECT_NE(Bench->Results.lblPPMachineTime.Caption.Get(), "xx:xx:xx");
    Check("F1", Program("00 X5 Z5; 81 X1 Y1 Z1 F100"));
    EXPECT_EQ(Bench->Store.ErrorRow, 0);
    EXPECT_EQ(Bench->Store.ActivePlane, "XZ");
}

TEST_F(Positions, ToolComesFirst) {
    for (const std::string code : {"45", "46", "47", "48", "72"}) {
        SCOPED_TRACE(code);
        const std::string line = code + " X500 Y500 F100; ";
        Check("F1", Program("21; " + line + "M06 D500 T1; " + line + "21"));
        EXPECT_EQ(Error(1), "!Must be preceded by M06");
        EXPECT_EQ(Bench->Store.ErrorRow, 2);
        EXPECT_NE(Cell(4, column::ToolX), "     ?");
    }
}

// Each of the two moves of the plane must leave room for the radius, 1500 in the last four characters.
TEST_F(Positions, PocketMustHoldTheTool) {
    for (const auto& [pocket, fits] :
         std::initializer_list<std::pair<const char*, bool>>{{"X1500 Y-1500", true},
                                                             {"X1499 Y1500", false},
                                                             {"X1500 Y-1499", false},
                                                             {"X-1500 Z1500", true},
                                                             {"X1500 Z1499", false},
                                                             {"X-1499 Z1500", false},
                                                             {"Y-1500 Z1500", true},
                                                             {"Y1499 Z1500", false},
                                                             {"Y1500 Z1499", false},
                                                             // No plane of its own: that of the line before.
                                                             {"X1500 Y1500 Z10", true},
                                                             {"X1500 Y1499 Z10", false}}) {
        SCOPED_TRACE(pocket);
        Check("F1", Program(std::string("00 X10 Y10; M06 D9; M06 D1500; 72 F100 ") + pocket + "; 21"));
        EXPECT_EQ(Error(3), fits ? "" : "!Pocket too small for tool radius");
        EXPECT_EQ(Cell(4, column::ToolX) == "     ?", !fits);
    }
}

}  // namespace kvt::test
