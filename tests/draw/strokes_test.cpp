#include "draw_fixture.h"
#include "platform/pointed_operation.h"

namespace kvt::test {
namespace {

class StrokesTest : public DrawTest {
protected:
    // The strokes of each pass through a line: its number, how many there are, and where the pen ended.
    std::string Runs() {
        std::string text;
        const OperationSources& sources = Field().Sources();
        for (const SourceRun& run : sources.Runs()) {
            if (run.Source == 0) continue;
            const FieldPlace end = Field().EndOf(run);
            char one[64];
            std::snprintf(one, sizeof one, "%s%d x%zu %g,%g", text.empty() ? "" : "|", run.Source - 1,
                          sources.EndOf(run, Field().Operations().size()) - run.FirstOperation, end.X, end.Y);
            text += one;
        }
        return text;
    }
    std::string TipAt(float x, float y) {
        Field().OnMouseMove(0, 0, x, y);
        return Field().ToolTip.Get();
    }
};

TEST_F(StrokesTest, EachKnowsItsLineAndItsEnd) {
    struct Case {
        const char* Machine;
        const char* Program;
        const char* Runs;
    };
    const Case cases[] = {
        {"MK4", "91; 25 L4; 25 L4; M30; 01 X10 Z0 F50; 84 X10 Z-10 F50; M17",
         "4 x1 1000,1010|5 x2 1000,1010|4 x1 1000,1020|5 x2 1000,1020"},
        // The stroke of an arc is that of its own line, and ends where the arc does.
        {"MK4", "91; 03 X50 Z-50 F50; M99 I50 K0; 01 X0 Z-10 F50; M30", "1 x1 950,1050|3 x1 940,1050"},
        // The tool's width, and its centre over it.
        {"F1", "M06 D100; 91; 01 X20 Y0 F50; 01 X0 Y20 F50; M30",
         "2 x1 1020,1000|3 x1 1020,980|2 x1 1020,1000|3 x1 1020,980"},
    };
    for (const Case& one : cases) {
        DrawLines(one.Machine, one.Program);
        EXPECT_EQ(Runs(), one.Runs) << one.Program;
    }
    EXPECT_EQ(TipAt(1010, 1000), "Line 02: G01, ends at X 20, Y 0, Z 0");
    EXPECT_EQ(TipAt(1020, 1500), "");
    Field().DrawFrom(0);
    Field().Line(1020, 1500, 1021, 1500);
    EXPECT_EQ(TipAt(1020, 1500), "") << "no line has drawn that";
}

TEST_F(StrokesTest, TheLitOnesAreThoseOfAllPasses) {
    DrawLines("MK4", "91; 25 L4; 25 L4; M30; 01 X10 Z0 F50; 03 X50 Z-50 F50; M99 I50 K0; M17");
    ListView& list = Workbench->Store.lvCncProgram;
    const long long before = Field().OperationsBefore();
    const auto lit = [&](int line) {
        list.Select(line + 1);
        return LitOperations(Field()).size();
    };
    EXPECT_EQ(lit(4), 2u);
    EXPECT_EQ(lit(5), 2u);
    EXPECT_EQ(lit(6), 2u) << "the line with the centre has the arc's stroke";
    EXPECT_EQ(lit(7), 0u);
    EXPECT_EQ(Field().OperationsBefore(), before) << "nothing was drawn for it";
    // A drawing of other lines says nothing about these.
    Controls().mnuAutoRedraw.Checked = false;
    list.Select(6);
    list.InsertRow(1);
    list.RowsChanged();
    EXPECT_EQ(LitOperations(Field()).size(), 0u);
    EXPECT_EQ(TipAt(1000, 1005), "");
}

// A place and the distance of what is drawn from it.
TEST_F(StrokesTest, TheNearestOneIsPointedAt) {
    PictureBox& field = Field();
    field.Cls();
    field.DrawFrom(1);
    field.Line(0, 0, 100, 0);
    field.Line(0, 200, 100, 200);
    field.MoveTo(1000, 1000);
    field.BoxTo(1500, 1500);
    field.Circle(3000, 3000, 500, 0, Pi / 2);
    field.Circle(3000, 3000, 500, 3 * Pi / 2, Pi / 4);
    field.Line(5000, 5000, 5000, 5000);
    field.Line(0, 0, 100, 0);
    struct Place {
        double X, Y;
        int Operation;  // in the list, 0 for none
    };
    const Place places[] = {
        {50, 20, 7},     {50, 180, 2},    {150, 200, 2},   {170, 200, 0},   {1250, 1250, 0}, {1250, 1540, 3},
        {3250, 2567, 4}, {3000, 2450, 4}, {3500, 3050, 5}, {2500, 3000, 0}, {3000, 3000, 0}, {5040, 5000, 6},
    };
    for (const Place& one : places) {
        const auto found = OperationAt(field, one.X, one.Y, 60);
        EXPECT_EQ(found ? static_cast<int>(*found) : 0, one.Operation) << one.X << ", " << one.Y;
    }
}

TEST_F(StrokesTest, TheMillsHolesAndPlungesAreMarkedWhereItIsWanted) {
    const char* const program =
        "M06 D80; 91; 00 X20 Y0 Z0; 01 X0 Y0 Z-5 F50; 81 Z-9 F50; 01 X0 Y0 Z5 F50; 90; "
        "00 X20 Y0 Z-3; M30";
    Controls().mnuToolCenter.Checked = false;
    DrawLines("F1", program);
    const std::string without = Path();
    EXPECT_EQ(without,
              "L 1000,1000 1020,1000 00FF00|L 1020,1000 1020,1000 FF0000 w10|"
              "L 1020,1000 1020,1000 FF0000 w10|L 1020,1000 1020,1000 00FF00");
    Controls().mnuHoleMarks.Checked = true;
    Draw().Redraw();
    const std::string plunge = "L 975,955 1065,1045 FFFFFF|L 975,1045 1065,955 FFFFFF";
    const std::string hole = "C 1020,1000 80 FFFFFF|L 975,1000 1065,1000 FFFFFF|L 1020,955 1020,1045 FFFFFF";
    EXPECT_EQ(Path(), "L 1000,1000 1020,1000 00FF00|L 1020,1000 1020,1000 FF0000 w10|" + plunge + "|" + hole +
                          "|L 1020,1000 1020,1000 FF0000 w10|L 1020,1000 1020,1000 00FF00|" + plunge + "|" +
                          plunge + "|" + hole + "|" + plunge);
    // The lathe has none.
    DrawLines("MK4", "91; 01 X0 Z-10 F50; 83 Z-100 F50; M30");
    EXPECT_EQ(Path(),
              "L 1000,1000 990,1000 FF0000|L 990,1000 890,1000 FF0000 w2|L 890,1000 990,1000 FF0000 w2");
}

TEST_F(StrokesTest, ColoursByTheirWordComeFromTheSetInUse) {
    Controls().mnuDistinctColors.Checked = true;
    Put("MK4", "91; 01 X0 Z-10 F50; 01 X0 Z-10 F50; M30");
    Comment(1, "cmdCOLOR red");
    Comment(2, "cmdCOLOR White");
    State().ZeroX = 1000;
    State().ZeroY = 1000;
    Draw().Redraw();
    EXPECT_EQ(Path(), "L 1000,1000 990,1000 001EFF|L 990,1000 980,1000 FFFFFF");
}

}  // namespace
}  // namespace kvt::test
