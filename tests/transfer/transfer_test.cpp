#include <gmock/gmock.h>

#include <random>

#include "support/workbench_fixture.h"
#include "transfer/outgoing_lines.h"
#include "transfer/port_settings.h"

namespace kvt::test {

namespace {

using ::testing::HasSubstr;

class TransferTest : public WorkbenchFixture {
protected:
    TransferTest() {
        Workbench->Transmit.SettingsFolder = Folder + "/";
        Workbench->Received.SettingsFolder = Folder + "/";
        Platform.Port.Ports = 1;
        Workbench->Port.StartPort();
    }

    std::string Transmit() {
        const std::size_t before = Platform.Port.Sent.size();
        Workbench->Transmit.mnuTX_Click();
        return Platform.Port.Sent.substr(before);
    }
    std::string LastBox() const {
        return Platform.Dialogs.Shown.empty() ? "" : Platform.Dialogs.Shown.back().Text;
    }
    std::string Received() const { return Workbench->Transfer.txtRX.Text.Get(); }
};

}  // namespace

TEST_F(TransferTest, AStopAtAnyMomentLeavesABeginningAndTheUnitsMark) {
    std::mt19937 random(7);
    const auto upTo = [&](std::size_t most) {
        return std::uniform_int_distribution<std::size_t>(0, most)(random);
    };
    for (const char* machine : {"MK2", "MK4", "F1"}) {
        const bool metric = std::string(machine) != "F1";
        Check(machine,
              {{"00", "100"}, {"00", "200", "", "", "", "", "M in a comment"}, {"21"}, {"00", "300"}},
              metric ? "M" : "\"I");
        Workbench->File.txtFileNotes.Text = "notes\r\n;silent\r\n   12 of them\r\n";
        for (int run = 0; run < 340; ++run) {
            Workbench->Transfer.TX.chkFilter.Value = run % 2;
            const std::string whole = Transmit();
            std::size_t lines = 0;
            for (const char c : whole) lines += c == '\n' ? 1 : 0;
            const std::size_t wait = upTo(lines + 1);
            Platform.System.Events.assign(wait, [] {});
            Platform.System.Events.push_back([this] { Workbench->Results.cmdStop.Click(); });
            const std::string sent = Transmit();
            Platform.System.Events.clear();
            if (sent == whole) {
                EXPECT_GE(wait + 1, lines);
                continue;
            }
            // The line on the wire at the stop is the last one.
            std::size_t end = 0;
            for (std::size_t line = 0; line <= wait; ++line) end = whole.find('\n', end) + 1;
            ASSERT_EQ(sent, whole.substr(0, end) + (metric ? "M\r\n" : "\"\r\n"))
                << machine << " wait " << wait;
        }
    }
}

TEST_F(TransferTest, SaysWhatKeepsItFromSending) {
    EXPECT_EQ(Transmit(), "");
    EXPECT_EQ(LastBox(), "No Lines of code present");
    Check("MK4", {{"00"}, {"M30"}});
    Workbench->Port.ComEnabled = false;
    EXPECT_EQ(Transmit(), "");
    EXPECT_EQ(Platform.System.Beeps, 1);
    Workbench->Port.ComEnabled = true;

    // The first line cannot be given: told once, and the others are not tried.
    Platform.Dialogs.Shown.clear();
    Platform.Faults.Fail("port", 1);
    EXPECT_EQ(Transmit(), "");
    EXPECT_EQ(Platform.Dialogs.Shown.size(), 1u);
    EXPECT_FALSE(Platform.Port.IsOpen());
    EXPECT_EQ(Workbench->Transfer.chkEnableCom.Value, 0);
}

TEST_F(TransferTest, AVanishedPortIsToldInEachState) {
    Check("MK4", {{"00"}, {"21"}, {"M30"}});
    const auto back = [this] {
        Platform.Dialogs.Shown.clear();
        Platform.Port.Ports = 1;
        Workbench->Port.SetComEnabled(true);
        ASSERT_TRUE(Platform.Port.IsOpen());
    };
    Platform.Port.Vanish();
    EXPECT_THAT(LastBox(), HasSubstr("has gone"));
    EXPECT_FALSE(Workbench->Port.ComEnabled);

    back();
    // The wait of line 00, the third that is sent.
    Platform.System.Events = {[] {}, [] {}, [this] { Platform.Port.Vanish(); }};
    EXPECT_THAT(Transmit(), ::testing::EndsWith("    00 00                     \r\n"));
    EXPECT_EQ(Platform.Dialogs.Shown.size(), 1u);
    EXPECT_THAT(LastBox(), HasSubstr("The last line sent was:\r\n    00 00"));
    EXPECT_TRUE(Workbench->Modes.ControlsOn());
    EXPECT_FALSE(Workbench->Transfer.frTransmit.Visible);

    // Once, also where Stop has been clicked before.
    back();
    Platform.System.Events = {[] {}, [this] { Workbench->Results.cmdStop.Click(); },
                              [this] { Platform.Port.Vanish(); }};
    Transmit();
    EXPECT_EQ(Platform.Dialogs.Shown.size(), 1u);
    Platform.System.Events.clear();

    back();
    Platform.Port.Receive("half a li");
    Platform.Port.Vanish();
    EXPECT_EQ(Received(), "half a li");
    Workbench->Received.cmdReceiveExit_Click();
    Workbench->Port.ComEnabled = true;
    Platform.Port.Ports = 0;
    Workbench->Received.mnuRX_Click();
    EXPECT_EQ(LastBox(), "port problem");
    EXPECT_FALSE(Workbench->Transfer.frRXcode.Visible);
}

TEST_F(TransferTest, RefusedSettingsAreToldOnceAndEndNothing) {
    Platform.Port.TakesPlainFramesOnly = true;
    Check("MK4", {{"00"}, {"M30"}});
    const std::string plain = Transmit();
    Workbench->Transfer.TX.optDataBits[0].Click();
    Platform.Dialogs.Shown.clear();
    for (int run = 0; run < 3; ++run) {
        EXPECT_EQ(Transmit(), plain);
        Platform.Port.Receive("x");
    }
    ASSERT_EQ(Platform.Dialogs.Shown.size(), 1u);
    EXPECT_THAT(LastBox(), HasSubstr("does not take the settings 300,N,7,1"));
}

TEST_F(TransferTest, TenHoursOfCharactersArriveAsTheyWereSent) {
    std::mt19937 random(11);
    std::string sent;
    for (std::size_t piece = 0; sent.size() < 1'080'000; ++piece) {
        std::string text(1 + random() % 32, '\0');
        for (char& c : text) c = static_cast<char>(piece % 3 == 0 ? random() : " 0123\r\nGM"[random() % 9]);
        ASSERT_TRUE(Platform.Port.Receive(text));
        std::erase(text, '\0');
        sent += text;
    }
    EXPECT_TRUE(Received() == sent);
    EXPECT_THAT(Workbench->Transfer.lblReceived.Caption.Get(),
                HasSubstr(std::to_string(sent.size()) + " characters"));
    // No program: it stays.
    Workbench->Received.cmdReceiveImport_Click();
    EXPECT_TRUE(Workbench->Transfer.frRXcode.Visible && Received() == sent);
}

TEST_F(TransferTest, AnImportLosesNothing) {
    const std::string program = "    N` G`   X `    Z `  F`  H \r\n    00M30\r\n   M\r\n";
    // A scratch file that cannot be written, and one that has gone before it is read.
    for (const int failing : {1, 2}) {
        Platform.Port.Receive("x" + program);
        Workbench->Store.ProgramChanged = true;
        Platform.Faults.Fail("file", failing);
        Workbench->Received.cmdReceiveImport_Click();
        EXPECT_EQ(Received(), "x" + program) << failing;
        EXPECT_TRUE(Workbench->Transfer.frRXcode.Visible && Workbench->Store.ProgramChanged) << failing;
        EXPECT_THAT(LastBox(), HasSubstr(failing == 1 ? "received code is still here" : "cannot be read"));
        Workbench->Received.cmdReceiveExit_Click();
    }
    // The machine sends on while a message is open.
    Platform.Port.Receive("no program");
    Platform.Dialogs.OnUnanswered = [this](const MessageBox&) { Platform.Port.Receive("more"); };
    Workbench->Received.cmdReceiveImport_Click();
    Platform.Dialogs.OnUnanswered = nullptr;
    EXPECT_EQ(Received(), "no programmore");
    EXPECT_TRUE(Workbench->Transfer.frCmdRX.Visible);
    EXPECT_FALSE(Workbench->Modes.ControlsOn());
    Workbench->Received.cmdReceiveExit_Click();

    // What is being sent stays.
    Check("MK4", {{"00"}, {"21"}, {"M30"}});
    Platform.System.Events = {[] {}, [&] { Platform.Port.Receive(program); },
                              [this] { Workbench->Received.cmdReceiveImport_Click(); }};
    Transmit();
    EXPECT_EQ(Platform.System.Beeps, 1);
    EXPECT_EQ(Workbench->Store.LineCount(), 3);
    EXPECT_EQ(Received(), program);
}

TEST_F(TransferTest, AStepRunKeepsItsStopButton) {
    Check("MK4", {{"00"}, {"M30"}});
    bool steps = false, stops = false;
    Platform.System.Events = {[&] {
        Transmit();
        steps = Workbench->Store.EditorRunMode;
        stops = Workbench->Results.cmdStop.Visible;
    }};
    Workbench->Results.cmdRun.Click();
    EXPECT_TRUE(steps && stops);
}

TEST(LineSettingsTest, CharactersTakeTheirBits) {
    EXPECT_DOUBLE_EQ(ParseLineSettings("300,N,8,1").CharacterMilliseconds(), 10 * 1000.0 / 300);
    EXPECT_DOUBLE_EQ(ParseLineSettings("110,e,7,2").CharacterMilliseconds(), 100.0);
    for (const char* wrong : {"", "300", "300,N,8", "300,N,8,1,1", "0,N,8,1", "300,X,8,1", "300,N,6,1",
                              "300,N,8,3", "3e9,N,8,1", "9999999999,N,8,1"})
        EXPECT_THROW(ParseLineSettings(wrong), RunTimeError) << wrong;
}

TEST(OutgoingLinesTest, RowsOfLines) {
    EXPECT_EQ(RowOfLine("   N07 G00", true), 8);
    EXPECT_EQ(RowOfLine("   104 00", false), 105);
    for (const char* other : {"%", "    N` G`", "   M", ""}) EXPECT_EQ(RowOfLine(other, false), 1) << other;
}

}  // namespace kvt::test
