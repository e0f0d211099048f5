#include <QAbstractButton>
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QPlainTextEdit>

#include "platform/keys.h"
#include "test_window.h"

namespace kvt::test {
namespace {

class DesktopInput : public WindowTest {};

// The keys of the numeric keypad have numbers of their own with handlers.
TEST_F(DesktopInput, TheKeypadTypesAsTheOtherKeysDo) {
    std::string told;
    txtA.OnKeyDown = [&](int key, int) { told += std::to_string(key) + " "; };
    Open();
    Focus(txtA);
    for (const Qt::Key key : {Qt::Key_7, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Enter})
        Key(key, Qt::KeypadModifier);
    Key(Qt::Key_F2, Qt::ShiftModifier);
    EXPECT_EQ(told, "103 107 109 13 113 ");
    EXPECT_EQ(txtA.Text.Get(), "7+-");
}

TEST_F(DesktopInput, CharactersOfTheCodePagePassAndOthersAreDropped) {
    Open();
    txtA.Text = "\xC4\x80";
    EXPECT_EQ(static_cast<QLineEdit*>(WidgetOf(txtA))->text(), u"\u00C4\u20AC"_s);
    Focus(txtB);
    for (const char16_t c : {u'\u00E4', u'\u20AC', u'\u03A9', u'\u0160'}) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(QChar(c)));
        QCoreApplication::sendEvent(Keyboard(), &press);
    }
    EXPECT_EQ(txtB.Text.Get(), "\xE4\x80\x8A");
    // Composed characters go through the handler one by one.
    std::string offered;
    txtB.OnKeyPress = [&](int& character) {
        offered += static_cast<char>(character);
        if (character == '-') character = 0;
    };
    QInputMethodEvent composed;
    composed.setCommitString(u"e\u0301-\u03A92"_s);
    QCoreApplication::sendEvent(Keyboard(), &composed);
    EXPECT_EQ(offered, "\xE9-2");
    EXPECT_EQ(txtB.Text.Get(), "\xE4\x80\x8A\3512");
}

TEST_F(DesktopInput, WhatIsPastedIsCutToWhatAFieldHolds) {
    Open();
    QClipboard& clipboard = *QGuiApplication::clipboard();
    Focus(txtA);
    clipboard.setText(u"12\r\n3\u03A94"_s);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(txtA.Text.Get(), "1234");
    txtA.SelectAll();
    Key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(clipboard.text(), "1234");
    Key(Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(txtA.Text.Get(), "1234");
    clipboard.setText(QString(20'000, u'7'));
    txtA.Text = "";
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(txtA.Text.Get().size(), 10'000u);

    // Each character is offered: what a box refuses enters by no other way.
    txtB.OnKeyPress = [](int& character) {
        if (character == '5') character = 0;
    };
    QMimeData dropped;
    dropped.setText("55");
    const auto drop = [&](const Control& onto) {
        const QPoint at = WidgetOf(onto)->mapTo(&window->Window(), QPoint(5, 5));
        QDragEnterEvent enter(at, Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window->Window(), &enter);
        QDropEvent event(at, Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window->Window(), &event);
    };
    drop(txtB);
    EXPECT_EQ(Focused(), &txtB);
    EXPECT_EQ(txtB.Text.Get(), "");
    // With Alt a letter is for the menus.
    Key(Qt::Key_X, Qt::AltModifier);
    EXPECT_EQ(txtB.Text.Get(), "");
    txtA.Text = "";
    drop(txtA);
    EXPECT_EQ(txtA.Text.Get(), "55");
    std::string file;
    form.OnDropFile = [&](const std::string& path) { file = path; };
    dropped.setUrls({QUrl::fromLocalFile(u"/tmp/Gr\u00F6\u00DFe.cnc"_s)});
    drop(txtA);
    EXPECT_EQ(file, "/tmp/Gr\xF6\337e.cnc");
    EXPECT_EQ(txtA.Text.Get(), "55");
}

TEST_F(DesktopInput, TextAndSelectionGoBothWays) {
    int changes = 0;
    txtA.OnChange = [&] { ++changes; };
    txtNotes.MultiLine = true;
    Open();
    Focus(txtA);
    txtA.Text = "123";
    EXPECT_EQ(txtA.Selection.Get(), (TextSelection{0, 0}));
    txtA.SelectAll();
    EXPECT_EQ(txtA.Text.Get(), "123");
    Type("9");
    EXPECT_EQ(txtA.Text.Get(), "9");
    EXPECT_EQ(txtA.Selection.Get(), (TextSelection{1, 0}));
    Key(Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_EQ(txtA.Selection.Get(), (TextSelection{0, 1, true}));
    EXPECT_EQ(changes, 2);
    // A handler that writes another text has the last word.
    txtB.OnChange = [&] {
        if (txtB.Text == "12") txtB.Text = "1";
    };
    Focus(txtB);
    Type("12");
    EXPECT_EQ(static_cast<QLineEdit*>(WidgetOf(txtB))->text(), "1");

    txtNotes.Text = "one\r\ntwo";
    txtNotes.Selection = TextSelection{5, 3};
    auto& notes = dynamic_cast<QPlainTextEdit&>(*WidgetOf(txtNotes));
    EXPECT_EQ(notes.toPlainText(), "one\ntwo");
    EXPECT_EQ(notes.textCursor().selectedText(), "two");
    Focus(txtNotes);
    Type("x");
    Key(Qt::Key_Return);
    Type("y");
    EXPECT_EQ(txtNotes.Text.Get(), "one\r\nx\r\ny");
    EXPECT_EQ(txtNotes.Selection.Get(), (TextSelection{9, 0}));
}

TEST_F(DesktopInput, ALeftFieldCanKeepTheFocus) {
    txtB.TabIndex = 9;
    std::string told;
    txtA.OnLostFocus = [&] { told += "A lost "; };
    chkBox.OnGotFocus = [&] { told += "box got "; };
    bool clicked = false;
    cmdGo.OnClick = [&] { clicked = true; };
    Open();
    // The first of the order has it where no code has given it.
    EXPECT_EQ(Focused(), &txtA);
    Key(Qt::Key_Tab);
    EXPECT_EQ(Focused(), &chkBox);
    EXPECT_EQ(told, "A lost box got ");
    Key(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), WidgetOf(txtA));

    // A press on the button is used up where the field takes the focus back.
    txtA.OnLostFocus = [&] { Focus(txtA); };
    Focus(txtA);
    QTest::mouseClick(WidgetOf(cmdGo), Qt::LeftButton);
    EXPECT_EQ(Focused(), &txtA);
    EXPECT_FALSE(clicked);
    txtA.OnLostFocus = nullptr;
    QTest::mouseClick(WidgetOf(cmdGo), Qt::LeftButton);
    EXPECT_EQ(Focused(), &cmdGo);
    EXPECT_TRUE(clicked);
    // The keys of a hidden control go to the form alone, and come back with it.
    int keys = 0;
    form.OnKeyDown = [&](int, int) { ++keys; };
    cmdGo.Visible = false;
    QTest::qWait(1);
    clicked = false;
    Key(Qt::Key_Return);
    EXPECT_EQ(keys, 1);
    EXPECT_FALSE(clicked);
    cmdGo.Visible = true;
    QTest::qWait(1);
    Key(Qt::Key_Return);
    EXPECT_TRUE(clicked);
}

TEST_F(DesktopInput, ButtonsAreClickedByHand) {
    std::string told;
    chkBox.OnClick = [&] { told += "box" + std::to_string(chkBox.Value) + " "; };
    optTwo.OnClick = [&] { told += optOne.Value ? "both " : "two "; };
    cmdGo.OnClick = [&] { told += "go "; };
    optOne.Value = true;
    Open();
    QTest::mouseClick(WidgetOf(chkBox), Qt::LeftButton, {}, {8, 10});
    QTest::mouseClick(WidgetOf(optTwo), Qt::LeftButton, {}, {8, 10});
    QTest::mouseClick(WidgetOf(optTwo), Qt::LeftButton, {}, {8, 10});
    EXPECT_TRUE(optTwo.Value);
    EXPECT_TRUE(static_cast<QAbstractButton*>(WidgetOf(optTwo))->isChecked());
    QTest::mouseClick(WidgetOf(cmdGo), Qt::LeftButton);
    cmdGo.Enabled = false;
    QTest::mouseClick(WidgetOf(cmdGo), Qt::LeftButton);
    EXPECT_EQ(told, "box1 two two go ");
}

}  // namespace
}  // namespace kvt::test
