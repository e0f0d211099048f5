#include "platform/keyboard.h"

#include <gtest/gtest.h>

#include "headless/faulty_platform.h"
#include "platform/keys.h"
#include "support/key_form.h"

namespace kvt::test {

namespace {

void PressAll(KeyForm& keys, MemorySystem& system, std::string_view sequence) {
    for (const std::string& key : KeysIn(sequence)) {
        if (key[0] == '>') {
            keys.Platform.Focus.SetFocus(keys.Named(key.substr(1)));
        } else if (key.size() == 1) {
            system.Type(key[0]);
        } else {
            const KeyStroke stroke = *KeyNamed(key);
            system.Press(stroke.Key, stroke.Held);
        }
    }
}

}  // namespace

TEST(KeyboardTest, KeysDoWhatADesktopsUserExpects) {
    MemoryPlatform platform;
    KeyForm keys(platform.Services);
    for (const KeyCase& one : KeyCases()) {
        keys.Reset();
        PressAll(keys, platform.System, one.Keys);
        EXPECT_EQ(keys.Summary(), one.Summary) << one.Keys;
    }
}

TEST(KeyboardTest, APageIsWhatIsInSight) {
    MemoryPlatform platform;
    KeyForm keys(platform.Services);
    keys.lstCodes.SetEntriesInSight(7);
    keys.lvRows.SetRowsInSight(10);
    PressAll(keys, platform.System, ">lstCodes Home PageDown PageDown Up PageUp");
    EXPECT_EQ(keys.Summary(), "lstCodes 5 code0 code6 code12 code11 code5 ");
    PressAll(keys, platform.System, ">lvRows PageDown PageDown Up PageUp");
    EXPECT_EQ(keys.lvRows.SelectedRow(), 10);
    EXPECT_EQ(keys.lvRows.TopRow(), 10);
}

TEST(KeyboardTest, PagesThatLieOverTheRestKeepTheTabKey) {
    MemoryPlatform platform;
    KeyForm keys(platform.Services);
    keys.tabPages.KeepsTab = true;
    for (const char* sequence : {">txtFirst Tab", ">txtA Tab", ">tabPages Tab Tab", ">lvRows Shift+Tab"}) {
        keys.Reset();
        PressAll(keys, platform.System, sequence);
        EXPECT_EQ(keys.Summary(), "tabPages 0 ") << sequence;
    }
    PressAll(keys, platform.System, ">txtFirst Ctrl+Tab Tab");
    EXPECT_EQ(keys.Summary(), "txtSecond | page1 ");
    keys.tabPages.Visible = false;
    PressAll(keys, platform.System, ">txtA Tab");
    EXPECT_EQ(keys.Summary(), "txtB | page1 ");
}

TEST(KeyboardTest, WhatIsTypedAfterAPauseBeginsAnew) {
    MemoryPlatform platform;
    KeyForm keys(platform.Services);
    PressAll(keys, platform.System, ">lstCodes m 0");
    platform.System.Advance(1001);
    PressAll(keys, platform.System, "g");
    EXPECT_EQ(keys.Summary(), "lstCodes 0 code3 code0 ");
}

TEST(KeyboardTest, AMenuThatIsOpenHasTheKeys) {
    MemoryPlatform platform;
    KeyForm keys(platform.Services);
    platform.Services.System.ShowPopupMenu(keys.mnuFile);
    PressAll(keys, platform.System, "a Ctrl+O Tab Esc b");
    EXPECT_EQ(keys.Summary(), "txtA B| ");
}

// The keys of a control that a handler takes away end there.
TEST(KeyboardTest, AControlThatGoesAwayTakesNothingMore) {
    MemoryPlatform platform;
    KeyForm keys(platform.Services);
    keys.txtA.OnKeyDown = [&](int, int) { keys.txtA.Visible = false; };
    PressAll(keys, platform.System, "a b Tab");
    keys.txtA.Visible = true;
    EXPECT_EQ(keys.txtA.Text.Get(), "");
    EXPECT_EQ(keys.Summary(), "txtB | ");
}

TEST(KeyboardTest, AFieldHoldsWhatItCan) {
    FaultyPlatform platform;
    KeyForm keys(platform.Services);
    platform.Clipboard.Content = std::string(LongestLine + 5, '7') + "\r\n";
    PressAll(keys, platform.System, ">txtFirst 1 Ctrl+V 2");
    EXPECT_EQ(keys.txtFirst.Text.Get().size(), LongestLine);
    platform.Faults.Fail("clipboard", 1);
    PressAll(keys, platform.System, "Ctrl+A Ctrl+X");
    EXPECT_EQ(keys.txtFirst.Text.Get().size(), LongestLine);
    PressAll(keys, platform.System, "Ctrl+X Ctrl+Z");
    EXPECT_EQ(keys.txtFirst.Text.Get().size(), LongestLine);
}

}  // namespace kvt::test
