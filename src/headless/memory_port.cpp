#include "headless/memory_port.h"

#include <utility>

#include "basic/number.h"
#include "basic/run_time_error.h"

namespace kvt {

void MemoryPort::Open() {
    const bool fails = std::exchange(NextOpeningFails, false);
    if (open_ || fails || CommPort() > Ports) throw RunTimeError(fault::PortAlreadyOpen);
    open_ = true;
    SettingsChanged();
}

// What is under way leaves all the same: a closing waits for it, and here nobody sees the wait.
void MemoryPort::Close() { Reset(); }

void MemoryPort::Output(std::string_view text) {
    if (!open_) throw RunTimeError(fault::PortNotOpen);
    Sent += text;
    pace_.Add(static_cast<double>(clock_), text.size(), Line());
    sending_ = true;
}

double MemoryPort::MillisecondsLeft() const { return open_ ? pace_.Left(static_cast<double>(clock_)) : 0; }

std::string MemoryPort::Input() {
    if (!open_) throw RunTimeError(fault::PortNotOpen);
    return std::exchange(received_, {});
}

std::string MemoryPort::DeviceName(int number) const {
    return number >= 1 && number <= Ports ? "memory port " + PlainNumber(number) : std::string();
}

bool MemoryPort::Receive(std::string_view text) {
    if (!open_) return false;
    received_ += text;
    Tell(CommEvent::Receive);
    return true;
}

void MemoryPort::Vanish() {
    if (!open_) return;
    Reset();
    Ports = 0;
    Tell(CommEvent::Vanished);
}

void MemoryPort::ClockMoved() {
    if (!sending_ || MillisecondsLeft() > 0) return;
    sending_ = false;
    Tell(CommEvent::Send);
}

void MemoryPort::Reset() {
    open_ = false;
    sending_ = false;
    received_.clear();
    pace_.Reset();
}

void MemoryPort::SettingsChanged() {
    const LineSettings line = Line();
    if (TakesPlainFramesOnly && (line.Parity != 'N' || line.DataBits != 8)) Tell(CommEvent::Refused);
}

}  // namespace kvt
