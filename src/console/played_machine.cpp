#include "console/played_machine.h"

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <thread>

#include "basic/line_end.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "system/posix_port.h"
#include "transfer/outgoing_lines.h"

namespace kvt {

namespace {

constexpr std::size_t commentPosition = 30;
// What the control's own buffer holds.
constexpr double mostAtOnce = 16;
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

bool EndsReception(std::string_view line, bool inProgram) {
    const std::string_view mark = Trim(line);
    const bool hasOrientation = mark.size() == 2 && (mark[1] == 'I' || mark[1] == '-');
    if ((mark.size() == 1 || hasOrientation) && (mark[0] == 'M' || mark[0] == '"')) return true;
    return inProgram && line.find('M', commentPosition) != std::string_view::npos;
}

bool PlayedMachine::OtherEndIsOpen() const {
    pollfd end = {line_.Handle, 0, 0};
    return poll(&end, 1, 0) == 0 || (end.revents & POLLHUP) == 0;
}

// How many characters may pass now; at least one, for which it waits.
std::size_t PlayedMachine::Due() {
    const double each = line_.Settings.CharacterMilliseconds() / line_.SpeedUp;
    while (Now() < next_ && !Stops()) Sleep(next_ - Now());
    next_ = std::max(next_, Now() - mostAtOnce * each);
    return 1 + static_cast<std::size_t>(std::max(0.0, (Now() - next_) / each));
}

bool PlayedMachine::CountPassed(std::size_t more) {
    passed_ += static_cast<long>(more);
    next_ += static_cast<double>(more) * line_.Settings.CharacterMilliseconds() / line_.SpeedUp;
    return line_.DropAfter >= 0 && passed_ >= line_.DropAfter;
}

TransferEnd PlayedMachine::Receive(std::string& received) {
    std::size_t lineStart = 0;
    bool inProgram = false;
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
        received.append(piece, static_cast<std::size_t>(size));
        const bool drops = CountPassed(static_cast<std::size_t>(size));
        for (std::size_t end = received.find('\n', lineStart); end != std::string::npos;
             end = received.find('\n', lineStart)) {
            std::string_view line = std::string_view(received).substr(lineStart, end - lineStart);
            if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
            if (EndsReception(line, inProgram)) {
                // The control listens no longer.
                received.resize(end + 1);
                return TransferEnd::Completed;
            }
            if (line.substr(0, 1) == "%") inProgram = true;
            lineStart = end + 1;
        }
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
    OutgoingLines lines(file, true);
    std::string text;
    for (std::string line; lines.Next(line);) text.append(line).append(LineEnd);
    return Send(text);
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
