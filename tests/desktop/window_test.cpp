#include <signal.h>

#include <QAbstractScrollArea>
#include <QFile>
#include <QHelpEvent>
#include <QImage>
#include <QMenuBar>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolTip>
#include <set>

#include "desktop/application.h"
#include "test_window.h"

namespace kvt::test {
namespace {

class DesktopWindow : public WindowTest {};

TEST_F(DesktopWindow, TheIconHasAPictureOfItsOwnForEverySize) {
    const QIcon icon = ProgramIcon();
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        const QImage picture = icon.pixmap(QSize(size, size), 1).toImage();
        EXPECT_EQ(picture.size(), QSize(size, size));
        // The ground has round corners and the workpiece is in the middle.
        EXPECT_LT(qAlpha(picture.pixel(0, 0)), 255);
        EXPECT_EQ(picture.pixelColor(size / 2, size * 5 / 8), QColor(0xF6, 0xA8, 0x21));
    }
}

TEST_F(DesktopWindow, MenusComeFromTheControls) {
    std::string told;
    mnuOpen.OnClick = [&] { told += "open "; };
    mnuGrid.OnClick = [&] { mnuGrid.Checked = !mnuGrid.Checked; };
    mnuGrid.Checked = true;
    Open();
    const QList<QAction*> bar = window->Window().menuBar()->actions();
    ASSERT_EQ(bar.size(), 1);
    EXPECT_EQ(bar[0]->text(), "&File");
    const QList<QAction*> entries = bar[0]->menu()->actions();
    ASSERT_EQ(entries.size(), 3);
    EXPECT_EQ(entries[0]->shortcut(), QKeySequence("Ctrl+O"));
    EXPECT_TRUE(entries[1]->isSeparator());
    EXPECT_TRUE(entries[1]->text().isEmpty()) << "a line, not a heading";
    entries[2]->trigger();
    EXPECT_FALSE(mnuGrid.Checked);
    EXPECT_FALSE(entries[2]->isChecked());
    // Where the handler leaves the mark, the click does not take it away.
    mnuGrid.OnClick = nullptr;
    mnuGrid.Checked = true;
    entries[2]->trigger();
    EXPECT_TRUE(entries[2]->isChecked());

    Focus(txtA);
    Key(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(told, "open ");
    mnuFile.Enabled = false;
    Key(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(told, "open ");
    mnuFile.Visible = false;
    EXPECT_FALSE(bar[0]->isVisible());
}

TEST_F(DesktopWindow, WhatIsGreySaysWhyAndACellWhatItMeans) {
    int told = 0;
    int clicks = 0;
    for (Control* control : {static_cast<Control*>(&cmdGo), static_cast<Control*>(&mnuOpen)}) {
        control->OnRefused = [&] { ++told; };
        control->OnClick = [&] { ++clicks; };
        control->Enabled = false;
    }
    lvList.AddRow()[8] = "!Invalid arc";
    lvList.CellToolTip = [](int row, int subItem) {
        return row == 1 && subItem == 8 ? std::string("Why: <r>\r\nHelps: a smaller one") : std::string();
    };
    Open();
    QPushButton* const button = window->Window().findChild<QPushButton*>(u"cmdGo"_s);
    const QPointF middle = button->rect().center();
    QMouseEvent press(QEvent::MouseButtonPress, middle, button->mapToGlobal(middle), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(button, &press);
    EXPECT_EQ(told, 1);
    Focus(txtA);
    Key(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(clicks, 0);
    QWidget* const rows = window->Window().findChild<QAbstractScrollArea*>(u"lvList"_s)->viewport();
    const QPoint finding(60, 28);
    QHelpEvent help(QEvent::ToolTip, finding, rows->mapToGlobal(finding));
    QApplication::sendEvent(rows, &help);
    EXPECT_TRUE(QToolTip::text().contains(u"Why: &lt;r&gt;<br>Helps"_s)) << QToolTip::text().toStdString();
}

TEST_F(DesktopWindow, SizeStateAndCloseGoBothWays) {
    int resized = 0;
    int asked = 0;
    form.OnResize = [&] { ++resized; };
    form.OnQueryUnload = [&] { ++asked; };
    Open();
    QWidget& frame = window->Window();
    EXPECT_EQ(frame.windowTitle(), u"Gr\u00F6\u00DFe"_s);
    form.Unsaved = true;
    EXPECT_EQ(frame.windowTitle(), u"Gr\u00F6\u00DFe *"_s);
    form.Unsaved = false;
    EXPECT_EQ(frame.windowTitle(), u"Gr\u00F6\u00DFe"_s);
    EXPECT_EQ(window->Inside()->size(), QSize(600, 400));
    EXPECT_EQ(WidgetOf(chkBox)->mapTo(window->Inside(), QPoint()), QPoint(240, 25));
    EXPECT_EQ(resized, 0);
    frame.resize(frame.width() + 50, frame.height() + 20);
    QTest::qWait(20);
    EXPECT_EQ(form.Width, 650 * 15);
    EXPECT_EQ(form.Height, 420 * 15);
    EXPECT_GE(resized, 1);
    // Part of a pixel is rounded up and is no change of the user's.
    form.Width = 9010;
    QTest::qWait(20);
    EXPECT_EQ(window->Inside()->size(), QSize(601, 420));
    EXPECT_EQ(form.Width, 9010);
    frame.close();
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(frame.isVisible());
    form.State = WindowState::Maximised;
    EXPECT_TRUE(frame.isMaximized());
    frame.showNormal();
    EXPECT_EQ(form.State.Get(), WindowState::Normal);
}

TEST_F(DesktopWindow, OnlyThePageInFrontIsSeen) {
    TabStrip tabs(form, "tabs");
    tabs.Captions = {"One", "Two"};
    Placed(tabs, 10, 150, 400, 200, 10);
    txtA.Container = &tabs;
    txtA.Page = 0;
    txtB.Container = &tabs;
    txtB.Page = 1;
    Open();
    EXPECT_TRUE(WidgetOf(txtA)->isVisible());
    EXPECT_FALSE(WidgetOf(txtB)->isVisible());
    Focus(tabs);
    Key(Qt::Key_Right);
    EXPECT_EQ(tabs.Value, 1);
    EXPECT_FALSE(WidgetOf(txtA)->isVisible());
    EXPECT_TRUE(WidgetOf(txtB)->isVisible());
    Key(Qt::Key_Tab);
    EXPECT_EQ(Focused(), &txtB);
    window.reset();
}

// Smaller than the screen lets it be: a part is seen, with the control that has the keys.
TEST_F(DesktopWindow, AWindowWithoutRoomForItsControlsScrolls) {
    const QSize screen = QGuiApplication::primaryScreen()->size();
    form.SmallestWidth = (screen.width() + 300) * 15;
    form.SmallestHeight = (screen.height() + 600) * 15;
    form.LeastHeight = (screen.height() + 200) * 15;
    Placed(txtB, screen.width() + 100, screen.height() + 100, 100, 24, 1);
    Open();
    EXPECT_LE(window->Window().width(), screen.width());
    EXPECT_LE(window->Window().height(), screen.height());
    EXPECT_EQ(window->Inside()->size(), screen + QSize(300, 200));
    EXPECT_EQ(form.Height, form.LeastHeight);
    for (Control* control : std::initializer_list<Control*>{&txtB, &txtA, &lvList}) {
        Focus(*control);
        EXPECT_EQ(WidgetOf(*control)->visibleRegion().boundingRect(), WidgetOf(*control)->rect());
    }
    // The list on the screen never asks for more than there is.
    EXPECT_LT(platform.Services.Screen.HeightFor(form.SmallestHeight), screen.height() * 15);
    EXPECT_EQ(platform.Services.Screen.WidthFor(3000), 3000);
}

TEST_F(DesktopWindow, AListEndsInFrontOfAFrameThatLiesOverIt) {
    Open();
    const auto end = [&] { return WidgetOf(lstCodes)->geometry().bottom() + 1; };
    EXPECT_EQ(end(), 270);
    Placed(frGroup, 420, 200, 170, 100);
    EXPECT_LE(end(), 200);
    lstCodes.Height = 130 * 15;
    EXPECT_LE(end(), 200);
    frGroup.Visible = false;
    EXPECT_EQ(end(), 280);
}

TEST_F(DesktopWindow, MessageBoxesAskUntilTheyAreAnswered) {
    Open();
    DialogService& dialogs = platform.Services.Dialogs;
    QString title;
    QString text;
    bool escaped = false;
    const auto whenShown = [&](QMessageBox::StandardButton button) {
        QTimer::singleShot(50, qApp, [&, button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_TRUE(box);
            title = box->windowTitle();
            text = box->text();
            QTest::keyClick(box, Qt::Key_Escape);
            box->close();
            escaped = !box->isVisible();
            if (!escaped) QTest::mouseClick(box->button(button), Qt::LeftButton);
        });
    };
    whenShown(QMessageBox::Yes);
    EXPECT_EQ(dialogs.ShowMessage(Question("<b>Save</b> Gr\xF6\337e?", "Continue?")), Answer::Yes);
    EXPECT_EQ(title, "Continue?");
    EXPECT_EQ(text, u"<b>Save</b> Gr\u00F6\u00DFe?"_s);
    EXPECT_FALSE(escaped);
    whenShown(QMessageBox::No);
    EXPECT_EQ(dialogs.ShowMessage(Question("Save?", "")), Answer::No);
    EXPECT_EQ(title, QCoreApplication::applicationName());
    whenShown(QMessageBox::Cancel);
    EXPECT_EQ(dialogs.ShowMessage(Question("Write over?", "", Buttons::YesNoCancel)), Answer::Cancel);
    EXPECT_TRUE(escaped);
}

TEST_F(DesktopWindow, TheListSelectsAndScrollsByHandAndByCode) {
    std::string told;
    lvList.OnClick = [&] { told += "row " + std::to_string(lvList.SelectedRow()) + " "; };
    lvList.OnRightClick = [&] { told += "right " + std::to_string(lvList.SelectedRow()) + " "; };
    lvList.OnColumnClick = [&](int header) { told += "header " + std::to_string(header) + " "; };
    Rows(100);
    Open();
    // 220 pixels less frame and header hold eleven rows of 17.
    QWidget* viewport = static_cast<QAbstractScrollArea*>(WidgetOf(lvList))->viewport();
    ASSERT_EQ(lvList.VisibleRows(), 11);
    QTest::mouseClick(viewport, Qt::LeftButton, {}, {50, 20 + 17 + 5});
    QTest::mouseClick(viewport, Qt::RightButton, {}, {50, 20 + 3 * 17 + 5});
    QTest::mouseClick(viewport, Qt::LeftButton, {}, {60, 5});
    EXPECT_EQ(told, "row 2 right 4 header 9 ");
    EXPECT_EQ(Focused(), &lvList);
    QScrollBar* bar = static_cast<QAbstractScrollArea*>(WidgetOf(lvList))->verticalScrollBar();
    bar->setValue(30);
    EXPECT_EQ(lvList.TopRow(), 31);
    lvList.EnsureVisible(80);
    EXPECT_EQ(bar->value(), 69);
    // What is left after removing rows fills the field.
    while (lvList.Count() > 20) lvList.RemoveRow(1);
    EXPECT_EQ(lvList.TopRow(), 10);
    lvList.Clear();
    EXPECT_EQ(lvList.TopRow(), 1);
}

TEST_F(DesktopWindow, TheListPaintsItsColours) {
    Rows(3);
    lvList.EmphasisedColumn = 8;
    lvList.FirstColoredColumn = 1;
    lvList.LastColoredColumn = 7;
    lvList.Row(2)[8] = "!Error";
    lvList.Row(3).ForeColor = 0xFF0000;
    Open();
    QWidget* viewport = static_cast<QAbstractScrollArea*>(WidgetOf(lvList))->viewport();
    const auto row = [&](int number) {
        return viewport->grab().toImage().copy(0, 20 + (number - 1) * 17, viewport->width(), 17);
    };
    // How many pixels are nearly of a colour.
    const auto count = [](const QImage& image, QColor color) {
        int found = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                found += std::abs(pixel.red() - color.red()) < 60 &&
                         std::abs(pixel.green() - color.green()) < 60 &&
                         std::abs(pixel.blue() - color.blue()) < 60;
            }
        }
        return found;
    };
    EXPECT_GT(count(row(2), QColor(0xC0, 0, 0x20)), 10);
    EXPECT_GT(count(row(3), Qt::blue), 5);
    EXPECT_EQ(count(row(2), Qt::blue), 0);
    const QImage before = row(1);
    lvList.Select(2);
    EXPECT_NE(row(1), before);
}

TEST_F(DesktopWindow, TimersTickAndWaitsEndWithTheProgram) {
    Timer tick(form, "tick", 5);
    int ticks = 0;
    int deepest = 0;
    int depth = 0;
    SystemService& system = platform.Services.System;
    tick.OnTimer = [&] {
        deepest = std::max(deepest, ++depth);
        for (int i = 0; i < 2; ++i) system.DoEvents();
        --depth;
        if (++ticks == 3) tick.Enabled = false;
    };
    Open();
    while (ticks < 3 && system.DoEvents()) continue;
    EXPECT_EQ(deepest, 1);
    QTest::qWait(30);
    EXPECT_EQ(ticks, 3);
    tick.Enabled = true;
    tick.OnTimer = [&] { system.EndProgram(); };
    while (system.DoEvents()) continue;
    EXPECT_FALSE(window->Window().isVisible());
    EXPECT_FALSE(system.DoEvents());
    window.reset();
}

// The program itself.
class DesktopProgram : public ::testing::Test {
protected:
    DesktopProgram() {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("XDG_DATA_HOME", data_.path());
        program.setProcessEnvironment(environment);
        program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    }
    ~DesktopProgram() override {
        program.kill();
        program.waitForFinished();
    }
    // Whether the program handles SIGTERM by now.
    bool TakesSignals() const {
        QFile status(QString("/proc/%1/status").arg(program.processId()));
        if (!status.open(QIODevice::ReadOnly)) return false;
        for (const QByteArray& line : status.readAll().split('\n')) {
            if (!line.startsWith("SigCgt:")) continue;
            return (line.mid(7).trimmed().toULongLong(nullptr, 16) >> (SIGTERM - 1) & 1) != 0;
        }
        return false;
    }

    QTemporaryDir data_;
    QProcess program;
};

TEST_F(DesktopProgram, EndsOnASignalAsByItsCloseBox) {
    program.start(KVT_PROGRAM, {KVT_SOURCE_DIR "/samples/mk4_pawn.cnc"});
    ASSERT_TRUE(QTest::qWaitFor([this] { return TakesSignals(); }, 20'000));
    ::kill(static_cast<pid_t>(program.processId()), SIGTERM);
    ASSERT_TRUE(program.waitForFinished(20'000));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
}

TEST_F(DesktopProgram, SavesAPictureOfItsWindow) {
    const QString picture = data_.filePath("window.png");
    program.start(KVT_PROGRAM,
                  {KVT_SOURCE_DIR "/samples/mk4_pawn.cnc", "--scale", "1.5", "--screenshot", picture});
    ASSERT_TRUE(program.waitForFinished(30'000));
    EXPECT_EQ(program.exitCode(), 0);
    const QImage image(picture);
    EXPECT_GE(image.width(), 11800 / 10);
    std::set<QRgb> colours;
    for (int x = 0; x < image.width(); x += 3) {
        for (int y = 0; y < image.height(); y += 3) colours.insert(image.pixel(x, y));
    }
    EXPECT_GT(colours.size(), 30u);
}

TEST_F(DesktopProgram, RefusesWrongUsage) {
    for (const QStringList& arguments :
         {QStringList{"--scale", "3"}, QStringList{"--bogus"}, QStringList{"a.cnc", "b.cnc"}}) {
        program.start(KVT_PROGRAM, arguments);
        ASSERT_TRUE(program.waitForFinished(20'000));
        EXPECT_EQ(program.exitCode(), 2) << arguments.join(' ').toStdString();
    }
}

}  // namespace
}  // namespace kvt::test
