#include "platform/picture_painter.h"

#include <gtest/gtest.h>
#include <png.h>

#include <set>

namespace kvt::test {

namespace {

constexpr double pi = 3.14159265358979;
constexpr Color red = 0x0000FF;
constexpr Color green = 0x00FF00;
constexpr Color blue = 0xFF0000;

// A field of 100 by 60 points at 15 twips a point.
class PainterTest : public ::testing::Test {
protected:
    PainterTest() {
        field.Width = 100 * 15;
        field.Height = 60 * 15;
        field.BackColor = 0;
        field.ForeColor = red;
    }
    void Line(double x1, double y1, double x2, double y2) { field.Line(x1 * 15, y1 * 15, x2 * 15, y2 * 15); }
    void Box(double x1, double y1, double x2, double y2) {
        field.MoveTo(x1 * 15, y1 * 15);
        field.BoxTo(x2 * 15, y2 * 15);
    }
    Pixels Paint(double left = 0, double top = 0, double width = 100, double height = 60, double scale = 1) {
        return PaintPicture(field, {left * 15, top * 15, width * 15, height * 15}, scale / 15);
    }
    Color At(int x, int y) {
        const Pixels picture = Paint();
        return picture.Points[static_cast<std::size_t>(y) * 100 + static_cast<std::size_t>(x)];
    }

    Form form{"frmTest"};
    PictureBox field{form, "pbxField"};
};

TEST_F(PainterTest, AlongTheAxesPointsAreWholeWhateverTheArea) {
    Line(10, 20.4, 30, 20.4);
    Line(12, 5, 12, 5);
    EXPECT_EQ(At(10, 20), red);
    EXPECT_EQ(At(30, 20), red);
    EXPECT_EQ(At(31, 20), 0u);
    EXPECT_EQ(At(20, 19), 0u);
    EXPECT_EQ(At(20, 21), 0u);
    EXPECT_EQ(At(12, 5), red) << "a stroke of no length is a point";
    field.DrawWidth = 2;
    Line(40, 20, 50, 20);
    EXPECT_EQ(At(40, 21), red);
    // An area that begins between two points.
    const Pixels part = Paint(9.6, 19.6, 30, 10);
    EXPECT_EQ(part.Points[0], red);
    EXPECT_EQ(part.Points[30], 0u);
    // Twice as fine, the pen is twice as wide.
    const Pixels fine = Paint(0, 0, 100, 60, 2);
    EXPECT_EQ(fine.Width, 200);
    EXPECT_EQ(fine.Points[41 * 200 + 40], red);
    EXPECT_EQ(fine.Points[42 * 200 + 40], red);
    EXPECT_EQ(fine.Points[43 * 200 + 40], 0u);
}

TEST_F(PainterTest, SlantingStrokesAreSmoothAndCutToThePicture) {
    Line(-1e6, -1e6, 1e6, 1e6);
    const Color middle = At(30, 30);
    EXPECT_GT(middle & 0xFF, 250u);
    const Color beside = At(31, 30) & 0xFF;
    EXPECT_GT(beside, 30u);
    EXPECT_LT(beside, 200u);
    EXPECT_EQ(At(33, 30), 0u);
    // A wide one has round ends.
    field.ForeColor = green;
    field.DrawWidth = 9;
    Line(70, 20, 80, 30);
    EXPECT_EQ(At(72, 22), green);
    EXPECT_EQ(At(67, 18), green);
    EXPECT_EQ(At(66, 15), 0u);
}

TEST_F(PainterTest, ArcsRunCounterClockwise) {
    field.Circle(50 * 15, 30 * 15, 20 * 15, 0, pi);
    field.ForeColor = green;
    field.Circle(50 * 15, 30 * 15, 10 * 15, 1.5 * pi, 0.5 * pi);
    field.ForeColor = blue;
    field.Circle(20 * 15, 30 * 15, 8 * 15);
    EXPECT_GT(At(50, 10) & 0xFF, 200u);
    EXPECT_EQ(At(50, 50), 0u);
    EXPECT_GT(At(60, 30) >> 8 & 0xFF, 200u);
    EXPECT_EQ(At(40, 30), 0u);
    for (const auto& [x, y] : {std::pair(28, 30), std::pair(12, 30), std::pair(20, 22), std::pair(20, 38)})
        EXPECT_GT(At(x, y) >> 16, 200u) << x << "," << y;
    EXPECT_EQ(At(20, 30), 0u);
    field.Circle(80 * 15, 10 * 15, 0);
    EXPECT_GT(At(80, 10) >> 16, 200u);
}

TEST_F(PainterTest, BoxesHaveTheirFills) {
    field.FillColor = green;
    field.FillStyle = fill_style::Solid;
    Box(30, 40, 10, 20);
    field.FillStyle = fill_style::DownwardDiagonal;
    Box(50, 20, 80, 50);
    Box(80, 50, 50, 20);
    field.FillStyle = fill_style::Transparent;
    Box(2, 2, 8, 8);
    EXPECT_EQ(At(10, 20), red);
    EXPECT_EQ(At(30, 40), red);
    EXPECT_EQ(At(20, 30), green);
    EXPECT_EQ(At(5, 5), 0u);
    // One point in eight, downwards to the right.
    int filled = 0;
    for (int x = 60; x < 68; ++x) filled += At(x, 30) == green ? 1 : 0;
    EXPECT_EQ(filled, 1);
    for (int x = 60; x < 68; ++x) EXPECT_EQ(At(x, 30), At(x + 1, 31));
}

TEST_F(PainterTest, DotsAndInversions) {
    field.DrawStyle = draw_style::Dotted;
    Line(10, 10.3, 90, 10.3);
    int lit = 0;
    for (int x = 10; x < 90; ++x) lit += At(x, 10) == red ? 1 : 0;
    EXPECT_EQ(lit, 40);
    // A wider pen has no dots.
    field.DrawWidth = 2;
    Line(10, 20, 90, 20);
    std::set<Color> colors;
    for (int x = 10; x < 90; ++x) colors.insert(At(x, 20));
    EXPECT_EQ(colors.size(), 1u);
    // What is inverted twice is as it was, where strokes of one operation cross too.
    const std::vector<std::uint32_t> before = Paint().Points;
    field.DrawStyle = draw_style::Solid;
    field.DrawMode = draw_mode::Invert;
    const auto invert = [this] {
        Line(5, 5, 77, 33);
        Box(10, 10, 60, 40);
        field.Circle(50 * 15, 30 * 15, 20 * 15);
    };
    invert();
    EXPECT_EQ(At(11, 40), 0xFFFFFFu);
    EXPECT_EQ(At(10, 40), 0xFFFFFFu) << "a corner once";
    invert();
    EXPECT_EQ(Paint().Points, before);
}

TEST_F(PainterTest, WhatTheFieldHasKeptLiesBelow) {
    field.OnFull = [this] {
        field.Flattened = Paint();
        return true;
    };
    Line(10, 20, 30, 20);
    const DrawOperation::Kind kept = DrawOperation::Kind::Picture;
    field.ForeColor = green;
    while (field.Operations()[0].What != kept) Line(10, 30, 30, 30);
    EXPECT_EQ(At(20, 20), red);
    EXPECT_EQ(Paint(19, 19, 5, 5).Points[6], red);
    field.Cls();
    EXPECT_EQ(At(20, 20), 0u);
}

TEST_F(PainterTest, APngHoldsThePoints) {
    Line(10, 20, 30, 20);
    field.ForeColor = 0x563412;
    Line(10, 30, 30, 30);
    const std::string file = PngOf(Paint());
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    ASSERT_NE(png_image_begin_read_from_memory(&image, file.data(), file.size()), 0);
    image.format = PNG_FORMAT_RGB;
    EXPECT_EQ(image.width, 100u);
    EXPECT_EQ(image.height, 60u);
    std::vector<std::uint8_t> points(PNG_IMAGE_SIZE(image));
    ASSERT_NE(png_image_finish_read(&image, nullptr, points.data(), 0, nullptr), 0);
    const auto at = [&](std::size_t x, std::size_t y) { return &points[(y * 100 + x) * 3]; };
    EXPECT_EQ(at(20, 20)[0], 0xFF);
    EXPECT_EQ(at(20, 30)[0], 0x12);
    EXPECT_EQ(at(20, 30)[1], 0x34);
    EXPECT_EQ(at(20, 30)[2], 0x56);
}

}  // namespace
}  // namespace kvt::test
