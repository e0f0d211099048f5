#include <QAbstractScrollArea>
#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <ctime>
#include <memory>

#include "basic/number.h"
#include "desktop/text.h"
#include "platform/picture_painter.h"
#include "test_workbench.h"

namespace kvt::test {
namespace {

// The drawing of a sample in its real window.
class DesktopDrawing : public DesktopWorkbench {
protected:
    void Open(const std::string& sample) {
        DesktopWorkbench::Open("");
        std::string file = KVT_SOURCE_DIR "/samples/" + sample;
        workbench.Reader.LoadFile(file);
        workbench.Draw.Show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&Window()));
        QTest::qWait(100);
    }
    QMainWindow& Window() { return windows[1]->Window(); }
    DrawControls& Controls() { return workbench.Draw.Controls; }
    QWidget* Field() { return View::Of(Controls().pbxDrawField)->Widget(); }
};

// The share of a processor that this program has taken since a moment.
class Load {
public:
    Load() { clock_.start(); }
    double Share() const { return static_cast<double>(std::clock() - before_) / CLOCKS_PER_SEC / Seconds(); }
    double Seconds() const { return static_cast<double>(clock_.nsecsElapsed()) / 1e9; }

private:
    QElapsedTimer clock_;
    std::clock_t before_ = std::clock();
};

TEST_F(DesktopDrawing, ASpeedHoldsItsPaceAndWaitsAreIdle) {
    Open("mk4_roller.cnc");
    workbench.Draw.Sim.SelectSim(simulation::Speed3);
    int ticks = 0;
    Controls().Timer1.OnTimer = [this, &ticks] {
        ++ticks;
        workbench.Draw.Sim.Timer1_Timer();
    };
    const Load walk;
    workbench.Draw.Redraw();
    const double aLine = walk.Seconds() * 1000 / ticks;
    RecordProperty("lines", ticks);
    std::printf("%d lines, %.2f ms each, processor %.1f %%\n", ticks, aLine, walk.Share() * 100);
    EXPECT_GT(ticks, 30);
    EXPECT_GE(aLine, 45) << "a busy machine may take longer";

    workbench.Draw.Sim.SelectSim(simulation::Step);
    double share = 1;
    QTimer::singleShot(100, [&] {
        const auto load = std::make_shared<Load>();
        QTimer::singleShot(1000, [&, load] {
            share = load->Share();
            workbench.Draw.Form_QueryUnload();
        });
    });
    workbench.Draw.Redraw();
    std::printf("waiting for a step: processor %.1f %%\n", share * 100);
    EXPECT_LT(share, 0.05);
}

// The list has followed the drawing, away from the user's row; the press may come before the window is active.
TEST_F(DesktopDrawing, APressInTheListFindsTheRowThatIsSeen) {
    Open("mk4_roller.cnc");
    ListView& list = workbench.Store.lvCncProgram;
    auto* const area = static_cast<QAbstractScrollArea*>(View::Of(list)->Widget());
    for (const int behind : {0, 2}) {
        for (const bool active : {false, true}) {
            workbench.Draw.Show();
            list.Select(2);
            list.ScrollTo(1);
            workbench.Draw.Sim.SelectSim(simulation::Step);
            platform.Services.Focus.SetFocus(Controls().pbxDrawField);
            QTimer user;
            user.callOnTimeout([&] {
                if (!workbench.Draw.State.Walking() || !Controls().cmdStep.Enabled) return;
                if (list.TopRow() < 4) return Controls().cmdStep.Click();
                user.stop();
                // The walk's own row too.
                const int row = behind == 0 ? list.SelectedRow() : list.TopRow() + behind;
                const int place = ListView::HeaderHeight + ListView::RowHeight * (row - list.TopRow());
                if (active) workbench.frmMain.OnActivate();
                QTest::mouseClick(area->viewport(), Qt::LeftButton, {}, {40, place / 15 + 8});
                EXPECT_EQ(list.SelectedRow(), row);
                EXPECT_EQ(platform.Services.Focus.Focused(), &workbench.Entry.txtGMcode);
                workbench.Draw.Form_QueryUnload();
            });
            user.start(1);
            workbench.Draw.Redraw();
            EXPECT_FALSE(user.isActive());
        }
    }
}

TEST_F(DesktopDrawing, TheFieldsFollowTheMouse) {
    Open("mk4_pawn.cnc");
    const QPoint middle = Field()->visibleRegion().boundingRect().center();
    for (int i = 0; i < 21; ++i) {
        const QPointF place = middle + QPoint(i, i);
        QMouseEvent move(QEvent::MouseMove, place, Field()->mapToGlobal(place), Qt::NoButton, {}, {});
        QApplication::sendEvent(Field(), &move);
        EXPECT_NEAR(Val(Controls().txtZ1.Text) * workbench.Draw.State.DrawScale + workbench.Draw.State.ZeroX,
                    place.x() * 15, 0.01);
    }

    // Two clicks, and what they mark can be seen; the cross of a waiting tool can too, and leaves nothing behind.
    const auto shown = [&] { return Field()->grab(QRect(middle - QPoint(20, 20), QSize(41, 41))).toImage(); };
    const QImage before = shown();
    QTest::mouseClick(Field(), Qt::LeftButton, Qt::NoModifier, middle);
    EXPECT_NE(shown(), before);
    QTest::mouseClick(Field(), Qt::LeftButton, Qt::NoModifier, middle + QPoint(60, 0));
    QTest::mouseClick(Field(), Qt::LeftButton, Qt::NoModifier, middle);
    EXPECT_EQ(shown(), before);
    const auto twips = [](int pixels) { return static_cast<float>(pixels * 15); };
    Controls().pbxDrawField.Cross = FieldPlace{true, twips(middle.x()), twips(middle.y())};
    EXPECT_NE(shown(), before);
    Controls().pbxDrawField.Cross = FieldPlace();
    EXPECT_EQ(shown(), before);
}

// The light lies over the drawing: around the stroke, not on it, and in no picture.
TEST_F(DesktopDrawing, TheSelectedLineIsLitOnTheScreenAlone) {
    Open("mk4_pawn.cnc");
    PictureBox& field = Controls().pbxDrawField;
    ListView& list = workbench.Store.lvCncProgram;
    const auto shown = [&] { return Field()->grab().toImage(); };
    list.Select(list.Count());
    const QImage dark = shown();
    const OperationSources& sources = field.Sources();
    const auto runs = sources.Runs();
    const auto middleOf = [](const DrawOperation& one) {
        return QPoint(static_cast<int>((one.X1 + one.X2) / 30), static_cast<int>((one.Y1 + one.Y2) / 30));
    };
    const auto line = std::find_if(runs.begin(), runs.end(), [&](const SourceRun& run) {
        const DrawOperation& one = field.Operations()[run.FirstOperation];
        return run.Source > 0 && one.What == DrawOperation::Kind::Line && std::abs(one.X1 - one.X2) > 600 &&
               Field()->visibleRegion().contains(middleOf(one));
    });
    ASSERT_NE(line, runs.end());
    const DrawOperation& stroke = field.Operations()[line->FirstOperation];
    const std::size_t operations = field.Operations().size();
    const Pixels saved = PaintPicture(field, {0, 0, 40000, 40000}, 1.0 / 60);
    list.Select(line->Source);
    const QPoint middle = middleOf(stroke);
    const QImage lit = shown();
    const auto isLight = [&](int below) {
        return lit.pixelColor(middle + QPoint(0, below)) == QColor(255, 170, 0);
    };
    EXPECT_TRUE(isLight(2));
    EXPECT_FALSE(isLight(-2) && isLight(-1) && isLight(0) && isLight(1));
    EXPECT_EQ(field.Operations().size(), operations);
    EXPECT_EQ(PaintPicture(field, {0, 0, 40000, 40000}, 1.0 / 60).Points, saved.Points);
    list.Select(list.Count());
    EXPECT_EQ(shown(), dark);

    // With Ctrl a click on it opens its line, with the keys.
    QTest::mouseClick(Field(), Qt::LeftButton, Qt::ControlModifier, middle);
    EXPECT_EQ(list.SelectedRow(), line->Source);
    EXPECT_EQ(platform.Services.Focus.Focused(), &workbench.Entry.txtGMcode);
}

// Whatever the wheel and the middle button do, the place that the pointer holds keeps its coordinates.
TEST_F(DesktopDrawing, WheelMiddleButtonAndDoubleClickMoveTheView) {
    Open("mk4_pawn.cnc");
    QWidget* const view = View::Of(Controls().pbxViewWindow)->Widget();
    const QPoint pointer(view->width() / 3, view->height() / 3);
    const auto send = [&](QEvent::Type what, QPoint at, Qt::MouseButton button, Qt::MouseButtons held) {
        const QPointF place = Field()->mapFrom(view, at);
        QMouseEvent event(what, place, Field()->mapToGlobal(place), button, held, {});
        QApplication::sendEvent(Field(), &event);
    };
    const auto coordinates = [&](QPoint at) {
        send(QEvent::MouseMove, at, Qt::NoButton, {});
        return std::pair(Val(Controls().txtX1.Text), Val(Controls().txtZ1.Text));
    };
    const auto turn = [&](int angle) {
        QWheelEvent wheel(Field()->mapFrom(view, pointer), view->mapToGlobal(pointer), {}, {0, angle},
                          Qt::NoButton, Qt::ShiftModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(Field(), &wheel);
    };
    const auto before = coordinates(pointer);
    const float fitted = workbench.Draw.State.DrawScale;
    // A fine wheel sends parts of a notch.
    for (int i = 0; i < 8; ++i) turn(60);
    EXPECT_EQ(workbench.Draw.State.DrawScale, fitted * 16);
    EXPECT_NEAR(coordinates(pointer).first, before.first, 0.1);
    EXPECT_NEAR(coordinates(pointer).second, before.second, 0.1);

    // Also beyond the ends of the field.
    for (const QPoint way : {QPoint(50, 30), QPoint(-900, 0), QPoint(-900, 0)}) {
        const auto held = coordinates(pointer);
        send(QEvent::MouseButtonPress, pointer, Qt::MiddleButton, Qt::MiddleButton);
        send(QEvent::MouseMove, pointer + way, Qt::NoButton, Qt::MiddleButton);
        EXPECT_NEAR(coordinates(pointer + way).second, held.second, 0.1);
    }

    for (const bool measuring : {true, false}) {
        if (measuring) send(QEvent::MouseButtonPress, pointer, Qt::LeftButton, Qt::LeftButton);
        send(QEvent::MouseButtonPress, pointer, Qt::LeftButton, Qt::LeftButton);
        send(QEvent::MouseButtonDblClick, pointer, Qt::LeftButton, Qt::LeftButton);
        EXPECT_EQ(workbench.Draw.State.DrawScale, measuring ? fitted * 16 : fitted);
        QTest::keyClick(&Window(), Qt::Key_Escape);
    }
    EXPECT_EQ(coordinates(pointer), before);
    EXPECT_TRUE(Controls().mnuView.Enabled);
}

TEST_F(DesktopDrawing, TheListingIsThereWhileTheKeysAre) {
    Open("mk4_pawn.cnc");
    const auto activate = [this](const char* name) {
        const std::vector<Form*> forms = workbench.Forms();
        for (std::size_t i = 0; i < forms.size(); ++i) {
            QEvent activation(QEvent::WindowActivate);
            if (forms[i]->Name() == name) QApplication::sendEvent(&windows[i]->Window(), &activation);
        }
    };
    activate("frmDraw");
    Controls().mnuProgramWindow.Click();
    activate("frmProgramWindow");
    EXPECT_TRUE(workbench.Draw.Listing.frmProgramWindow.Visible);
    workbench.Find.mnuFind_Click();
    activate("frmFind");
    EXPECT_FALSE(workbench.Draw.Listing.frmProgramWindow.Visible);
}

TEST_F(DesktopDrawing, ItLeavesAsPictureAndOnPaper) {
    Open("mk4_pawn.cnc");
    const QString folder = data_.path() + "/";
    workbench.File.lblPath.Caption = FromQt(folder + "pawn.cnc");
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, [] {
        if (QWidget* const box = QApplication::activeModalWidget()) QTest::keyClick(box, Qt::Key_Return);
    });
    closer.start(20);
    Controls().mnuSaveBMP.Click();
    Controls().mnuSaveClipboard.Click();
    const QImage picture(folder + "pawn.BMP");
    EXPECT_EQ(picture.width(), Controls().pbxViewWindow.Width / 15);
    EXPECT_EQ(picture.convertToFormat(QImage::Format_RGB32),
              QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32));
    const QRect seen = Field()->visibleRegion().boundingRect();
    EXPECT_EQ(picture.pixelColor(400, 300), Field()->grab(seen).toImage().pixelColor(QPoint(400, 300)));

    // Each has a name of its own, the one that the dialog proposes.
    Controls().mnuPrint.Click();
    EXPECT_TRUE(files.ReadWhole(FromQt(folder + "pawn drawing.pdf")).starts_with("%PDF"));
    workbench.Main.Button(TopButton::Print).Click();
    EXPECT_TRUE(files.ReadWhole(FromQt(folder + "pawn.pdf")).starts_with("%PDF"));
    EXPECT_TRUE(workbench.Log.Records().empty());
}

}  // namespace
}  // namespace kvt::test
