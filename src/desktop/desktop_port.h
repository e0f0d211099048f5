#pragma once

#include <QSocketNotifier>
#include <QTimer>

#include "system/posix_port.h"

namespace kvt {

// A serial port of this machine, served by the event loop. A closing does not hold the window up: what is under way
// leaves while events are served.
class DesktopPort : public PosixPort {
public:
    DesktopPort();
    ~DesktopPort() override;

    // Looks for the devices anew.
    void Open() override;
    void Close() override;

protected:
    void WatchChanged() override;

private:
    QSocketNotifier readable_{QSocketNotifier::Read};
    QSocketNotifier writable_{QSocketNotifier::Write};
    // Runs until what was given has left.
    QTimer sending_;
};

}  // namespace kvt
