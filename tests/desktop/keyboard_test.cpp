#include <QAbstractScrollArea>
#include <QKeySequence>

#include "headless/memory_platform.h"
#include "platform/tab_order.h"
#include "support/key_form.h"
#include "test_window.h"

namespace kvt::test {
namespace {

// The same keys in a window and without one.
class DesktopKeyboardTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_.Window()));
        QTest::qWait(1);
        // How much is in sight depends on the letters of the screen.
        MemoryForm.lvRows.SetRowsInSight(WindowForm.lvRows.VisibleRows());
        MemoryForm.lstCodes.SetEntriesInSight(WindowForm.lstCodes.EntriesInSight());
        MemoryForm.lstPick.SetEntriesInSight(WindowForm.lstPick.EntriesInSight());
    }

    void InWindow(const std::string& key) {
        if (key[0] == '>') return desktop_.Services.Focus.SetFocus(WindowForm.Named(key.substr(1)));
        QWidget* const focus = QApplication::focusWidget();
        QWidget* const target = focus ? focus : &window_.Window();
        if (key.size() == 1) {
            const QChar character = QLatin1Char(key[0]);
            QTest::sendKeyEvent(QTest::Click, target, static_cast<Qt::Key>(character.toUpper().unicode()),
                                QString(character), Qt::NoModifier);
        } else {
            QString name = QString::fromStdString(key);
            const QKeyCombination keys = QKeySequence(name.replace("Page", "Pg"))[0];
            QTest::keyClick(target, keys.key(), keys.keyboardModifiers());
        }
        if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
        QCoreApplication::processEvents();
    }
    void InMemory(const std::string& key) {
        if (key[0] == '>') return memory_.Focus.SetFocus(MemoryForm.Named(key.substr(1)));
        if (key.size() == 1) return memory_.System.Type(key[0]);
        const KeyStroke stroke = *KeyNamed(key);
        memory_.System.Press(stroke.Key, stroke.Held);
    }
    // Whether the window and its widgets show what the form holds.
    void ExpectShown() {
        for (const Control* control : WindowForm.form.Controls()) {
            const View* const view = View::Of(*control);
            auto* const edit = view ? qobject_cast<QLineEdit*>(view->Widget()) : nullptr;
            if (!edit) continue;
            const auto& box = static_cast<const TextBox&>(*control);
            EXPECT_EQ(edit->text().toStdString(), box.Text.Get());
            if (!edit->hasFocus()) continue;
            EXPECT_EQ(edit->selectedText().size(), box.Selection.Get().Length);
        }
    }
    void ExpectSame(const std::string& sequence) {
        SCOPED_TRACE(sequence);
        WindowForm.Reset();
        MemoryForm.Reset();
        for (const std::string& key : KeysIn(sequence)) {
            InWindow(key);
            InMemory(key);
            ASSERT_EQ(WindowForm.State(), MemoryForm.State()) << "after " << key;
        }
        ExpectShown();
    }

private:
    DiskFiles files_;
    SystemPrograms programs_;
    DesktopPlatform desktop_{files_, programs_, 1};
    MemoryPlatform memory_;

protected:
    KeyForm WindowForm{desktop_.Services};
    KeyForm MemoryForm{memory_.Services};
    FormView window_{desktop_.Desktop, WindowForm.form};
};

TEST_F(DesktopKeyboardTest, BothHalvesDoTheSameWithThreeHundredSequences) {
    int left = 300;
    for (const KeyCase& one : KeyCases()) {
        ExpectSame(one.Keys);
        if (HasFatalFailure()) return;
        --left;
    }
    for (const std::string& sequence : RandomSequences(left, 20261125)) {
        ExpectSame(sequence);
        if (HasFatalFailure()) return;
    }
}

TEST_F(DesktopKeyboardTest, TheFocusIsSeenOnEveryControl) {
    const auto look = [this](const Control& control) {
        const QWidget* const widget = View::Of(control)->Widget();
        const QRect place(widget->mapTo(&window_.Window(), QPoint()), widget->size());
        return window_.Window().grab(place.adjusted(-4, -4, 4, 4)).toImage();
    };
    for (Control* control : WindowForm.form.Controls()) {
        if (!AcceptsTab(*control)) continue;
        WindowForm.Reset();
        Control& elsewhere = control == &WindowForm.txtA ? WindowForm.txtShown : WindowForm.txtA;
        WindowForm.Platform.Focus.SetFocus(elsewhere);
        QTest::qWait(1);
        const QImage without = look(*control);
        WindowForm.Platform.Focus.SetFocus(*control);
        QTest::qWait(1);
        EXPECT_NE(look(*control), without) << control->Name();
    }
}

TEST_F(DesktopKeyboardTest, ABoxWithAListOpensByKey) {
    for (const char* key : {"F4", "Alt+Down", "Space"}) {
        SCOPED_TRACE(key);
        WindowForm.Reset();
        WindowForm.Platform.Focus.SetFocus(WindowForm.cboFont);
        const QKeyCombination keys = QKeySequence(QString::fromLatin1(key))[0];
        QTest::keyClick(QApplication::focusWidget(), keys.key(), keys.keyboardModifiers());
        ASSERT_TRUE(QApplication::activePopupWidget());
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        QTest::qWait(1);
        EXPECT_FALSE(QApplication::activePopupWidget());
        EXPECT_EQ(WindowForm.Summary(), "cboFont 0 ");
    }
}

}  // namespace
}  // namespace kvt::test
