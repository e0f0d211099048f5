#include <QDeadlineTimer>
#include <QTimer>
#include <QWheelEvent>

#include "platform/picture_box.h"
#include "test_window.h"

namespace kvt::test {
namespace {

// A field of 400 by 300 pixels that is moved behind a window of 200 by 100.
class PictureTest : public WindowTest {
protected:
    PictureTest() {
        Placed(pbxWindow, 10, 10, 200, 100);
        Placed(pbxField, -50, -20, 400, 300, 9).Container = &pbxWindow;
        pbxField.BackColor = 0;
        for (Control* other :
             std::initializer_list<Control*>{&txtA, &txtB, &frGroup, &cmdGo, &txtNotes, &lvList})
            other->Visible = false;
    }
    // The views go before what they show.
    ~PictureTest() override { window.reset(); }
    QImage Shown() { return WidgetOf(pbxWindow)->grab().toImage().convertToFormat(QImage::Format_RGB32); }
    // The colour at a pixel of the field.
    QColor At(int x, int y) { return Shown().pixelColor(x + pbxField.Left / 15, y + pbxField.Top / 15); }
    void Line(double x1, double y1, double x2, double y2) {
        pbxField.Line(x1 * 15, y1 * 15, x2 * 15, y2 * 15);
    }

    PictureBox pbxWindow{form, "pbxWindow"}, pbxField{form, "pbxField"};
};

TEST_F(PictureTest, WhatIsInSightIsPainted) {
    pbxField.ForeColor = 0x0000FF;
    Line(60, 30, 120, 30);
    Open();
    EXPECT_EQ(At(60, 30), QColor(Qt::red));
    EXPECT_EQ(At(120, 30), QColor(Qt::red));
    EXPECT_EQ(At(121, 30), QColor(Qt::black));
    EXPECT_EQ(At(90, 31), QColor(Qt::black)) << "one pixel, not smeared over two";
    // What comes is added; what a movement brings into sight is painted too.
    pbxField.ForeColor = 0x00FF00;
    pbxField.DrawWidth = 2;
    Line(100, 25, 100, 250);
    EXPECT_EQ(At(100, 30), QColor(Qt::green));
    EXPECT_EQ(At(101, 110), QColor(Qt::green));
    pbxField.Top = -200 * 15;
    EXPECT_EQ(At(100, 240), QColor(Qt::green));
    EXPECT_EQ(At(100, 260), QColor(Qt::black));
    pbxField.Top = -20 * 15;
    EXPECT_EQ(At(60, 30), QColor(Qt::red));
    // An inversion that is done twice leaves nothing.
    const QImage before = Shown();
    for (int i = 0; i < 2; ++i) {
        pbxField.DrawMode = draw_mode::Invert;
        pbxField.DrawWidth = 1;
        Line(80, 20, 130, 77);
        Line(80, 40, 140, 40);
        if (i == 0) {
            EXPECT_EQ(At(90, 40), QColor(Qt::white));
        }
    }
    EXPECT_EQ(Shown(), before);
    pbxField.BackColor = 0xFFFFFF;
    EXPECT_EQ(At(60, 30), QColor(Qt::white));
}

TEST_F(PictureTest, BoxesAndCirclesHaveTheirFills) {
    pbxField.ForeColor = 0x0000FF;
    pbxField.FillColor = 0xFF0000;
    pbxField.FillStyle = fill_style::Solid;
    pbxField.MoveTo(60 * 15, 30 * 15);
    pbxField.BoxTo(80 * 15, 50 * 15);
    pbxField.Circle(120 * 15, 60 * 15, 10 * 15);
    pbxField.FillStyle = fill_style::Transparent;
    pbxField.MoveTo(90 * 15, 30 * 15);
    pbxField.BoxTo(100 * 15, 50 * 15);
    // From three o'clock over twelve to nine.
    pbxField.Circle(160 * 15, 60 * 15, 20 * 15, 0, 3.14159265358979);
    pbxField.DrawStyle = draw_style::Dotted;
    Line(60, 80, 160, 80);
    Open();
    EXPECT_EQ(At(60, 40), QColor(Qt::red));
    EXPECT_EQ(At(80, 50), QColor(Qt::red));
    EXPECT_EQ(At(70, 40), QColor(Qt::blue));
    EXPECT_EQ(At(120, 60), QColor(Qt::blue));
    EXPECT_EQ(At(95, 40), QColor(Qt::black));
    EXPECT_GT(At(160, 40).red(), 128);
    EXPECT_EQ(At(160, 80).green(), 0);
    EXPECT_EQ(At(160, 79), QColor(Qt::black)) << "the lower half is not drawn";
    int lit = 0;
    for (int x = 60; x < 160; ++x) lit += At(x, 80).red() > 128 ? 1 : 0;
    EXPECT_GT(lit, 30);
    EXPECT_LT(lit, 70);
}

TEST_F(PictureTest, TheMouseTellsPlacesOnTheField) {
    std::string told;
    pbxField.OnMouseDown = [&](int button, int shift, float x, float y) {
        told += "down" + std::to_string(button) + std::to_string(shift) + " " +
                std::to_string(static_cast<int>(x)) + "," + std::to_string(static_cast<int>(y)) + " ";
    };
    pbxField.OnMouseMove = [&](int button, int, float x, float) {
        told += "move" + std::to_string(button) + " " + std::to_string(static_cast<int>(x)) + " ";
    };
    pbxField.OnMouseWheel = [&](const WheelTurn& turn) {
        told += "wheel" + std::to_string(turn.Shift) + " " + std::to_string(static_cast<int>(turn.Notches)) +
                " " + std::to_string(static_cast<int>(turn.X)) + " ";
    };
    Open();
    QWidget* const widget = WidgetOf(pbxField);
    QTest::mouseClick(widget, Qt::LeftButton, Qt::ShiftModifier, {60, 30});
    EXPECT_EQ(Focused(), &pbxField);
    QTest::mousePress(widget, Qt::MiddleButton, Qt::NoModifier, {61, 30});
    QTest::mouseMove(widget, {62, 30});
    QWheelEvent wheel({60, 30}, widget->mapToGlobal(QPointF(60, 30)), {}, {0, 240}, Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &wheel);
    EXPECT_NE(told.find("down11 900,450 down40 915,450 "), std::string::npos) << told;
    EXPECT_NE(told.find("move4 930 "), std::string::npos) << told;
    EXPECT_NE(told.find("wheel2 2 900 "), std::string::npos) << told;
    pbxField.MousePointer = mouse::CrossPointer;
    EXPECT_EQ(widget->cursor().shape(), Qt::CrossCursor);
}

TEST_F(PictureTest, PlacesAreWholeTwipsAtAnySizeOfAPixel) {
    DesktopPlatform larger(files, programs, 1.1);
    FormView view(larger.Desktop, form);
    std::vector<float> places;
    pbxField.OnMouseDown = [&](int, int, float x, float y) { places.insert(places.end(), {x, y}); };
    for (int pixel = 60; pixel < 71; ++pixel)
        QTest::mouseClick(WidgetOf(pbxField), Qt::LeftButton, Qt::NoModifier, {pixel, pixel});
    ASSERT_EQ(places.size(), 22U);
    for (const float place : places) EXPECT_EQ(place, std::round(place));
    EXPECT_NEAR(places[0], 60 * 15 / 1.1, 0.51);
}

// Long work lets keys through; the list becomes a picture when it is full, and goes on.
TEST_F(PictureTest, WorkThatGoesOnIsNotDeaf) {
    Open();
    bool stopped = false;
    cmdGo.Visible = true;
    cmdGo.OnClick = [&] { stopped = true; };
    QTimer::singleShot(60, [&] { QTest::mouseClick(WidgetOf(cmdGo), Qt::LeftButton); });
    pbxField.ForeColor = 0x0000FF;
    Line(60, 30, 120, 30);
    pbxField.ForeColor = 0x00FF00;
    const QDeadlineTimer end(60'000);
    for (long long turn = 1; !stopped && !end.hasExpired(); ++turn) {
        Line(60, 40, 120, 40);
        platform.Services.System.ServeEvents(turn);
    }
    EXPECT_TRUE(stopped);
    while (pbxField.Operations().size() >= 3 && pbxField.Operations()[0].What != DrawOperation::Kind::Picture)
        Line(60, 40, 120, 40);
    Line(60, 50, 120, 50);
    EXPECT_LT(pbxField.Operations().size(), 5u);
    EXPECT_EQ(At(90, 30), QColor(Qt::red));
    EXPECT_EQ(At(90, 50), QColor(Qt::green));
}

}  // namespace
}  // namespace kvt::test
