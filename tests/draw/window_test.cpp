#include "basic/number.h"
#include "draw_fixture.h"

namespace kvt::test {
namespace {

TEST_F(DrawTest, AutofitTakesTheLargestScaleThatFits) {
    struct Fit {
        const char* Machine;
        bool Horizontal;
        // X, Y, Z travel; X minimum and maximum, Y maximum, Z minimum.
        const char* Labels;
        float Scale;
        int Index;
        double ZeroX, ZeroY;
    };
    // The view window of 28340 by 14380 has 27840 by 12880 to fill.
    const Fit cases[] = {
        {"MK4", false, "2010|0|4340|-10|2000|0|-3340", 4, 5, 24680, 16020},
        {"MK4", false, "3220|0|100|0|0|0|-100", 4, 5, 20200, 13560},  // 3220 fits four times
        {"MK4", false, "3221|0|100|0|0|0|-100", 2, 4, 20100, 16779},  // one more does not
        {"MK4", false, "0|0|0|0|0|0|0", 128, 10, 20000, 20000},       // nothing at all
        {"MK4", false, "0|0|1000000|0|0|0|0", 1.0F / 32, 0, 4375, 20000},
        {"F1", false, "8200|8200|4200|-5000|3200|3200|-1200", 1, 3, 20900, 19100},
        {"F1", true, "1000|9999|2000|-1|800|9999|-500", 8, 6, 16000, 22400},
    };
    Platform.Screen.WidthTwips = 28800;
    for (const Fit& one : cases) {
        SCOPED_TRACE(one.Labels);
        Put(one.Machine, "91; M30");
        Bench->Store.Horizontal = one.Horizontal;
        InterpreterControls& axes = Bench->Results;
        const std::vector<std::string> labels = Fields(one.Labels);
        Label* const named[] = {&axes.lblXAxisTravel, &axes.lblYAxisTravel, &axes.lblZAxisTravel,
                                &axes.lblXAxisMin,    &axes.lblXAxisMax,    &axes.lblYAxisMax,
                                &axes.lblZAxisMin};
        for (std::size_t i = 0; i < labels.size(); ++i) named[i]->Caption = labels[i];
        Controls().frmDraw.ApplySize(28800, 15600);
        Draw().PositionControls();
        Draw().View.Autofit();
        EXPECT_FALSE(State().AutoFitPending);
        Draw().cmdAutoFit_Click();
        EXPECT_EQ(State().DrawScale, one.Scale);
        EXPECT_EQ(Draw().View.CheckedScaleIndex(), one.Index);
        EXPECT_EQ(Controls().UpDown.Value, one.Index);
        EXPECT_NEAR(State().ZeroX, one.ZeroX, 0.001);
        EXPECT_NEAR(State().ZeroY, one.ZeroY, 0.001);
        EXPECT_EQ(Controls().hsbViewWindow.Value, 583);
        EXPECT_EQ(Field().Left, -5830);
    }
}

TEST_F(DrawTest, TheGridFollowsTheMark) {
    struct Grid {
        float Scale;
        const char* Size;
        // How many lines each way, and the first places for a mark at 1030, 2045.
        std::size_t Lines;
        float FirstY, SecondY, FirstX;
    };
    for (const Grid& one :
         {Grid{0.125F, "1000 x 0.01 mm", 321, 45, 170, 30}, Grid{1, "100 x 0.01 mm", 401, 45, 145, 30},
          Grid{16, "100 x 0.01 mm", 26, 445, 2045, 1030}, Grid{32, "10 x 0.01 mm", 126, 125, 445, 70}}) {
        State().DrawScale = one.Scale;
        State().MarkerX = 1030;
        State().MarkerY = 2045;
        Field().Cls();
        Draw().View.MakeGrid();
        const auto& drawn = Field().Operations();
        ASSERT_EQ(drawn.size(), 1 + 2 * one.Lines);
        EXPECT_EQ(drawn[1].Y1, one.FirstY);
        EXPECT_EQ(drawn[1].X2, 40000);
        EXPECT_EQ(drawn[2].Y1, one.SecondY);
        EXPECT_EQ(drawn[1 + one.Lines].X1, one.FirstX);
        EXPECT_EQ(Controls().txtGrid.Text, one.Size);
        EXPECT_EQ(Field().CurrentX, 0);
    }
}

TEST_F(DrawTest, TheHeadsOfToolColumnsEndInTheirAxis) {
    ListView& list = Bench->Store.lvCncProgram;
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
    struct Sight {
        const char* What;
        std::function<void()> Draw;
        bool Shown;
    };
    PictureBox& field = Field();
    const Sight cases[] = {
        {"across", [&] { field.Line(0, 1500, 9000, 1500); }, true},
        {"past the corner", [&] { field.Line(0, 1500, 1500, 0); }, false},
        {"a box around", [&] { field.MoveTo(500, 500), field.BoxTo(2500, 2500); }, false},
        {"an edge of a box", [&] { field.MoveTo(500, 500), field.BoxTo(1500, 2500); }, true},
        {"an arc through it", [&] { field.Circle(1500, 51500, 50000, 1, 2); }, true},
        {"the rest of its circle", [&] { field.Circle(1500, 51500, 50000, 2, 1); }, false},
        {"a circle around", [&] { field.Circle(1500, 1500, 1000); }, false},
        {"a mark", [&] { Draw().Measure.DrawMark(1500, 1500); }, false},
    };
    for (const Sight& one : cases) {
        field.Cls();
        State().FirstStroke = field.OperationsBefore() + 1;
        one.Draw();
        EXPECT_EQ(Draw().View.ShowsStroke(), one.Shown) << one.What;
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

    // The wheel and the middle button are scroll bars and zoom by other means.
    Controls().mnuAutoRedraw.Checked = true;
    Draw().View.mnuScale_Click(3);
    Field().OnMouseWheel(mouse::CtrlHeld, -1, false);
    EXPECT_EQ(State().DrawScale, 0.5F);
    Controls().vsbViewWindow.SetValue(1000);
    Field().OnMouseWheel(0, 1, false);
    EXPECT_EQ(Field().Top, -9100);
    Field().OnMouseDown(mouse::Middle, 0, 500, 700);
    Field().OnMouseMove(mouse::Middle, 0, 490, 500);
    EXPECT_EQ(Field().Top, -9300);
}

TEST_F(DrawTest, FramesAndMenusFollowWidthAndMachine) {
    struct Size {
        int Width, Height;
        bool Grid, AutoFit, Redraw, UpDown;
        int Held;
    };
    for (const Size& one :
         {Size{15, 15, false, false, false, false, 5700}, Size{7001, 4000, true, false, false, false, 7001},
          Size{7901, 4000, true, true, false, false, 7901}, Size{8701, 4000, true, true, true, false, 8701},
          Size{9001, 4000, true, true, true, true, 9001}}) {
        Controls().frmDraw.ApplySize(one.Width, one.Height);
        Draw().Form_Resize();
        EXPECT_EQ(Controls().frmDraw.Width, one.Held);
        EXPECT_EQ(Controls().pbxViewWindow.Width, one.Held - 460);
        EXPECT_EQ(Controls().frGrid.Visible, one.Grid);
        EXPECT_EQ(Controls().cmdAutoFit.Visible, one.AutoFit);
        EXPECT_EQ(Controls().cmdRedraw.Visible, one.Redraw);
        EXPECT_EQ(Controls().UpDown.Visible, one.UpDown);
    }
    EXPECT_EQ(Controls().hsbViewWindow.Max, ToLong((40000 - 8541) / 10.0));
    Controls().mnuFillCycles.Checked = true;
    Put("F1", "91; M30");
    Draw().PositionControls();
    Draw().Form_Activate();
    EXPECT_FALSE(Controls().mnuFillCycles.Checked || Controls().mnuFillCycles.Visible);
    EXPECT_TRUE(Controls().mnuToolWidth.Visible);
    EXPECT_FALSE(Controls().frDiameter.Visible);
    EXPECT_EQ(Controls().frX1Z1.Left, Controls().frDiameter.Left);
    EXPECT_EQ(Controls().lblDeltaXZ.Caption, "XY1-XY2");
}

// Steps, intervals and what comes up in their waits.
TEST_F(DrawTest, WaitsServeWhatComesUp) {
    const char* const program = "91; 01 X0 Z-10 F50; 01 X0 Z-10 F50; 84 X10 Z-10 F50; M30";
    Draw().Sim.SelectSim(simulation::Speed2);
    DrawLines("MK4", program);
    EXPECT_EQ(Platform.System.Clock, 600) << "three drawn lines";
    Comment(2, "cmdINTERVAL 3");
    Comment(3, "cmdINTERVAL 7");
    Draw().Redraw();
    EXPECT_EQ(Platform.System.Clock, 600 + 200 + 1000);

    // A redraw asked for in a step follows the walk; the window can be closed in one.
    Platform.Focus.SetFocus(Field());
    Draw().Sim.SelectSim(simulation::Step);
    int turns = 0;
    Platform.System.NextEvent = [&] {
        EXPECT_TRUE(Controls().cmdStop.ReallyVisible() && Controls().cmdStop.ReallyEnabled());
        EXPECT_EQ(Platform.Focus.Focused(), &Controls().cmdStep);
        if (++turns == 1) {
            Draw().Sim.SelectSim(simulation::Run);
            Controls().mnuBackground.Click();
        }
        Controls().cmdStep.Click();
        return true;
    };
    Draw().Redraw();
    EXPECT_EQ(turns, 5) << "a step for each line, none for the redraw";
    EXPECT_EQ(Field().Operations()[0].Ink, 0xFFFFFFu);
    EXPECT_FALSE(Controls().frStepControls.Visible);

    // An aborted step waits on; whatever asks for a redraw then lets it go.
    Draw().Sim.SelectSim(simulation::Step);
    turns = 0;
    Platform.System.NextEvent = [&] {
        ++turns;
        if (turns == 1) Controls().cmdStop.Click();
        if (turns == 2) Draw().Form_KeyDown(120);
        return true;
    };
    Draw().Redraw();
    EXPECT_EQ(turns, 2);
    EXPECT_EQ(Field().Operations().size(), 6u + 4);

    Draw().Sim.SelectSim(simulation::Step);
    Platform.System.NextEvent = [&] {
        Draw().Form_QueryUnload();
        return true;
    };
    Draw().Redraw();
    EXPECT_FALSE(Controls().frmDraw.Visible || State().Drawing);
    EXPECT_EQ(Field().Operations().size(), 6u);
}

TEST_F(DrawTest, AbortEndsAnEndlessWalk) {
    Platform.System.GiveUpAfter = 1000;
    // Also one that draws nothing, and a pocket whose tool has no diameter.
    for (const char* program : {"91; 27 L0", "M06 D0 S1000; 91; 72 X500 Y500 Z-100 F50; M30"}) {
        int asked = 0;
        Platform.System.NextEvent = [&] {
            EXPECT_TRUE(Controls().cmdStop.ReallyVisible() && Controls().cmdStop.ReallyEnabled());
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
