#include "headless/faulty_platform.h"

#include <gtest/gtest.h>

namespace kvt::test {

namespace {

struct Window {
    Form frmTest{"frmTest"};
    Frame frBox{frmTest, "frBox"};
    TextBox txtA{frmTest, "txtA"};
    TextBox txtB{frmTest, "txtB"};
    FileDialog dlgFile{frmTest, "dlgFile"};
};

}  // namespace

TEST(MemoryDialogsTest, AnswersQueueAndTheDefaultFollows) {
    FaultyPlatform platform;
    MemoryDialogs& dialogs = platform.Dialogs;
    std::vector<std::string> unanswered;
    dialogs.OnUnanswered = [&](const MessageBox& box) { unanswered.push_back(box.Text); };
    dialogs.Answers = {Answer::No, Answer::Cancel, Answer::Ok};
    EXPECT_EQ(dialogs.ShowMessage(Question("a?", "A")), Answer::No);
    EXPECT_EQ(dialogs.ShowMessage(Question("b?", "B", Buttons::YesNoCancel)), Answer::Cancel);
    EXPECT_EQ(dialogs.ShowMessage(Notice("c", "C", Icon::Critical)), Answer::Ok);
    EXPECT_TRUE(unanswered.empty());
    EXPECT_EQ(dialogs.ShowMessage(Notice("d")), Answer::Ok);
    EXPECT_EQ(dialogs.ShowMessage(Question("e?", "E")), Answer::Yes);
    EXPECT_EQ(dialogs.ShowMessage(Question("f?", "F", Buttons::YesNoCancel)), Answer::Yes);
    EXPECT_EQ(unanswered, (std::vector<std::string>{"d", "e?", "f?"}));
    ASSERT_EQ(dialogs.Shown.size(), 6u);
    EXPECT_EQ(dialogs.Shown[2].Text, "c");
    EXPECT_EQ(dialogs.Shown[2].Title, "C");
    EXPECT_EQ(dialogs.Shown[2].Picture, Icon::Critical);
}

TEST(MemoryDialogsTest, AFileDialogKeepsItsNameWhenCancelled) {
    FaultyPlatform platform;
    Window window;
    FileDialog& dialog = window.dlgFile;
    dialog.FileName = "C:\\cnc\\first.cnc";
    EXPECT_FALSE(platform.Dialogs.ShowOpen(dialog));  // nothing queued
    platform.Dialogs.FileAnswers = {{true, "ignored"}, {false, "/cnc/second.cnc"}, {true, ""}, {false, ""}};
    EXPECT_FALSE(platform.Dialogs.ShowSave(dialog));
    EXPECT_EQ(dialog.FileName, "C:\\cnc\\first.cnc");
    EXPECT_EQ(dialog.FileTitle(), "first.cnc");
    EXPECT_TRUE(platform.Dialogs.ShowSave(dialog));
    EXPECT_EQ(dialog.FileName, "/cnc/second.cnc");
    EXPECT_EQ(dialog.FileTitle(), "second.cnc");
    dialog.CancelError = true;
    try {
        platform.Dialogs.ShowOpen(dialog);
        ADD_FAILURE() << "no cancel error";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number, 32755);
        EXPECT_EQ(error.Description, "Cancel was selected");
    }
    EXPECT_EQ(dialog.FileName, "/cnc/second.cnc");
    EXPECT_TRUE(platform.Dialogs.ShowOpen(dialog));
    EXPECT_EQ(dialog.FileName, "");
}

TEST(MemoryClipboardTest, EachCallCanBeMadeToFail) {
    FaultyPlatform platform;
    ClipboardService& clipboard = platform.Services.Clipboard;
    clipboard.SetText("one");
    EXPECT_EQ(clipboard.GetText(), "one");
    platform.Faults.Fail("clipboard", 2);
    clipboard.Clear();
    EXPECT_EQ(platform.Clipboard.Content, "");
    EXPECT_THROW(clipboard.SetText("two"), RunTimeError);
    EXPECT_EQ(platform.Clipboard.Content, "");
    clipboard.SetText("three");
    platform.Faults.Fail("clipboard", 1);
    EXPECT_THROW(clipboard.GetText(), RunTimeError);
    EXPECT_EQ(clipboard.GetText(), "three");
}

TEST(MemoryFocusTest, TheFocusGoesOnlyWhereKeysCanGo) {
    MemoryFocus focus;
    Window window;
    std::string told;
    for (TextBox* box : {&window.txtA, &window.txtB}) {
        box->OnGotFocus = [&told, box] { told += "+" + box->Name() + " "; };
        box->OnLostFocus = [&told, box] { told += "-" + box->Name() + " "; };
    }
    EXPECT_EQ(focus.Focused(), nullptr);
    focus.SetFocus(window.txtA);
    focus.SetFocus(window.txtA);
    focus.SetFocus(window.frmTest);
    EXPECT_EQ(told, "+txtA ");
    window.txtB.Enabled = false;
    focus.SetFocus(window.txtB);
    window.txtB.Enabled = true;
    window.txtB.Container = &window.frBox;
    window.frBox.Visible = false;
    focus.SetFocus(window.txtB);
    EXPECT_EQ(focus.Focused(), &window.txtA);
    window.frBox.Visible = true;
    focus.SetFocus(window.txtB);
    EXPECT_EQ(told, "+txtA -txtA +txtB ");
    // A handler that refuses the loss brings the focus back; the other box never gets it.
    told.clear();
    window.txtB.OnLostFocus = [&] { focus.SetFocus(window.txtB); };
    focus.SetFocus(window.txtA);
    EXPECT_EQ(focus.Focused(), &window.txtB);
    EXPECT_EQ(told.find("+txtA"), std::string::npos);
}

}  // namespace kvt::test
