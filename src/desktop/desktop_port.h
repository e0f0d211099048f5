#pragma once

#include <QElapsedTimer>
#include <QSerialPort>
#include <QStringList>
#include <QTimer>

#include "platform/serial_port.h"

namespace kvt {

// A serial port of this machine. The numbers 1 to 4 are the devices that the variable KVT_PORTS names, with ":"
// between them, or those that are there, USB adapters first.
class DesktopPort : public QObject, public SerialPort {
public:
    DesktopPort();
    ~DesktopPort() override;

    void Open() override;
    void Close() override;
    bool IsOpen() const override { return port_.isOpen() && (!gone_ || handingOver_); }
    void Output(std::string_view text) override;
    double MillisecondsLeft() const override;
    double Lead() const override;
    std::string Input() override;
    std::string DeviceName(int number) const override;

protected:
    void SettingsChanged() override;

private:
    double Now() const { return static_cast<double>(clock_.nsecsElapsed()) * 1e-6; }
    int InDriver() const;
    bool Apply();
    bool DeviceHolds(const LineSettings& line) const;
    void LookAfterSending();
    void Vanished();

    QStringList devices_;
    QSerialPort port_;
    QElapsedTimer clock_;
    LinePace pace_;
    // Runs until what was given has left.
    QTimer sending_;
    LineWatch watch_;
    bool settingsWait_ = false;
    // The device has gone; what it has still brought is being handed over.
    bool gone_ = false;
    bool handingOver_ = false;
};

}  // namespace kvt
