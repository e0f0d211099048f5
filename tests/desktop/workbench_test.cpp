#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <random>
#include <sstream>

#include "desktop/text.h"
#include "test_workbench.h"

namespace kvt::test {
namespace {

// The keys are those of the story that types a sample into the workbench without a display.
TEST_F(DesktopWorkbench, AWholeProgramIsTypedByKeysAlone) {
    Open("");
    EXPECT_EQ(Focused(), &workbench.Entry.txtGMcode);
    std::istringstream story(files.ReadWhole(KVT_SOURCE_DIR "/tests/scripts/type_a_program.kvts"));
    for (std::string line; std::getline(story, line);) {
        if (line.starts_with("type ")) Type(line.substr(5));
        if (line == "press Backspace") Key(Qt::Key_Backspace);
        if (line == "press Enter") Key(Qt::Key_Enter, Qt::KeypadModifier);
    }
    EXPECT_EQ(workbench.Store.LineCount(), 45);
    EXPECT_TRUE(workbench.Store.EndCodePresent);
    EXPECT_EQ(workbench.Store.ErrorRow, 0);

    const std::string name = data_.filePath("typed.cnc").toStdString();
    WhenShown<QFileDialog>([&](QFileDialog& dialog) {
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(name));
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
    });
    // The menus follow within a second.
    const auto canSave = [&] { return workbench.Main.mnuSave.Enabled.Get(); };
    ASSERT_TRUE(QTest::qWaitFor(canSave));
    Key(Qt::Key_S, Qt::ControlModifier);
    const std::string sample = files.ReadWhole(KVT_SOURCE_DIR "/samples/mk4_bolt.cnc");
    ASSERT_TRUE(files.Exists(name));
    EXPECT_EQ(files.ReadWhole(name), sample.substr(sample.find('%')));
    EXPECT_FALSE(workbench.Store.ProgramChanged);

    // Open a line, leave it, insert and delete, all by keys.
    ASSERT_TRUE(QTest::qWaitForWindowActive(&windows.front()->Window()));
    Key(Qt::Key_Up);
    EXPECT_EQ(Focused(), &workbench.Store.lvCncProgram);
    Key(Qt::Key_Home);
    Key(Qt::Key_F2);
    EXPECT_EQ(workbench.Entry.txtXI.Text.Get(), "4000");
    EXPECT_EQ(Focused(), &workbench.Entry.txtGMcode);
    Key(Qt::Key_Insert);
    EXPECT_EQ(workbench.Store.LineCount(), 46);
    WhenShown<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
    Key(Qt::Key_Delete);
    EXPECT_EQ(workbench.Store.LineCount(), 45);
    // Saved under its name, left without a question.
    ASSERT_TRUE(QTest::qWaitFor(canSave));
    Key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(workbench.Store.ProgramChanged);
    EXPECT_EQ(files.ReadWhole(name), sample.substr(sample.find('%')));
    windows.front()->Window().close();
    EXPECT_FALSE(windows.front()->Window().isVisible());
}

TEST_F(DesktopWorkbench, KeysTakeBackWhatWasTypedAndThenTheProgram) {
    Open(KVT_SOURCE_DIR "/samples/mk4_bolt.cnc");
    const Form& form = workbench.frmMain;
    TextBox& notes = workbench.File.txtFileNotes;
    const std::string before = notes.Text.Get();
    const auto undo = [this] { Key(Qt::Key_Z, Qt::ControlModifier); };
    const auto redo = [this] { Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); };
    // Several lines, which the widget edits.
    platform.Services.Focus.SetFocus(notes);
    Type("ab");
    Key(Qt::Key_Enter);
    const std::string typed = notes.Text.Get();
    EXPECT_EQ(typed.size(), before.size() + 4);
    undo();
    undo();
    EXPECT_EQ(notes.Text.Get(), before);
    redo();
    redo();
    EXPECT_EQ(notes.Text.Get(), typed);
    EXPECT_EQ(View::Of(notes)->Widget()->property("plainText").toString().left(2), "ab");
    undo();
    undo();

    // A field of the line that is open, then the line.
    platform.Services.Focus.SetFocus(workbench.Store.lvCncProgram);
    Key(Qt::Key_Home);
    Key(Qt::Key_F2);
    EXPECT_EQ(workbench.Entry.frEntry.Lead.Get(), "Line 00");
    Type("\\r55");
    EXPECT_EQ(workbench.Entry.lblBefore.Caption.Get(), "Before: X 4000");
    undo();
    EXPECT_EQ(workbench.Entry.txtXI.Text.Get(), "4000");
    EXPECT_TRUE(workbench.Entry.lblBefore.Caption.Empty());
    Type("55\\r\\r\\r");
    const Cell& x = workbench.Store.lvCncProgram.Row(1)[column::X];
    EXPECT_EQ(x, "   55");
    EXPECT_TRUE(workbench.Store.ProgramChanged);
    const auto entries = windows.front()->Window().findChildren<QAction*>();
    EXPECT_TRUE(std::any_of(entries.begin(), entries.end(), [](const QAction* entry) {
        return entry->text().remove(u'&').startsWith("Undo: line 00 changed");
    }));
    undo();
    EXPECT_EQ(x, " 4000");
    EXPECT_EQ(form.Caption.Get().find('*'), std::string::npos);
    EXPECT_EQ(Focused(), &workbench.Entry.txtGMcode);
}

// A name that the code page does not hold is seen as it is, blanks and all, and proposed so.
TEST_F(DesktopWorkbench, AForeignNameIsReadable) {
    const QString name = QString::fromUtf8("\u96f6  \u4ef6 \u00fc");
    const std::string path = PathText(data_.filePath(name + ".cnc"));
    files.WriteWhole(path, files.ReadWhole(KVT_SOURCE_DIR "/samples/mk4_bolt.cnc"));
    Open("\"" + path + "\"");
    EXPECT_EQ(windows.front()->Window().windowTitle(), "Kestrel Vise Toolkit - " + name + ".cnc");
    const auto* const label = windows.front()->Window().findChild<QLabel*>("lblPath");
    ASSERT_TRUE(label);
    EXPECT_EQ(label->text(), data_.filePath(name + ".cnc"));

    workbench.File.NamesSource = true;
    QString proposed;
    WhenShown<QFileDialog>([&](QFileDialog& dialog) {
        proposed = dialog.findChild<QLineEdit*>("fileNameEdit")->text();
        dialog.reject();
    });
    workbench.File.lblPath.Caption = PathText(data_.filePath(name + ".nc"));
    workbench.Writer.mnuSave_Click();
    EXPECT_EQ(proposed, name + ".cnc");
}

TEST_F(DesktopWorkbench, TheDrawingOfAStartComesBehindTheEditor) {
    const std::string folder = data_.filePath("EMCO/KVT_100/Settings/").toStdString();
    files.MakeFolder(folder);
    files.WriteWhole(folder + "SettingsEditor.txt",
                     "LastFileUsed=" KVT_SOURCE_DIR "/samples/mk4_bolt.cnc\r\nDrawWindow Active=True\r\n");
    Open("");
    const Form& drawing = workbench.Draw.Controls.frmDraw;
    ASSERT_TRUE(QTest::qWaitFor([&] { return drawing.Visible.Get(); }));
    QTest::qWait(100);
    EXPECT_EQ(Focused(), &workbench.Entry.txtGMcode);
    EXPECT_TRUE(windows.front()->Window().isActiveWindow());
    QMainWindow& window = dynamic_cast<FormView&>(*drawing.View).Window();
    EXPECT_TRUE(window.isVisible());
    // With its keys first, not with a field to measure with.
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::qWait(1);
    EXPECT_EQ(Focused(), &workbench.Draw.Controls.pbxDrawField);
}

// KVT_MONKEY_EVENTS lets it go on for longer.
TEST_F(DesktopWorkbench, AMonkeyBreaksNothing) {
    const char* const wanted = std::getenv("KVT_MONKEY_EVENTS");
    const int events = wanted ? std::atoi(wanted) : 300;
    // A bitmap of a program without a name goes where the program was started.
    const auto back = qScopeGuard([before = QDir::currentPath()] { QDir::setCurrent(before); });
    QDir::setCurrent(data_.path());
    const std::string name = data_.filePath("lid.cnc").toStdString();
    files.WriteWhole(name, files.ReadWhole(KVT_SOURCE_DIR "/samples/f1_lid.cnc"));
    Open("");
    std::string file = name;
    workbench.Reader.LoadFile(file);
    std::mt19937 random(7);
    const auto below = [&](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
    // Whatever dialog comes up is answered.
    QTimer answers;
    QObject::connect(&answers, &QTimer::timeout, &answers, [&] {
        if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
        QWidget* const modal = QApplication::activeModalWidget();
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            const auto buttons = box->buttons();
            buttons[below(static_cast<int>(buttons.size()))]->click();
        } else if (auto* dialog = qobject_cast<QDialog*>(modal)) {
            dialog->reject();
        }
        // A wait for a step or a click would never end.
        DrawWindow& draw = workbench.Draw;
        if (workbench.Store.EditorRunMode)
            (below(3) == 0 ? workbench.Results.cmdStop : workbench.Results.cmdStep).Click();
        if (draw.State.Walking()) (below(3) == 0 ? draw.Controls.cmdStop : draw.Controls.cmdStep).Click();
        draw.State.EndClickWait();
    });
    answers.start(5);
    constexpr char letters[] = "0123456789012345678901234567890GM-+*/P. ,AR%\x7Exy";
    constexpr Qt::Key keys[] = {Qt::Key_Enter,  Qt::Key_Return, Qt::Key_Tab,     Qt::Key_Backtab,
                                Qt::Key_Escape, Qt::Key_Up,     Qt::Key_Down,    Qt::Key_Left,
                                Qt::Key_Right,  Qt::Key_Home,   Qt::Key_End,     Qt::Key_Insert,
                                Qt::Key_Delete, Qt::Key_F2,     Qt::Key_F1,      Qt::Key_F5,
                                Qt::Key_F6,     Qt::Key_PageUp, Qt::Key_PageDown};
    QWidget& main = windows.front()->Window();
    for (int event = 0; event < events && main.isVisible(); ++event) {
        QWidget* const focus = QApplication::focusWidget();
        QWidget* const target = focus ? focus : &main;
        const int kind = below(10);
        if (kind < 5) {
            QTest::keyClick(target, letters[below(sizeof letters - 1)]);
        } else if (kind < 8) {
            QTest::keyClick(target, keys[below(std::size(keys))]);
        } else {
            const QPoint at(below(main.width()), below(main.height()));
            QWidget* const under = main.childAt(at);
            const bool right = below(5) == 0;
            if (under && under->window() == &main) {
                QTest::mouseClick(under, right ? Qt::RightButton : Qt::LeftButton, {},
                                  under->mapFrom(&main, at));
            }
        }
        QCoreApplication::processEvents();
        ASSERT_LE(workbench.Store.lvCncProgram.Count() - workbench.Store.LineCount(), 1);
    }
}

}  // namespace
}  // namespace kvt::test
