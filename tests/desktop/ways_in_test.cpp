#include <QMessageBox>
#include <QTimer>
#include <QWindow>
#include <stdexcept>

#include "basic/run_time_error.h"
#include "test_window.h"

namespace kvt::test {
namespace {

class DesktopWaysIn : public WindowTest {};

TEST_F(DesktopWaysIn, AFailureOfAnyKindIsToldAndEndsNothing) {
    std::vector<std::string> told;
    const ErrorSink before = SetErrorSink([&](const RunTimeError& error, const char* procedure) {
        told.push_back(procedure + (" " + std::to_string(error.Number)) + " " + error.Description);
    });
    Timer tick(form, "tick", 1);
    tick.Enabled = false;
    tick.OnTimer = [&] {
        tick.Enabled = false;
        throw std::bad_alloc();
    };
    cmdGo.OnClick = [] { throw RunTimeError(fault::DivisionByZero); };
    txtB.OnKeyPress = [](int&) { throw 5; };
    txtA.OnKeyPress = [](int&) { throw std::out_of_range("beyond"); };
    Open();
    QTest::mouseClick(WidgetOf(cmdGo), Qt::LeftButton);
    for (Control* field : {&txtB, &txtA}) {
        Focus(*field);
        Type("x");
    }
    tick.Enabled = true;
    EXPECT_TRUE(QTest::qWaitFor([&] { return told.size() == 4; }));
    // What no control stands behind: a call that was put off, a timer of the toolkit, a signal.
    QMetaObject::invokeMethod(
        qApp, [] { throw std::runtime_error("put off"); }, Qt::QueuedConnection);
    EXPECT_TRUE(QTest::qWaitFor([&] { return told.size() == 5; }));
    QTimer::singleShot(0, qApp, [] { throw "signal"; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return told.size() == 6; }));
    SetErrorSink(before);
    EXPECT_EQ(told,
              (std::vector<std::string>{"cmdGo_Click 11 Division by zero", "txtB_KeyPress 51 Internal error",
                                        "txtA_KeyPress 51 beyond", "tick_Timer 7 Out of memory",
                                        "Event 51 put off", "Event 51 Internal error"}));
    // Handlers go on as before.
    cmdGo.OnClick = [&] { told.clear(); };
    QTest::mouseClick(WidgetOf(cmdGo), Qt::LeftButton);
    EXPECT_TRUE(told.empty());
    window.reset();
}

// Two windows, of which one stays on top.
TEST_F(DesktopWaysIn, ABoxBelongsToTheWindowWhoseCommandAsked) {
    Form above("frmAbove");
    above.TopMost = true;
    above.Width = above.Height = 3000;
    CommandButton cmdAsk(above, "cmdAsk", "Ask");
    Placed(cmdAsk, 10, 10, 100, 28);
    Open();
    FormView top(platform.Desktop, above);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&top.Window()));
    const auto onTop = [&] {
        return top.Window().windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint);
    };
    EXPECT_TRUE(onTop());
    const QWidget* parent = nullptr;
    bool covered = true;
    const auto ask = [&] {
        // The second box follows the first at once: no window is active between them.
        for (int i = 0; i < 2; ++i) {
            parent = nullptr;
            QTimer::singleShot(50, qApp, [&] {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                ASSERT_TRUE(box);
                parent = box->parentWidget();
                covered = onTop();
                box->accept();
            });
            platform.Services.Dialogs.ShowMessage(Notice("Well?"));
        }
    };
    cmdGo.OnClick = ask;
    cmdAsk.OnClick = ask;
    QTest::mouseClick(WidgetOf(cmdAsk), Qt::LeftButton);
    EXPECT_EQ(parent, &top.Window());
    EXPECT_FALSE(covered);
    EXPECT_TRUE(onTop());
    window->Window().showMinimized();
    platform.Desktop.System.Run(cmdGo, "Click", cmdGo.OnClick);
    EXPECT_EQ(parent, &window->Window());
    EXPECT_FALSE(window->Window().isMinimized());
    EXPECT_FALSE(covered);
}

TEST_F(DesktopWaysIn, AMaximisedWindowHasAPlaceToGoBackTo) {
    form.SmallestWidth = 4500;
    form.SmallestHeight = 3000;
    form.SetRestoredPlace({4500, 1500, 600, 7500});
    form.State = WindowState::Maximised;
    Open();
    QWidget& frame = window->Window();
    EXPECT_TRUE(frame.isMaximized());
    EXPECT_EQ(frame.minimumSize(), QSize(300, 200 + frame.height() - window->Inside()->height()));
    EXPECT_EQ(form.RestoredPlace(), (WindowPlace{4500, 1500, 600, 7500}));
    // Hidden, it takes another one.
    form.Visible = false;
    form.SetRestoredPlace({5250, 3000, 1500, 6000});
    EXPECT_TRUE(frame.isMaximized());
    form.Visible = true;
    QTest::qWait(20);
    form.State = WindowState::Normal;
    QTest::qWait(20);
    EXPECT_EQ(window->Inside()->size(), QSize(400, 350));
    EXPECT_EQ(form.RestoredPlace().Width, 6000);
    // A size that comes just before the window is maximised was that of the maximised one.
    QTest::qWait(400);
    frame.resize(1200, 900);
    QTest::qWait(20);
    frame.setWindowState(Qt::WindowMaximized);
    QTest::qWait(20);
    EXPECT_EQ(form.State.Get(), WindowState::Maximised);
    EXPECT_EQ(form.RestoredPlace().Width, 6000);
}

}  // namespace
}  // namespace kvt::test
