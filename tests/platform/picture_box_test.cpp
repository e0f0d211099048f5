#include "platform/picture_box.h"

#include <gtest/gtest.h>

#include "basic/run_time_error.h"

namespace kvt::test {
namespace {

using Kind = DrawOperation::Kind;

TEST(PictureBoxTest, ACircleLeavesThePenAtItsCentre) {
    Form form("frm");
    PictureBox box(form, "pbx");
    box.Circle(7, 8, 9, 0.5, 1.5);
    EXPECT_EQ(box.CurrentX, 7);
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
