#include "platform/picture_box.h"

#include <gtest/gtest.h>

#include "basic/run_time_error.h"

namespace kvt::test {
namespace {

using Kind = DrawOperation::Kind;

TEST(PictureBoxTest, ThePenMovesAndWhatItDrawsIsKept) {
    Form form("frm");
    PictureBox box(form, "pbx");
    box.ForeColor = 0x0000FF;
    box.FillStyle = fill_style::DownwardDiagonal;
    box.Line(10, 20, 30, 40);
    box.LineTo(0.1, 50);
    box.BoxTo(100, 150);
    box.DrawStyle = draw_style::Dotted;
    box.Circle(7, 8, 9, 0.5, 1.5);
    const std::vector<DrawOperation>& made = box.Operations();
    ASSERT_EQ(made.size(), 5u);
    EXPECT_EQ(made[0].What, Kind::Clear);
    EXPECT_EQ(made[0].Ink, 0xFFFFFFu);
    EXPECT_EQ(made[2].X1, 30);
    EXPECT_EQ(made[2].X2, 0.1F);
    EXPECT_EQ(made[2].Fill, fill_style::Transparent) << "a line has no fill";
    EXPECT_EQ(made[3].X1, 0.1F);
    EXPECT_EQ(made[3].Fill, fill_style::DownwardDiagonal);
    EXPECT_EQ(made[4].Style, draw_style::Dotted);
    EXPECT_EQ(made[4].Radius(), 9);
    EXPECT_FALSE(made[4].IsFullCircle());
    EXPECT_EQ(box.CurrentX, 7) << "a circle leaves the pen at its centre";

    // Another background clears and leaves the pen; a clearing puts the pen home.
    box.BackColor = 0x123456;
    ASSERT_EQ(made.size(), 1u);
    EXPECT_EQ(made[0].Ink, 0x123456u);
    EXPECT_EQ(box.OperationsBefore(), 5);
    EXPECT_EQ(box.CurrentY, 8);
    box.Cls();
    EXPECT_EQ(box.CurrentY, 0);
    EXPECT_THROW(box.LineTo(1e39, 0), RunTimeError);
}

// Without a taker nothing is dropped; with one the list goes on behind the picture.
TEST(PictureBoxTest, AFullListIsOfferedAsAPicture) {
    Form form("frm");
    PictureBox box(form, "pbx");
    while (box.Operations().size() < PictureBox::MostOperations + 2) box.LineTo(1, 1);
    int offered = 0;
    box.OnFull = [&] { return ++offered > 1; };
    box.LineTo(2, 2);
    EXPECT_EQ(box.Operations().size(), PictureBox::MostOperations + 3);
    box.LineTo(3, 3);
    ASSERT_EQ(box.Operations().size(), 2u);
    EXPECT_EQ(box.Operations()[0].What, Kind::Picture);
    EXPECT_EQ(box.Operations()[1].X2, 3);
    EXPECT_EQ(offered, 2);
}

}  // namespace
}  // namespace kvt::test
