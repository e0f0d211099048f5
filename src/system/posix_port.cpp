#include "system/posix_port.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <utility>

#include "basic/code_page.h"
#include "basic/run_time_error.h"
#include "system/serial_devices.h"

namespace kvt {

namespace {

constexpr double leadTime = 12;  // milliseconds
constexpr double longestRest = 20;
constexpr double closingGrace = 500;

struct Rate {
    int Baud;
    speed_t Speed;
};
constexpr Rate rates[] = {{110, B110},     {300, B300},     {600, B600},      {1200, B1200},
                          {2400, B2400},   {4800, B4800},   {9600, B9600},    {19200, B19200},
                          {38400, B38400}, {57600, B57600}, {115200, B115200}};

bool SetSpeed(termios& state, int baud) {
    const auto* const found =
        std::find_if(std::begin(rates), std::end(rates), [&](const Rate& rate) { return rate.Baud == baud; });
    return found != std::end(rates) && cfsetispeed(&state, found->Speed) == 0 &&
           cfsetospeed(&state, found->Speed) == 0;
}

}  // namespace

bool SetUpLine(int handle, const LineSettings& line) {
    termios state = {};
    if (tcgetattr(handle, &state) != 0) return false;
    cfmakeraw(&state);
    state.c_cflag &= ~static_cast<tcflag_t>(CRTSCTS | CSTOPB | CSIZE | PARENB | PARODD);
    state.c_cflag |= CLOCAL | CREAD | CS8;
    state.c_iflag &= ~static_cast<tcflag_t>(IXON | IXOFF | IXANY);
    const bool rate = SetSpeed(state, line.Baud);
    // What every device takes first, so that it is in order whatever becomes of the rest.
    if (tcsetattr(handle, TCSANOW, &state) != 0) return false;
    if (line.DataBits == 7) state.c_cflag = (state.c_cflag & ~static_cast<tcflag_t>(CSIZE)) | CS7;
    if (line.Parity != 'N') state.c_cflag |= PARENB | (line.Parity == 'O' ? PARODD : 0);
    if (line.StopBits == 2) state.c_cflag |= CSTOPB;
    const bool frame = tcsetattr(handle, TCSANOW, &state) == 0;
    // Some devices take what they do not do, and say so only when they are asked.
    termios held = {};
    constexpr tcflag_t shape = CSIZE | PARENB;
    return tcgetattr(handle, &held) == 0 && frame && rate &&
           (held.c_cflag & shape) == (state.c_cflag & shape);
}

PosixPort::PosixPort(std::vector<std::string> devices, double speedUp)
    : devices_(std::move(devices)), speedUp_(speedUp) {}

PosixPort::~PosixPort() {
    OnComm = nullptr;
    PosixPort::Close();
}

// Milliseconds of the line's own clock.
double PosixPort::Now() const {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count() * speedUp_;
}

void PosixPort::Open() {
    if (IsOpen() || CommPort() > static_cast<int>(devices_.size()))
        throw RunTimeError(fault::PortAlreadyOpen);
    const std::string& device = devices_[static_cast<std::size_t>(CommPort()) - 1];
    received_.clear();
    if (closing_ && device == device_) {
        closing_ = false;
        SettingsChanged();
        return WatchChanged();
    }
    PosixPort::Close();
    if (IsLockedByOther(device)) throw RunTimeError(fault::PortAlreadyOpen);
    const int handle = open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (handle < 0) throw RunTimeError(fault::PortAlreadyOpen);
    if (isatty(handle) == 0 || flock(handle, LOCK_EX | LOCK_NB) != 0 || ioctl(handle, TIOCEXCL) != 0) {
        close(handle);
        throw RunTimeError(fault::PortAlreadyOpen);
    }
    handle_ = handle;
    device_ = device;
    unwritten_.clear();
    pace_.Reset();
    sending_ = false;
    WatchChanged();
    // At once, whatever somebody else has left in the driver: the first byte is to go at the right rate.
    Apply();
}

void PosixPort::Close() {
    if (IsOpen()) BeginClose();
    while (handle_ >= 0) Serve(std::min(Left(), longestRest));
}

void PosixPort::BeginClose() {
    closing_ = true;
    closingEnd_ = Now() + (Left() + closingGrace) * speedUp_;
    LookAfterSending();
    WatchChanged();
}

void PosixPort::Output(std::string_view text) {
    if (!IsOpen()) throw RunTimeError(fault::PortNotOpen);
    pace_.Add(Now(), text.size(), Line());
    watch_.Add(text.size());
    unwritten_ += text;
    sending_ = true;
    // That the device has gone is told by Serve, not to whoever is just sending.
    Write();
    WatchChanged();
}

// Characters that have not yet been given to the line.
std::size_t PosixPort::Waiting() const {
    int inDriver = 0;
    const bool told = ioctl(handle_, TIOCOUTQ, &inDriver) == 0;
    return unwritten_.size() + static_cast<std::size_t>(told ? std::max(0, inDriver) : 0);
}

double PosixPort::Left() const {
    if (handle_ < 0) return 0;
    const double waiting = static_cast<double>(Waiting()) * Line().CharacterMilliseconds();
    return std::max(pace_.Left(Now()), waiting) / speedUp_;
}

double PosixPort::LeadTime() const { return leadTime; }

std::string PosixPort::Input() {
    if (!IsOpen()) throw RunTimeError(fault::PortNotOpen);
    return std::exchange(received_, {});
}

std::string PosixPort::DeviceName(int number) const {
    const bool known = number >= 1 && number <= static_cast<int>(devices_.size());
    return known ? NameFromSystem(devices_[static_cast<std::size_t>(number) - 1]) : std::string();
}

void PosixPort::SettingsChanged() {
    settingsWait_ = Left() > 0;
    if (!settingsWait_ && !vanishing_) Apply();
}

void PosixPort::Apply() {
    settingsWait_ = false;
    if (!SetUpLine(handle_, Line())) Tell(CommEvent::Refused);
}

bool PosixPort::IsStuck() {
    return watch_.Stalled(Now(), Waiting(), pace_.Left(Now())) > LongestStall * speedUp_;
}

void PosixPort::Serve(double milliseconds) {
    pollfd device = {handle_, POLLIN, 0};
    if (HasUnwritten()) device.events |= POLLOUT;
    const bool ready = poll(&device, 1, static_cast<int>(milliseconds)) > 0;
    if (handle_ < 0) return;
    const bool came = ready && (device.revents & POLLIN) != 0;
    const bool gone = ready && !came && (device.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
    if (came) Receive();
    if (gone || !Write()) return Vanish();
    LookAfterSending();
    WatchChanged();
}

void PosixPort::LookAfterSending() {
    if (closing_ && (Left() <= 0 || Now() >= closingEnd_)) return Release();
    if (!IsOpen() || !sending_) return;
    if (IsStuck()) return Vanish();
    if (Left() > 0) return;
    sending_ = false;
    if (settingsWait_) SettingsChanged();
    Tell(CommEvent::Send);
}

// False where the device has gone.
bool PosixPort::Write() {
    if (handle_ < 0 || unwritten_.empty()) return true;
    const ssize_t written = write(handle_, unwritten_.data(), unwritten_.size());
    if (written > 0) unwritten_.erase(0, static_cast<std::size_t>(written));
    return written >= 0 || errno == EAGAIN || errno == EINTR;
}

// What comes while it closes is for nobody.
void PosixPort::Receive() {
    char piece[4096];
    const ssize_t size = read(handle_, piece, sizeof piece);
    if (size < 0 && (errno == EAGAIN || errno == EINTR)) return;
    if (size <= 0) return Vanish();
    if (closing_) return;
    Keep({piece, static_cast<std::size_t>(size)});
    Tell(CommEvent::Receive);
}

void PosixPort::Keep(std::string_view piece) {
    received_ += piece;
    arrived_ += static_cast<long long>(piece.size());
}

// What it has still brought is told before it is closed.
void PosixPort::Vanish() {
    if (closing_) return Release();
    if (!IsOpen() || vanishing_) return;
    vanishing_ = true;
    char piece[4096];
    for (ssize_t size = 1; size > 0;) {
        size = read(handle_, piece, sizeof piece);
        if (size > 0) Keep({piece, static_cast<std::size_t>(size)});
    }
    if (!received_.empty()) Tell(CommEvent::Receive);
    vanishing_ = false;
    if (handle_ < 0) return;
    Release();
    Tell(CommEvent::Vanished);
}

// What the driver still holds is given up, so that the system does not wait for a device that takes nothing.
void PosixPort::Release() {
    const int handle = std::exchange(handle_, -1);
    closing_ = false;
    sending_ = false;
    settingsWait_ = false;
    unwritten_.clear();
    WatchChanged();
    tcflush(handle, TCOFLUSH);
    ioctl(handle, TIOCNXCL);
    close(handle);
}

}  // namespace kvt
