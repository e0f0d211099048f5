#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/serial_port.h"

namespace kvt {

// Brings an open terminal device to a state in which bytes pass as they are, at these settings. False where it
// does not take all of them; it goes on with what it has then.
bool SetUpLine(int handle, const LineSettings& line);

// A serial device of the system, without a toolkit. What has happened to it is told by Serve. A device that another
// program has open does not open.
class PosixPort : public SerialPort {
public:
    // The devices behind the numbers 1, 2 and so on. With a speedUp of n the line is n times as fast as it says,
    // for pseudo-terminals, which have no rate of their own.
    explicit PosixPort(std::vector<std::string> devices, double speedUp = 1);
    ~PosixPort() override;

    void Open() override;
    void Close() override;
    bool IsOpen() const override { return handle_ >= 0 && !closing_; }
    void Output(std::string_view text) override;
    double MillisecondsLeft() const override { return IsOpen() ? Left() : 0; }
    double LeadTime() const override;
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
    // What an event loop has to watch for Serve may have changed: Handle, HasUnwritten, or IsBusy.
    virtual void WatchChanged() {}
    // Closed for whoever uses it from now on. The device itself is let go by Serve, when what was given has left or
    // is not taken in time. To open it before that is to go on with it.
    void BeginClose();
    void SetDevices(std::vector<std::string> devices) { devices_ = std::move(devices); }

    // The device, below 0 for none.
    int Handle() const { return handle_; }
    bool HasUnwritten() const { return !unwritten_.empty(); }
    // Whether something happens to it by the time alone.
    bool IsBusy() const { return handle_ >= 0 && (sending_ || closing_); }
    // How long it takes until all that was given has left, in milliseconds, while it closes too.
    double Left() const;

private:
    double Now() const;
    std::size_t Waiting() const;
    void Apply();
    bool IsStuck();
    bool Write();
    void Receive();
    void LookAfterSending();
    void Keep(std::string_view piece);
    void Vanish();
    void Release();

    std::vector<std::string> devices_;
    double speedUp_;
    int handle_ = -1;
    std::string device_;  // that the handle belongs to
    std::string unwritten_;
    std::string received_;
    long long arrived_ = 0;
    LinePace pace_;
    LineWatch watch_;
    double closingEnd_ = 0;  // of the line's clock
    bool closing_ = false;
    bool sending_ = false;
    bool settingsWait_ = false;
    bool vanishing_ = false;
};

}  // namespace kvt
