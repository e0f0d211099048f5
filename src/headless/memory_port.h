#pragma once

#include <string>

#include "platform/serial_port.h"

namespace kvt {

// A serial port without a device: what is given leaves at the port's rate on a virtual clock, what arrives is put
// there.
class MemoryPort : public SerialPort {
public:
    // clock counts milliseconds and must outlive the port.
    explicit MemoryPort(const long long& clock) : clock_(clock) {}

    void Open() override;
    void Close() override;
    bool IsOpen() const override { return open_; }
    void Output(std::string_view text) override;
    double MillisecondsLeft() const override;
    // The step of the clock.
    double LeadTime() const override { return 1; }
    std::string Input() override;
    std::string DeviceName(int number) const override;

    // How many ports exist.
    int Ports = 0;
    // The next opening fails.
    bool NextOpeningFails = false;
    // Whether 8 data bits without parity are all that it takes, as with a pseudo-terminal.
    bool TakesPlainFramesOnly = false;
    // All that was sent.
    std::string Sent;

    // These characters arrive; false where the port is closed and they are lost.
    bool Receive(std::string_view text);
    // The device goes, with what was under way.
    void Vanish();
    // The clock has moved on.
    void ClockMoved();
    // Closes without an event, for a new run of the program.
    void Reset();

protected:
    void SettingsChanged() override;

private:
    const long long& clock_;
    LinePace pace_;
    std::string received_;
    bool open_ = false;
    bool sending_ = false;
};

}  // namespace kvt
