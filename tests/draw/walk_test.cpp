#include "draw_fixture.h"

namespace kvt::test {
namespace {

struct WalkCase {
    const char* Machine;
    const char* Program;
    const char* Path;
};

TEST_F(DrawTest, EachCodeDrawsItsSign) {
    const WalkCase cases[] = {
        // Absolute in diameters, then in moves; G92 puts the pen.
        {"MK4", "92 X0 Z0; 00 X100 Z-20; 01 X100 Z-60 F50; 91; 01 X10 Z-5 F50; M30",
         "L 1000,1000 980,1050 00FF00|L 980,1050 940,1050 FF0000|L 940,1050 935,1060 FF0000"},
        {"MK4", "92 X400 Z300; 00 X400 Z0; M30", "L 1300,1200 1000,1200 00FF00"},
        {"MK4", "91; 24; 90; 00 X100 Z0; M30", "L 1000,1000 1000,1100 00FF00"},
        // Calls, jumps, ends.
        {"MK4", "91; 25 L4; 01 X0 Z-10 F50; M30; 01 X10 Z0 F50; M17",
         "L 1000,1000 1000,1010 FF0000|L 1000,1010 990,1010 FF0000"},
        {"MK4", "91; 27 L3; 01 X0 Z-10 F50; 01 X10 Z0 F50; M30", "L 1000,1000 1000,1010 FF0000"},
        {"MK2", "91; 01 X0 Z-10 F50; 22; 01 X0 Z-10 F50", "L 1000,1000 990,1000 FF0000"},
        {"MK4", "91; M17; 01 X0 Z-10 F50; M30", "L 1000,1000 990,1000 FF0000"},
        // Two turns of a thread and the tick of two twips; the pen ends at its end.
        {"MK4", "91; 33 Z-100 F40; 01 X10 Z0 F50; M30",
         "L 1000,1000 980,980 00FFFF|L 980,980 960,1000 00FFFF|L 960,1000 940,980 00FFFF|"
         "L 940,980 920,1000 00FFFF|L 1000,998 1000,1000 00FFFF|L 900,1000 900,1010 FF0000"},
        {"MK4", "91; 33 Z90 F40; M30",
         "L 1000,1000 1020,980 00FFFF|L 1020,980 1040,1000 00FFFF|L 1040,1000 1060,980 00FFFF|"
         "L 1060,980 1080,1000 00FFFF|L 1000,1002 1000,1000 00FFFF"},
        {"MK4", "91; 78 X10 Z-100 F60 H5; 01 X10 Z0 F50; M30",
         "B 1000,1000 900,1010 00FFFF|B 900,1010 1000,1000 00FFFF|L 1000,1000 970,970 00FFFF|"
         "L 970,970 940,1000 00FFFF|L 1000,999 1000,1000 00FFFF|L 1000,1000 1000,1010 FF0000"},
        {"MK4", "91; 84 X10 Z-100 F50; 86 X20 Z-30 F50; 88 X-5 Z7 F50; M30",
         "B 1000,1000 900,1010 0000FF|B 900,1010 1000,1000 0000FF|B 1000,1000 970,1020 0000FF|"
         "B 970,1020 1000,1000 0000FF|B 1000,1000 1007,995 0000FF|B 1007,995 1000,1000 0000FF"},
        {"MK4", "91; 83 Z-100 F50; 01 X10 Z0 F50; M30",
         "L 1000,1000 900,1000 FF0000 w2|L 900,1000 1000,1000 FF0000 w2|L 1000,1000 1000,1010 FF0000"},
        // A quadrant ends in the corner of its square.
        {"MK4", "91; 02 X50 Z50 F50; 01 X0 Z-5 F50; M30",
         "C 1050,1000 50 FF00FF|L 1050,1050 1045,1050 FF0000"},
        {"MK4", "91; 03 X50 Z-50 F50; M30", "C 950,1000 50 FFFF00"},
        // The mill: Y upwards, the sense of arcs and their colours turned round, the tool's width, the overlay.
        {"F1", "M06 D300 S1000; 91; 01 X10 Y20 Z0 F50; 02 X10 Y10 Z0 F50; 81 Z-5 F50; M30",
         "L 1000,1000 1010,980 FF0000 w40|C 1020,980 10 FFFF00 w40|"
         "L 1000,1000 1010,980 FFFFFF|C 1020,980 10 FFFFFF"},
    };
    for (const WalkCase& one : cases) {
        DrawLines(one.Machine, one.Program);
        EXPECT_EQ(Path(), one.Path) << one.Program;
    }
}

TEST_F(DrawTest, MenusChooseThePasses) {
    struct Choice {
        bool Width, Center;
        const char* Path;
    };
    for (const Choice& one :
         {Choice{true, true, "L 1000,1000 1010,1000 FF0000 w40|L 1000,1000 1010,1000 FFFFFF"},
          Choice{true, false, "L 1000,1000 1010,1000 FF0000 w40"},
          Choice{false, true, "L 1000,1000 1010,1000 FF0000"}}) {
        Controls().mnuToolWidth.Checked = one.Width;
        Controls().mnuToolCenter.Checked = one.Center;
        DrawLines("F1", "M06 D300 S1000; 91; 01 X10 Y0 Z0 F50; M30");
        EXPECT_EQ(Path(), one.Path);
    }
    // White ground: threads turn blue. Fill follows grid and fill together.
    Controls().mnuBackground.Checked = true;
    DrawLines("MK4", "91; 33 Z-100 F200; M30");
    EXPECT_EQ(Path(), "L 1000,1000 1000,1000 FF0000");
    EXPECT_EQ(Field().Operations()[0].Ink, 0xFFFFFFu);
    struct Fill {
        bool Grid, Fill;
        int Style;
    };
    for (const Fill& one :
         {Fill{true, false, fill_style::Transparent}, Fill{true, true, fill_style::DownwardDiagonal},
          Fill{false, false, fill_style::Transparent}, Fill{false, true, fill_style::Solid}}) {
        Controls().mnuGrid.Checked = one.Grid;
        Controls().mnuFillCycles.Checked = one.Fill;
        SetFillStyle(Controls());
        EXPECT_EQ(Field().FillStyle, one.Style) << one.Grid << one.Fill;
    }
}

TEST_F(DrawTest, ControlCommandsSteerTheWalk) {
    const std::string program = "91; 01 X0 Z-10 F50; 01 X10 Z0 F50; M30; 01 X10 Z0 F50; M30";
    struct Command {
        int Line;
        const char* Text;
        const char* Path;
    };
    for (const Command& one :
         {Command{1, "cmdCOLOR Red", "L 1000,1000 990,1000 0000FF|L 990,1000 990,1010 FF0000"},
          Command{1, "CMDcolor  Red", "L 1000,1000 990,1000 000000|L 990,1000 990,1010 FF0000"},
          Command{1, " cmdSKIP", "L 1000,1000 990,1000 FF0000|L 990,1000 990,1010 FF0000"},
          Command{1, "cmdSKIP it", "L 1000,1000 1000,1010 FF0000"},
          Command{2, "cmdSTOP", "L 1000,1000 990,1000 FF0000"},
          Command{3, "cmdskip",
                  "L 1000,1000 990,1000 FF0000|L 990,1000 990,1010 FF0000|L 990,1010 990,1020 FF0000"}}) {
        Put("MK4", program);
        Comment(one.Line, one.Text);
        State().ZeroX = State().ZeroY = 1000;
        Draw().Redraw();
        EXPECT_EQ(Path(), one.Path) << one.Text;
        EXPECT_FALSE(State().Drawing);
    }
    // A colour holds on to the M99 of its arc; that one's own wins. Radii by command, dotted.
    Put("MK4", "91; 03 X60 Z20 F50; M99 I60 K80; M30");
    Comment(1, "cmdCOLOR Green");
    Draw().Redraw();
    EXPECT_EQ(Path(), "C 920,1060 100 00FF00");
    Comment(2, "cmdRADIUS");
    Draw().Redraw();
    EXPECT_EQ(Path(), "C 920,1060 100 00FF00|L 1020,1060 920,1060 00FF00|L 920,1060 1000,1000 00FF00");
    EXPECT_EQ(Field().Operations().back().Style, draw_style::Dotted);
}

TEST_F(DrawTest, AFaultLeavesTheWalkAtOnce) {
    DrawLines("MK4", "91; 01 X0 Z-10 F50; M17; 25 L5; 01 X0 Z-10 F50; M30");
    EXPECT_EQ(Path(), "L 1000,1000 990,1000 FF0000");
    ASSERT_EQ(Bench->Log.Records().size(), 1u);
    EXPECT_EQ(Bench->Log.Records()[0].Number, fault::SubscriptOutOfRange);
    EXPECT_EQ(Bench->Log.Records()[0].Procedure, "DrawProgram");
    EXPECT_TRUE(State().Drawing);
    EXPECT_FALSE(Controls().cmdRedraw.Enabled);
    Controls().cmdStop.Click();
    EXPECT_TRUE(Controls().cmdRedraw.Enabled);
    DrawLines("MK4", "91; 01 X0 Z-10 F50; 01 X0 Z-10 F50; M30");
    EXPECT_EQ(Path(), "L 1000,1000 990,1000 FF0000|L 990,1000 980,1000 FF0000");
    EXPECT_FALSE(State().Drawing);
}

TEST_F(DrawTest, TheSixthNestedCallStopsTheWalk) {
    DrawLines("MK4", "91; 25 L3; M30; 25 L5; M30; 25 L7; M30; 25 L9; M30; 25 L11; M30; 01 X0 Z-10 F50; M17");
    EXPECT_EQ(Path(), "L 1000,1000 990,1000 FF0000");
    EXPECT_TRUE(Platform.Dialogs.Shown.empty());
    DrawLines(
        "MK4",
        "91; 25 L3; M30; 25 L5; M30; 25 L7; M30; 25 L9; M30; 25 L11; M30; 25 L13; M30; 01 X0 Z-10 F50; M17");
    EXPECT_EQ(Path(), "");
    ASSERT_EQ(Platform.Dialogs.Shown.size(), 1u);
    EXPECT_EQ(Platform.Dialogs.Shown[0].Text, "Too many subprog-Calls");
    EXPECT_EQ(Platform.Dialogs.Shown[0].Title, "max 5 subcalls");
}

}  // namespace
}  // namespace kvt::test
