#include <fcntl.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "basic/text.h"
#include "console/played_machine.h"
#include "console/serial_commands.h"
#include "support/workbench_fixture.h"

namespace kvt::test {

namespace {

namespace fs = std::filesystem;

// The lines that go over the wire, by the plain rule.
std::string Expected(const std::string& file, bool filter) {
    std::string expected;
    bool begun = !filter;
    for (std::string_view line : Split(file, "\r\n")) {
        if (!begun && line != "%") continue;
        if (!line.empty() && line[0] != ';')
            expected += std::string(filter ? line.substr(0, 30) : line) + "\r\n";
        begun = true;
    }
    return expected;
}

constexpr double speedUp = 1000;

// Until nothing waits to be read at an end of a line.
void WaitUntilTaken(int end) {
    for (int calm = 0; calm < 5;) {
        int left = 0;
        ioctl(end, FIONREAD, &left);
        calm = left == 0 ? calm + 1 : 0;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

}  // namespace

TEST(SerialTest, EverySampleCrossesAPseudoTerminalByteForByte) {
    constexpr const char* settings[] = {"110,N,8,1",  "300,N,8,1",  "600,N,8,1", "1200,N,8,2",
                                        "2400,N,8,1", "4800,N,8,1", "9600,N,8,1"};
    std::size_t next = 0;
    for (const std::string& sample : SampleFiles()) {
        for (const bool filter : {true, false}) {
            const PseudoTerminal terminal;
            SerialWorkbench workbench(terminal.Path(), settings[next++ % std::size(settings)], speedUp);
            std::string name = sample;
            ASSERT_EQ(workbench.Workbench->Reader.LoadFile(name), LoadResult::Loaded);
            workbench.Workbench->Writer.AddEndCode();
            workbench.Workbench->Transfer.TX.chkFilter.Value = filter ? 1 : 0;
            const std::string file = workbench.Workbench->Writer.GenerateAll();
            const std::string expected = Expected(file, filter);
            workbench.Port.Open();
            std::string arrived;
            bool over = false;
            workbench.System.OnLook = [&] {
                char piece[4096];
                const ssize_t size = read(terminal.Handle(), piece, sizeof piece);
                if (size > 0) arrived.append(piece, static_cast<std::size_t>(size));
            };
            workbench.Workbench->Transmit.mnuTX_Click();
            workbench.System.OnLook();
            EXPECT_TRUE(arrived == expected) << sample << (filter ? " filtered" : "");
            if (!filter) continue;

            PlayedMachine::Line line;
            line.Handle = terminal.Handle();
            line.SpeedUp = speedUp;
            PlayedMachine machine(line);
            std::thread other([&] {
                machine.SendProgram(file);
                over = true;
            });
            workbench.System.OnLook = nullptr;
            const std::string& received = workbench.Workbench->Transfer.txtRX.Text.Get();
            for (int looks = 0; received.size() < expected.size() && looks < 10'000; ++looks)
                workbench.Port.Serve(5);
            other.join();
            EXPECT_TRUE(over && received == expected) << sample;
            // It comes into the editor as it went out, but for the notes and comments.
            workbench.Workbench->Received.cmdReceiveImport_Click();
            EXPECT_TRUE(Expected(workbench.Workbench->Writer.GenerateAll(), true) == expected) << sample;
        }
    }
}

TEST(SerialTest, ThePlayedMachineTakesUpToTheUnitsMarkAndCanDrop) {
    const PseudoTerminal terminal;
    SerialWorkbench workbench(terminal.Path(), "300,N,8,1", speedUp);
    workbench.Port.Open();
    PlayedMachine::Line line;
    line.Handle = terminal.Handle();
    line.SpeedUp = speedUp;
    std::string received;
    workbench.Port.Output("notes with M\r\n%\r\n    00M30\r\n   M\r\nmore");
    EXPECT_EQ(PlayedMachine(line).Receive(received), TransferEnd::Completed);
    EXPECT_EQ(received, "notes with M\r\n%\r\n    00M30\r\n   M\r\n");
    line.DropAfter = 3;
    workbench.Port.Output("12345");
    received.clear();
    EXPECT_EQ(PlayedMachine(line).Receive(received), TransferEnd::CutOff);

    using Case = std::tuple<const char*, bool, bool>;
    for (const auto& [text, inProgram, ends] :
         {Case{"   M", true, true}, Case{"   \"I", true, true}, Case{"M-", false, true},
          Case{"    00M30", true, false}, Case{"MM", true, false}, Case{"", true, false},
          Case{"    00 00  1000    100          Mill", true, true},
          Case{"a note of more than thirty letters M", false, false}})
        EXPECT_EQ(EndsReception(text, inProgram), ends) << text;
}

TEST(SerialTest, ADeviceThatTakesNothingEndsTheSending) {
    const PseudoTerminal terminal;
    SerialWorkbench workbench(terminal.Path(), "9600,N,8,1", speedUp);
    workbench.Port.LongestStall = 50;
    workbench.Port.Open();
    // More than the driver takes from the one end while nobody reads at the other one.
    workbench.Port.Output(std::string(1'000'000, 'x'));
    EXPECT_TRUE(workbench.System.WaitUntil([&] { return workbench.Port.MillisecondsLeft(); }));
    EXPECT_FALSE(workbench.Port.IsOpen());
    EXPECT_EQ(workbench.Dialogs.Shown.size(), 1u);

    LineWatch watch;
    watch.Add(10);
    EXPECT_EQ(watch.Stalled(0, 10, 300), 0);
    EXPECT_EQ(watch.Stalled(200, 10, 100), 0);
    EXPECT_EQ(watch.Stalled(450, 10, 0), 150);
    // The next line is given when one has left: as many wait as before, and yet the line has moved.
    watch.Add(10);
    EXPECT_EQ(watch.Stalled(500, 10, 0), 0);
}

// Also what the user's surroundings end; where its file cannot be written any more, it lies in the folder of data.
TEST(SerialTest, WhatHasComeIsWrittenWhateverEndsTheReception) {
    const TemporaryFolder folder;
    setenv("XDG_DATA_HOME", (folder.Path() / "user").c_str(), 1);
    const struct {
        int Signal;
        bool FolderGoes;
    } cases[] = {{SIGINT, false}, {SIGHUP, false}, {SIGXFSZ, false}, {SIGTERM, true}};
    // One that comes before the reception looks for it waits.
    sigset_t signals = {}, before = {};
    for (const auto& one : cases) sigaddset(&signals, one.Signal);
    pthread_sigmask(SIG_BLOCK, &signals, &before);
    for (const auto& one : cases) {
        const PseudoTerminal terminal;
        const fs::path target = folder.Path() / "target";
        fs::create_directory(target);
        const int look = open(terminal.Path().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
        ASSERT_GE(look, 0);
        std::thread user([&, receiver = pthread_self()] {
            const std::string text("   N` G`\r\n    00M30\0\0\r\n   M\r\n", 29);
            EXPECT_EQ(write(terminal.Handle(), text.data(), text.size()), 29);
            WaitUntilTaken(look);
            if (one.FolderGoes) fs::remove(target);
            pthread_kill(receiver, one.Signal);
        });
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        SerialOptions options;
        options.File = target / "got.cnc";
        options.Port = terminal.Path();
        const int result = ReceiveFile(options);
        user.join();
        close(look);
        testing::internal::GetCapturedStdout();
        const std::string told = testing::internal::GetCapturedStderr();
        EXPECT_EQ(result, one.FolderGoes ? 2 : 0) << one.Signal << told;
        const std::size_t kept = told.find(folder.Path() / "user");
        ASSERT_EQ(kept != std::string::npos, one.FolderGoes) << told;
        const std::string file = one.FolderGoes ? told.substr(kept, told.find('\n') - kept) : options.File;
        EXPECT_NE(DiskFiles().ReadWhole(file).find("00M30\r\n   M"), std::string::npos) << one.Signal;
        fs::remove_all(target);
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

TEST(SerialTest, ADeviceBelongsToOneProgram) {
    const PseudoTerminal terminal;
    PosixPort first({terminal.Path()});
    PosixPort second({terminal.Path(), "/dev/null", "/no/such/device"});
    first.Open();
    for (int number = 1; number <= 4; ++number) {
        second.SetCommPort(number);
        EXPECT_THROW(second.Open(), RunTimeError) << number;
    }
    EXPECT_THROW(second.SetCommPort(5), RunTimeError);
    EXPECT_THROW(second.Output("x"), RunTimeError);
    // A pseudo-terminal has eight bits and no parity.
    std::vector<CommEvent> events;
    first.OnComm = [&](CommEvent event) { events.push_back(event); };
    first.SetSettings("300,E,7,2");
    EXPECT_EQ(events, std::vector<CommEvent>{CommEvent::Refused});
}

}  // namespace kvt::test
