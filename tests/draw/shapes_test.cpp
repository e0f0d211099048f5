#include <cmath>

#include "draw/arcs.h"
#include "draw_fixture.h"

namespace kvt::test {
namespace {

class ShapesTest : public DrawTest {
protected:
    ShapesTest()
        : parts_{Controls(),     State(),     Bench->Store,    Bench->Machine,
                 Bench->Results, Bench->File, Bench->Language, Platform.Services,
                 nullptr,        nullptr,     nullptr} {}

    // Draws an arc from 1000, 1000 and tells what is wrong with it: the pen must end at the end, which like the
    // start lies on it, and G03 runs clockwise as it is seen, over the angle that is given.
    void ExpectArc(const ArcCall& arc, double endX, double endY, double centreX, double centreY,
                   double angle) {
        Field().Cls();
        Field().MoveTo(1000, 1000);
        MakeArc(parts_, arc, 2);
        const DrawOperation& drawn = Field().Operations().back();
        EXPECT_EQ(Field().CurrentX, endX);
        EXPECT_EQ(Field().CurrentY, endY);
        EXPECT_EQ(drawn.X1, centreX);
        EXPECT_EQ(drawn.Y1, centreY);
        const auto expectAt = [&](double at, double x, double y) {
            EXPECT_NEAR(centreX + drawn.Radius() * std::cos(at), x, 0.01);
            EXPECT_NEAR(centreY - drawn.Radius() * std::sin(at), y, 0.01);
        };
        expectAt(arc.IsG03 ? drawn.Start : drawn.End, endX, endY);
        expectAt(arc.IsG03 ? drawn.End : drawn.Start, 1000, 1000);
        const double sweep = std::fmod(double{drawn.End} - drawn.Start + 4 * Pi, 2 * Pi);
        EXPECT_NEAR(sweep, angle, 1e-4);
    }

    DrawParts parts_;
};

TEST_F(ShapesTest, QuadrantsGoAllEightWays) {
    for (const bool isG03 : {true, false}) {
        for (const int v : {-1, 1}) {
            for (const int h : {-1, 1}) {
                SCOPED_TRACE(std::to_string(isG03) + " V" + std::to_string(v) + " H" + std::to_string(h));
                ArcCall arc;
                arc.IsG03 = isG03;
                arc.Radius = arc.DirV = static_cast<float>(100 * v);
                arc.DirH = static_cast<float>(30 * h);
                // A clockwise one to the upper right, and to the lower left, leaves vertically.
                const bool vertically = isG03 == (v != h);
                ExpectArc(arc, 1000 + 100 * h, 1000 + 100 * v, 1000 + (vertically ? 100 * h : 0),
                          1000 + (vertically ? 0 : 100 * v), Pi / 2);
            }
        }
    }
    ArcCall still;
    still.DirH = -20;
    ExpectArc(still, 1000, 1000, 1000, 1000, Pi / 2);
}

// From 60, 80 beside the centre to 0, 100 and to 80, 60, mirrored both ways: a mirror turns the sense round.
TEST_F(ShapesTest, CentresOfPartialArcsLieOnAllFourSides) {
    const double toTop = std::atan2(80, -60) - Pi / 2;
    const double toSide = std::atan2(60, -80) - std::atan2(80, -60);
    for (const int h : {-1, 1}) {
        for (const int v : {-1, 1}) {
            SCOPED_TRACE("H" + std::to_string(h) + " V" + std::to_string(v));
            ArcCall arc;
            arc.Radius = 100;
            arc.CentreH = 60;
            arc.CentreV = 80;
            arc.IsG03 = h == v;
            arc.EndH = static_cast<float>(60 * h);
            arc.EndV = static_cast<float>(-20 * v);
            ExpectArc(arc, 1000 + 60 * h, 1000 - 20 * v, 1000 + 60 * h, 1000 + 80 * v, toTop);
            arc.IsG03 = h != v;
            arc.EndH = static_cast<float>(-20 * h);
            arc.EndV = static_cast<float>(20 * v);
            ExpectArc(arc, 1000 - 20 * h, 1000 + 20 * v, 1000 + 60 * h, 1000 + 80 * v, toSide);
        }
    }
    // Without a move along one axis no side applies: the centre is that of the quadrant down to the right.
    ArcCall flat;
    flat.IsG03 = true;
    flat.Radius = 100;
    flat.CentreH = flat.EndH = 100;
    Field().MoveTo(1000, 1000);
    MakeArc(parts_, flat, 2);
    EXPECT_EQ(TextOf(Field().Operations().back()).substr(0, 15), "C 1000,1100 100");
    EXPECT_EQ(Field().CurrentX, 1100);
}

TEST(GeometryTest, AnglesOfAllDirections) {
    struct Direction {
        double X, Y, Angle;
    };
    for (const Direction& one :
         {Direction{2, 0, 0}, Direction{0, 2, 1.5707963267949}, Direction{-2, 0, 3.14159265358979},
          Direction{0, 0, 3.14159265358979}, Direction{0, -2, 4.71238898038469}, Direction{1, 1, Pi / 4},
          Direction{-1, 1, 3 * Pi / 4}, Direction{-1, -1, 5 * Pi / 4}, Direction{1, -1, 7 * Pi / 4}}) {
        EXPECT_NEAR(Atan2(one.X, one.Y), one.Angle, 1e-12) << one.X << ", " << one.Y;
    }
    EXPECT_EQ(RadToDeg(0.5F), 28.64789F);
}

struct PocketCase {
    int SignH, SignV;
    double MoveH, MoveV;
    // Rows of the serpentine behind the first, then the far corner.
    std::vector<double> Rows;
    double FarX, FarY;
};

// A tool of 100: rows every 150, half a tool from the walls, a margin of one tool (two in incremental mode).
TEST_F(ShapesTest, PocketsAreClearedInAllQuadrants) {
    const PocketCase cases[] = {
        {1, 1, 800, -500, {950, 850, 700, 650}, 1700, 600},      // three steps of 400 / 3, the last one odd
        {1, 1, 800, -350, {950, 850, 800}, 1700, 750},           // two steps of 125, the last one even
        {1, 0, 800, 500, {1050, 1150, 1300, 1450}, 1700, 1400},  // the odd last row is set off downwards
        {1, -1, 800, 350, {1050, 1150, 1200}, 1700, 1250},       // the even one upwards
        {0, -1, -800, 500, {1050, 1150, 1300, 1450}, 300, 1400},
        {-1, -1, -800, 350, {1050, 1150, 1200}, 300, 1250},
        {0, 0, -800, -500, {950, 850, 700, 650}, 300, 600},
        {-1, 1, -800, -350, {950, 850, 800}, 300, 750},
    };
    State().DrawAbsolute = true;
    for (const PocketCase& one : cases) {
        SCOPED_TRACE(std::to_string(one.SignH) + ", " + std::to_string(one.SignV));
        Field().Cls();
        PocketCall call;
        call.StartX = call.StartY = 1000;
        call.MoveH = one.MoveH;
        call.MoveV = one.MoveV;
        call.SignH = one.SignH;
        call.SignV = one.SignV;
        call.ToolDiameter = 100;
        DrawPocket(parts_, Draw().Sim, call);
        // Near and far side change with each row.
        const int side = one.SignH > 0 ? 1 : -1;
        const double sides[] = {one.FarX - 50 * side, 1000.0 + 50 * side};
        std::vector<std::pair<double, double>> points;
        for (std::size_t row = 0; row < one.Rows.size(); ++row) {
            if (row > 0) points.emplace_back(sides[(row + 1) % 2], one.Rows[row]);
            points.emplace_back(sides[row % 2], one.Rows[row]);
        }
        for (const auto& corner : {std::pair(one.FarX, 1000.0), std::pair(1000.0, 1000.0),
                                   std::pair(1000.0, one.FarY), std::pair(one.FarX, one.FarY)}) {
            points.push_back(corner);
        }
        const std::vector<DrawOperation>& drawn = Field().Operations();
        ASSERT_EQ(drawn.size(), points.size() + 1);
        EXPECT_EQ(drawn[1].X1, 1000.0 + 50 * side);
        for (std::size_t i = 0; i < points.size(); ++i) {
            EXPECT_NEAR(drawn[i + 1].X2, points[i].first, 0.01) << "stroke " << i;
            EXPECT_NEAR(drawn[i + 1].Y2, points[i].second, 0.01) << "stroke " << i;
        }
        EXPECT_EQ(Field().CurrentX, 1000);
        EXPECT_EQ(Field().CurrentY, 1000);
    }
    State().DrawAbsolute = false;
    PocketCall deeper;
    deeper.StartX = deeper.StartY = 1000;
    deeper.MoveH = 800;
    deeper.MoveV = 500;
    deeper.SignH = 1;
    deeper.ToolDiameter = 100;
    DrawPocket(parts_, Draw().Sim, deeper);
    EXPECT_EQ(State().PocketX2, 1600);
    EXPECT_EQ(State().PocketY2, 1300);
}

// On the mill a pocket in the tool's width is grey, and an outline in red follows from where it ended.
TEST_F(ShapesTest, APocketInToolWidthGetsItsOutline) {
    Controls().mnuToolCenter.Checked = false;
    DrawLines("F1", "M06 D100 S1000; 90; 00 X0 Y0 Z0; 72 X600 Y600 Z-100 F50; M30");
    const std::string path = Path();
    EXPECT_NE(path.find("C0C0C0 w13"), std::string::npos) << path;
    const std::string outline =
        "L 1000,1000 1500,1000 0000FF w13|L 1500,1000 1000,1000 0000FF w13|L 1000,1000 1000,500 0000FF w13|"
        "L 1000,500 1500,500 0000FF w13";
    ASSERT_GT(path.size(), outline.size());
    EXPECT_EQ(path.substr(path.size() - outline.size()), outline);
}

}  // namespace
}  // namespace kvt::test
