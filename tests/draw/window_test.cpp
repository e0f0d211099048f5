#include "draw_fixture.h"

namespace kvt::test {
namespace {

TEST_F(DrawTest, TheHeadsOfToolColumnsEndInTheirAxis) {
    ListView& list = Workbench->Store.lvCncProgram;
    list.SetHeaderText(10, "staal x");
    list.SetHeaderText(11, "Werkzeugposition Y");
    list.SetHeaderText(12, "");
    Draw().Listing.Load();
    EXPECT_EQ(Draw().Listing.lblToolX.Caption, "staal x");
    EXPECT_EQ(Draw().Listing.lblToolY.Caption, "WerkzeugpY");
    EXPECT_EQ(Draw().Listing.lblToolZ.Caption, "Z");
}

TEST_F(DrawTest, AStrokeIsInSightWhereItsLineIs) {
    // A view of 1000 by 1000 twips from 1000, 1000 on.
    Controls().pbxViewWindow.Width = 1000;
    Controls().pbxViewWindow.Height = 1000;
    Field().Left = -1000;
    Field().Top = -1000;
    PictureBox& field = Field();
    const std::tuple<const char*, std::function<void()>, bool> cases[] = {
        {"across", [&] { field.Line(0, 1500, 9000, 1500); }, true},
        {"past the corner", [&] { field.Line(0, 1500, 1500, 0); }, false},
        {"a box around", [&] { field.MoveTo(500, 500), field.BoxTo(2500, 2500); }, false},
        {"an edge of a box", [&] { field.MoveTo(500, 500), field.BoxTo(1500, 2500); }, true},
        {"an arc through it", [&] { field.Circle(1500, 51500, 50000, 1, 2); }, true},
        {"the rest of its circle", [&] { field.Circle(1500, 51500, 50000, 2, 1); }, false},
        {"a circle around", [&] { field.Circle(1500, 1500, 1000); }, false},
        {"a mark", [&] { Draw().Measure.DrawMark(1500, 1500); }, false},
    };
    for (const auto& [what, draw, shown] : cases) {
        field.Cls();
        State().FirstStroke = field.OperationsBefore() + 1;
        draw();
        EXPECT_EQ(Draw().View.ShowsStroke(), shown) << what;
    }
}

TEST_F(DrawTest, KeysAndMenusZoomWithinTheMenu) {
    DrawLines("MK4", "91; 01 X0 Z-10 F50; M30");
    const auto zoomed = [&] { return Field().Operations().back().X2; };
    for (const int pressed : {107, int{'I'}, 187}) Draw().Form_KeyDown(pressed);
    EXPECT_EQ(State().DrawScale, 8);
    EXPECT_EQ(zoomed(), 920);
    EXPECT_EQ(Controls().UpDown.ToolTip, "Scale  x 8");
    for (const int pressed : {109, int{'O'}, 189, int{'O'}}) Draw().Form_KeyDown(pressed);
    EXPECT_EQ(zoomed(), 995);
    Controls().UpDown.SetValue(10);
    const long long before = Field().OperationsBefore();
    Draw().Form_KeyDown('I');
    State().MeasureFieldFocus = true;
    Draw().Form_KeyDown('R');
    EXPECT_EQ(Field().OperationsBefore(), before) << "at the end, and while a field is typed into";
    Controls().mnuAutoRedraw.Checked = false;
    Draw().View.mnuScale_Click(3);
    EXPECT_EQ(Field().OperationsBefore(), before);
    EXPECT_EQ(State().DrawScale, 1);
    Draw().View.ScaleFromIndex(11);
    EXPECT_EQ(State().DrawScale, 1);
}

TEST_F(DrawTest, TheMeasureFieldsTakeTheRoomOfTheirRow) {
    int before = 0;
    for (const int width : {5700, 7100, 9100, 10500, 12000, 20000}) {
        SCOPED_TRACE(width);
        for (const char* machine : {"F1", "MK4"}) {
            Put(machine, "M30");
            Controls().frmDraw.ApplySize(width, 9000);
            Draw().PositionControls();
            Draw().Form_Activate();
            EXPECT_LE(Controls().frProperties.Width, width);
            EXPECT_EQ(Controls().frX2Z2.Left, Controls().frX1Z1.Left + Controls().frX1Z1.Width + 20);
        }
        EXPECT_GE(Controls().txtX1.Width, before);
        before = width < 9000 ? 600 : Controls().txtX1.Width.Get();
    }
    EXPECT_EQ(before, 1000);
}

TEST_F(DrawTest, AbortEndsAnEndlessWalk) {
    Platform.System.GiveUpAfter = 1000;
    // Also one that draws nothing, and a pocket whose tool has no diameter.
    for (const char* program : {"91; 27 L0", "M06 D0 S1000; 91; 72 X500 Y500 Z-100 F50; M30"}) {
        int asked = 0;
        Platform.System.NextEvent = [&] {
            EXPECT_TRUE(Controls().cmdStop.EffectivelyVisible() && Controls().cmdStop.EffectivelyEnabled());
            Controls().cmdStop.Click();
            return ++asked == 1;
        };
        Controls().mnuToolCenter.Checked = false;
        DrawLines("F1", program);
        EXPECT_EQ(asked, 1);
        EXPECT_FALSE(Draw().GivenUp());
    }
    Platform.System.NextEvent = nullptr;
    DrawLines("F1", "91; 27 L0");
    EXPECT_TRUE(Draw().GivenUp());
}

}  // namespace
}  // namespace kvt::test
