#include "desktop/desktop_port.h"

#include <algorithm>

#include "system/serial_devices.h"

namespace kvt {

namespace {

constexpr double longestRest = 1000;  // milliseconds

}  // namespace

DesktopPort::DesktopPort() : PosixPort(OfferedDevices()) {
    sending_.setTimerType(Qt::PreciseTimer);
    sending_.setSingleShot(true);
    QObject::connect(&sending_, &QTimer::timeout, &sending_, [this] { Serve(0); });
    for (QSocketNotifier* notifier : {&readable_, &writable_})
        QObject::connect(notifier, &QSocketNotifier::activated, notifier, [this] { Serve(0); });
}

// The windows have gone: here it may take the time that the last line needs.
DesktopPort::~DesktopPort() {
    OnComm = nullptr;
    PosixPort::Close();
}

void DesktopPort::Open() {
    SetDevices(OfferedDevices());
    PosixPort::Open();
}

void DesktopPort::Close() {
    if (IsOpen()) BeginClose();
}

void DesktopPort::WatchChanged() {
    for (QSocketNotifier* notifier : {&readable_, &writable_}) {
        if (notifier->socket() != Handle()) notifier->setSocket(Handle());
    }
    readable_.setEnabled(Handle() >= 0);
    writable_.setEnabled(Handle() >= 0 && HasUnwritten());
    if (!IsBusy()) return sending_.stop();
    if (!sending_.isActive()) sending_.start(static_cast<int>(std::clamp(Left(), 1.0, longestRest)));
}

}  // namespace kvt
