#include "console/played_machine.h"

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <thread>

#include "basic/run_time_error.h"
#include "system/posix_port.h"

namespace kvt {

namespace {

constexpr double longestRest = 20;  // milliseconds
constexpr double settling = 1000;   // so long the other end is held before it counts as open

double Now() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count();
}

void Sleep(double milliseconds) {
    const auto time = std::chrono::duration<double, std::milli>(std::clamp(milliseconds, 0.0, longestRest));
    std::this_thread::sleep_for(time);
}

}  // namespace

PseudoTerminal::PseudoTerminal() : handle_(posix_openpt(O_RDWR | O_NOCTTY)) {
    if (handle_ < 0 || grantpt(handle_) != 0 || unlockpt(handle_) != 0)
        throw RunTimeError(fault::PortAlreadyOpen);
    path_ = ptsname(handle_);
    fcntl(handle_, F_SETFL, fcntl(handle_, F_GETFL) | O_NONBLOCK);
    fcntl(handle_, F_SETFD, FD_CLOEXEC);
    // Opened and closed once, the other end tells from now on whether somebody holds it, and passes bytes as they
    // are.
    const int other = open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (other < 0) return;
    SetUpLine(other, {});
    close(other);
}

PseudoTerminal::~PseudoTerminal() { close(handle_); }

PlayedMachine::PlayedMachine(Line line) : line_(line) {
    pace_.SetEach(line_.Settings.CharacterMilliseconds() / line_.SpeedUp);
}

bool PlayedMachine::OtherEndIsOpen() const {
    pollfd end = {line_.Handle, 0, 0};
    return poll(&end, 1, 0) == 0 || (end.revents & POLLHUP) == 0;
}

// How many characters may pass now; at least one, for which it waits.
std::size_t PlayedMachine::Due() {
    while (Now() < pace_.Next() && !Stops()) Sleep(pace_.Next() - Now());
    return std::max<std::size_t>(1, pace_.Due(Now()));
}

bool PlayedMachine::CountPassed(std::size_t more) {
    passed_ += static_cast<long>(more);
    pace_.Pass(more);
    return line_.DropAfter >= 0 && passed_ >= line_.DropAfter;
}

TransferEnd PlayedMachine::Receive(std::string& received) {
    ControlReception reception;
    for (;;) {
        const std::size_t due = Due();
        if (Stops()) return TransferEnd::Stopped;
        char piece[64];
        const ssize_t size = read(line_.Handle, piece, std::min(due, sizeof piece));
        if (size < 0 && errno != EAGAIN && errno != EINTR && !(line_.Pseudo && errno == EIO))
            return TransferEnd::Disconnected;
        if (size == 0 && !line_.Pseudo) return TransferEnd::Disconnected;
        if (size <= 0) {
            Sleep(line_.SpeedUp > 1 ? 1 : longestRest / 4);
            continue;
        }
        received.append(piece, reception.Take({piece, static_cast<std::size_t>(size)}));
        const bool drops = CountPassed(static_cast<std::size_t>(size));
        // The control listens no longer.
        if (reception.HasEnded()) return TransferEnd::Completed;
        if (drops) return TransferEnd::CutOff;
    }
}

TransferEnd PlayedMachine::AwaitOtherEnd() {
    for (double since = Now(); Now() - since < settling / line_.SpeedUp;) {
        if (Stops()) return TransferEnd::Stopped;
        if (!OtherEndIsOpen()) since = Now();
        Sleep(longestRest / line_.SpeedUp);
    }
    return TransferEnd::Completed;
}

void PlayedMachine::AwaitRelease() const {
    while (line_.Pseudo && OtherEndIsOpen() && !Stops()) Sleep(longestRest / line_.SpeedUp);
}

TransferEnd PlayedMachine::SendProgram(std::string_view file) {
    if (line_.Pseudo) {
        const TransferEnd awaited = AwaitOtherEnd();
        if (awaited != TransferEnd::Completed) return awaited;
    }
    return Send(ControlSending(file));
}

TransferEnd PlayedMachine::Send(std::string_view text) {
    while (!text.empty()) {
        const std::size_t due = std::min(Due(), text.size());
        if (Stops()) return TransferEnd::Stopped;
        const ssize_t size = write(line_.Handle, text.data(), due);
        if (size < 0 && errno != EAGAIN && errno != EINTR) return TransferEnd::Disconnected;
        if (size <= 0) {
            Sleep(1);
            continue;
        }
        text.remove_prefix(static_cast<std::size_t>(size));
        if (CountPassed(static_cast<std::size_t>(size))) return TransferEnd::CutOff;
    }
    return TransferEnd::Completed;
}

}  // namespace kvt
