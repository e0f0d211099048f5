#include "desktop/desktop_port.h"

#include <sys/ioctl.h>
#include <termios.h>

#include <QSerialPortInfo>
#include <QThread>
#include <algorithm>

#include "basic/run_time_error.h"
#include "desktop/text.h"

namespace kvt {

namespace {

constexpr double lead = 12;  // milliseconds; less than a look at the events may take
constexpr double longestStall =
    5'000;  // so far behind its time a device may take nothing before it counts as gone
constexpr double longestRest = 1000;
constexpr double closingGrace = 500;

QStringList NamedDevices() {
    const QStringList named = qEnvironmentVariable("KVT_PORTS").split(':', Qt::SkipEmptyParts);
    return named.mid(0, PortCount);
}

QStringList FoundDevices() {
    QList<QSerialPortInfo> found = QSerialPortInfo::availablePorts();
    const auto isUsb = [](const QSerialPortInfo& info) { return info.hasVendorIdentifier(); };
    std::stable_sort(found.begin(), found.end(), [&](const QSerialPortInfo& a, const QSerialPortInfo& b) {
        if (isUsb(a) != isUsb(b)) return isUsb(a);
        return a.portName().localeAwareCompare(b.portName()) < 0;
    });
    QStringList devices;
    for (const QSerialPortInfo& info : found.mid(0, PortCount)) devices += info.systemLocation();
    return devices;
}

QStringList Devices() { return qEnvironmentVariableIsSet("KVT_PORTS") ? NamedDevices() : FoundDevices(); }

QSerialPort::Parity ParityOf(const LineSettings& line) {
    return line.Parity == 'E'   ? QSerialPort::EvenParity
           : line.Parity == 'O' ? QSerialPort::OddParity
                                : QSerialPort::NoParity;
}

}  // namespace

DesktopPort::DesktopPort() : devices_(Devices()) {
    clock_.start();
    sending_.setTimerType(Qt::PreciseTimer);
    sending_.setSingleShot(true);
    connect(&sending_, &QTimer::timeout, this, [this] { LookAfterSending(); });
    // By way of the event loop: what a handler waits for may be more characters.
    connect(
        &port_, &QSerialPort::readyRead, this,
        [this] {
            if (IsOpen() && port_.bytesAvailable() > 0) Tell(CommEvent::Receive);
        },
        Qt::QueuedConnection);
    connect(&port_, &QSerialPort::errorOccurred, this, [this](QSerialPort::SerialPortError error) {
        const bool fatal = error == QSerialPort::ResourceError || error == QSerialPort::WriteError ||
                           error == QSerialPort::ReadError;
        if (!fatal || !IsOpen()) return;
        gone_ = true;
        QMetaObject::invokeMethod(
            this, [this] { Vanished(); }, Qt::QueuedConnection);
    });
}

DesktopPort::~DesktopPort() {
    OnComm = nullptr;
    Close();
}

void DesktopPort::Open() {
    devices_ = Devices();
    if (port_.isOpen() || CommPort() > devices_.size()) throw RunTimeError(fault::PortAlreadyOpen);
    port_.setPortName(devices_.at(CommPort() - 1));
    // Every device takes these; it is asked for the others when it is open.
    port_.setDataBits(QSerialPort::Data8);
    port_.setParity(QSerialPort::NoParity);
    port_.setStopBits(QSerialPort::OneStop);
    port_.setFlowControl(QSerialPort::NoFlowControl);
    if (!port_.open(QIODevice::ReadWrite)) throw RunTimeError(fault::PortAlreadyOpen);
    gone_ = false;
    pace_.Forget();
    // At once, whatever somebody else has left in the driver: the first byte is to go at the right rate.
    settingsWait_ = false;
    if (!Apply()) Tell(CommEvent::Refused);
}

void DesktopPort::Close() {
    if (!port_.isOpen()) return;
    const double latest = Now() + MillisecondsLeft() + closingGrace;
    while (MillisecondsLeft() > 0 && Now() < latest) {
        if (port_.bytesToWrite() > 0) port_.waitForBytesWritten(1);
        QThread::msleep(1);
    }
    sending_.stop();
    port_.close();
}

void DesktopPort::Output(std::string_view text) {
    if (!IsOpen()) throw RunTimeError(fault::PortNotOpen);
    watch_.Give(text.size());
    pace_.Give(Now(), text.size(), Line());
    port_.write(text.data(), static_cast<qint64>(text.size()));
    port_.flush();
    if (!sending_.isActive()) LookAfterSending();
}

// Characters that the driver has not yet given to the line.
int DesktopPort::InDriver() const {
    int count = 0;
    const bool told = ioctl(static_cast<int>(port_.handle()), TIOCOUTQ, &count) == 0;
    return told ? count : 0;
}

double DesktopPort::MillisecondsLeft() const {
    if (!IsOpen()) return 0;
    const double waiting = static_cast<double>(port_.bytesToWrite() + InDriver());
    return std::max(pace_.Left(Now()), waiting * Line().CharacterMilliseconds());
}

double DesktopPort::Lead() const { return lead; }

std::string DesktopPort::Input() {
    if (!IsOpen()) throw RunTimeError(fault::PortNotOpen);
    return port_.readAll().toStdString();
}

std::string DesktopPort::DeviceName(int number) const {
    return number >= 1 && number <= devices_.size() ? PathText(devices_.at(number - 1)) : std::string();
}

void DesktopPort::SettingsChanged() {
    settingsWait_ = MillisecondsLeft() > 0;
    if (!settingsWait_ && !gone_ && !Apply()) Tell(CommEvent::Refused);
}

bool DesktopPort::Apply() {
    const LineSettings line = Line();
    bool taken = port_.setBaudRate(line.Baud);
    taken = port_.setDataBits(line.DataBits == 7 ? QSerialPort::Data7 : QSerialPort::Data8) && taken;
    taken = port_.setParity(ParityOf(line)) && taken;
    taken = port_.setStopBits(line.StopBits == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop) && taken;
    port_.clearError();
    return taken && DeviceHolds(line);
}

// Some devices take what they do not do, and say so only when they are asked.
bool DesktopPort::DeviceHolds(const LineSettings& line) const {
    termios held = {};
    if (tcgetattr(static_cast<int>(port_.handle()), &held) != 0) return true;
    const bool sevenBits = (held.c_cflag & CSIZE) == CS7;
    const bool parity = (held.c_cflag & PARENB) != 0;
    return sevenBits == (line.DataBits == 7) && parity == (line.Parity != 'N');
}

// Also sees a device that takes nothing any more.
void DesktopPort::LookAfterSending() {
    if (!IsOpen()) return;
    const double left = MillisecondsLeft();
    const auto waiting = static_cast<std::size_t>(port_.bytesToWrite() + InDriver());
    if (watch_.Stalled(Now(), waiting, pace_.Left(Now())) > longestStall) {
        gone_ = true;
        return Vanished();
    }
    if (left > 0) return sending_.start(static_cast<int>(std::clamp(left, 1.0, longestRest)));
    if (settingsWait_) SettingsChanged();
    Tell(CommEvent::Send);
}

// Mostly from the event loop: the port may have been closed or opened anew since. What it has still brought is told
// before it is closed.
void DesktopPort::Vanished() {
    if (!gone_ || handingOver_) return;
    sending_.stop();
    handingOver_ = true;
    if (port_.bytesAvailable() > 0) Tell(CommEvent::Receive);
    handingOver_ = false;
    port_.close();
    gone_ = false;
    Tell(CommEvent::Vanished);
}

}  // namespace kvt
