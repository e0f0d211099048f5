#pragma once

#include <string>
#include <vector>

#include "platform/serial_port.h"

namespace kvt {

// Brings an open terminal device to a state in which bytes pass as they are, at these settings. False where it
// does not take all of them; it goes on with what it has then.
bool SetUpLine(int handle, const LineSettings& line);

// A serial device of the system, without a toolkit. What has happened to it is told by Serve.
class PosixPort : public SerialPort {
public:
    // The devices behind the numbers 1, 2 and so on. With a haste of n the line is n times as fast as it says,
    // for pseudo-terminals, which have no rate of their own.
    explicit PosixPort(std::vector<std::string> devices, double haste = 1);
    ~PosixPort() override;

    void Open() override;
    void Close() override;
    bool IsOpen() const override { return handle_ >= 0; }
    void Output(std::string_view text) override;
    double MillisecondsLeft() const override;
    double Lead() const override;
    std::string Input() override;
    std::string DeviceName(int number) const override;

    // So many milliseconds behind its time a device may take nothing before it counts as gone.
    double LongestStall = 5000;

    // All characters that have come since it was made, those without a sign among them.
    long long Arrived() const { return arrived_; }

    // Waits for the device for so many milliseconds at the most, then sends and receives what can be, and tells
    // the events.
    void Serve(double milliseconds);

protected:
    void SettingsChanged() override;

private:
    double Now() const;
    std::size_t Waiting() const;
    void Apply();
    bool IsStuck();
    void Write();
    void Read();
    void Keep(std::string_view piece);
    void Vanish();

    std::vector<std::string> devices_;
    double haste_;
    int handle_ = -1;
    std::string unwritten_;
    std::string received_;
    long long arrived_ = 0;
    LinePace pace_;
    LineWatch watch_;
    bool sending_ = false;
    bool settingsWait_ = false;
    bool vanishing_ = false;
};

}  // namespace kvt
