#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QTest>

#include "basic/run_time_error.h"
#include "desktop/desktop_port.h"
#include "desktop/desktop_system.h"

namespace kvt::test {
namespace {

// Both ends of a line: a port of the toolkit, and the other end as a handle.
class DesktopPortTest : public ::testing::Test {
protected:
    DesktopPortTest() : other(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK)) {
        grantpt(other);
        unlockpt(other);
        path = ptsname(other);
        qputenv("KVT_PORTS", QByteArray::fromStdString("/no/such/device:" + path));
    }
    ~DesktopPortTest() override {
        if (other >= 0) close(other);
        qunsetenv("KVT_PORTS");
    }
    std::string Arrived() {
        char piece[4096];
        const ssize_t size = read(other, piece, sizeof piece);
        return {piece, static_cast<std::size_t>(std::max<ssize_t>(0, size))};
    }
    int other;
    std::string path;
    DesktopFocus focus;
    DesktopSystem system{focus};
};

TEST_F(DesktopPortTest, LinesLeaveAtTheirPaceAndCharactersArrive) {
    DesktopPort port;
    std::vector<CommEvent> events;
    port.OnComm = [&](CommEvent event) { events.push_back(event); };
    EXPECT_THROW(port.Open(), RunTimeError);
    EXPECT_EQ(port.DeviceName(2), path);
    port.SetCommPort(2);
    port.SetSettings("2400,N,8,1");
    port.Open();
    EXPECT_THROW(port.Open(), RunTimeError);

    // 48 characters at 240 a second.
    QElapsedTimer time;
    time.start();
    port.Output(std::string(46, 'x') + "\r\n");
    port.SetSettings("2400,E,7,1");
    EXPECT_GT(port.Unsent(), 0);
    EXPECT_TRUE(system.WaitUntil([&] { return port.MillisecondsLeft(); }));
    EXPECT_GE(time.elapsed(), 140);
    EXPECT_EQ(Arrived(), std::string(46, 'x') + "\r\n");
    // The settings have waited; a pseudo-terminal refuses them, and goes on.
    QTest::qWait(30);
    EXPECT_EQ(events, (std::vector{CommEvent::Refused, CommEvent::Send}));

    const std::string noise("\x00\xFF\x80\r\nM", 6);
    ASSERT_EQ(write(other, noise.data(), noise.size()), 6);
    std::string got;
    port.OnComm = [&](CommEvent event) {
        if (event != CommEvent::Receive) return;
        got += port.Input();
        // More comes while a handler waits, in a box of the program for instance.
        if (got.size() != noise.size()) return;
        EXPECT_EQ(write(other, "more", 4), 4);
        EXPECT_TRUE(QTest::qWaitFor([&] { return got.size() > noise.size(); }, 2000));
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return got.size() == noise.size() + 4; }, 2000));
    EXPECT_EQ(got, noise + "more");
}

TEST_F(DesktopPortTest, AClosingHoldsNothingUpAndCutsNothingOff) {
    const std::string line = std::string(46, 'x') + "\r\n";
    {
        DesktopPort port;
        port.SetCommPort(2);
        port.SetSettings("2400,N,8,1");
        port.Open();
        int told = 0;
        port.OnComm = [&](CommEvent) { ++told; };
        QElapsedTimer time;
        time.start();
        port.Output(line);
        port.Close();
        EXPECT_LT(time.elapsed(), 100);
        EXPECT_FALSE(port.IsOpen());
        EXPECT_THROW(port.Output("x"), RunTimeError);
        EXPECT_THROW(port.Input(), RunTimeError);
        EXPECT_EQ(write(other, "late", 4), 4);
        QTest::qWait(20);
        // Opened meanwhile it goes on where it was.
        port.Open();
        EXPECT_GT(port.MillisecondsLeft(), 50);
        EXPECT_EQ(told, 0);
        port.Close();
        // The device is free when the last character has left.
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                DesktopPort second;
                second.SetCommPort(2);
                try {
                    second.Open();
                } catch (const RunTimeError&) {
                    return false;
                }
                return true;
            },
            1000));
        EXPECT_GE(time.elapsed(), 190);
        EXPECT_EQ(told, 0);
        EXPECT_EQ(Arrived(), line);
        port.Open();
        port.Output(line);
        port.Close();
    }
    EXPECT_EQ(Arrived(), line);
}

TEST_F(DesktopPortTest, AVanishedPortEndsTheWaitAndIsTold) {
    DesktopPort port;
    int vanished = 0;
    port.OnComm = [&](CommEvent event) { vanished += event == CommEvent::Vanished ? 1 : 0; };
    port.SetCommPort(2);
    port.Open();
    port.Output(std::string(3000, 'x'));
    close(std::exchange(other, -1));
    QElapsedTimer time;
    time.start();
    EXPECT_TRUE(system.WaitUntil([&] { return port.MillisecondsLeft(); }));
    EXPECT_LT(time.elapsed(), 5000);
    EXPECT_TRUE(QTest::qWaitFor([&] { return vanished > 0; }, 2000));
    QTest::qWait(50);
    EXPECT_EQ(vanished, 1);
    EXPECT_FALSE(port.IsOpen());
    EXPECT_THROW(port.Open(), RunTimeError);
}

}  // namespace
}  // namespace kvt::test
