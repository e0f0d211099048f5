#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace kvt {

// What "300,N,8,1" says: baud, parity, data bits, stop bits.
struct LineSettings {
    int Baud = 300;
    char Parity = 'N';  // N, E or O
    int DataBits = 8;   // 7 or 8
    int StopBits = 1;   // 1 or 2

    // How long one character is on the wire, its start bit included.
    double CharacterMilliseconds() const;
};

// Reads a settings string; a text that is none is error 5.
LineSettings ParseLineSettings(std::string_view text);

// How many ports are offered, by the numbers 1 to 4.
inline constexpr int PortCount = 4;

enum class CommEvent {
    Send = 1,     // all that was given has left
    Receive = 2,  // characters have come
    Vanished,     // the device has gone, and the port is closed
    Refused,      // the device does not take the settings; it goes on with what it has
};

// One serial port, opened by its number. It runs without handshake. Settings and number stay when it is closed.
class SerialPort {
public:
    virtual ~SerialPort() = default;

    // Chooses the port for the next opening. A number outside 1 to 4 is error 8002; an open port is error 8005.
    void SetCommPort(int number);
    int CommPort() const { return number_; }

    // Error 8005 where the port is open, does not exist or belongs to another program.
    virtual void Open() = 0;
    // Waits until what was given has left. Nothing where the port is closed.
    virtual void Close() = 0;
    virtual bool IsOpen() const = 0;
    // Somebody is about to send or to receive: asks for a device that is open but still to be chosen by its user. False
    // where none was chosen; error 8005 where the chosen one does not open, which closes the port.
    virtual bool ChooseDevice() { return true; }

    // Takes effect when all that was given before has left. Error 5 for a text that means nothing.
    void SetSettings(std::string_view settings);
    const std::string& Settings() const { return settings_; }
    LineSettings Line() const { return ParseLineSettings(settings_); }

    // Takes a whole text for sending and does not wait for it. Error 8018 where the port is closed.
    virtual void Output(std::string_view text) = 0;
    // How long it takes until all that was given has left, in milliseconds; 0 where it has, and where the port is
    // closed.
    virtual double MillisecondsLeft() const = 0;
    // How much earlier than that the next line is to be given, so that the line stays busy.
    virtual double LeadTime() const { return 0; }
    // Characters accepted and not sent yet.
    int Unsent() const;
    // All that has come since the last call. Error 8018 where the port is closed.
    virtual std::string Input() = 0;

    // The device behind a number, for people; empty where there is none.
    virtual std::string DeviceName(int number) const = 0;

    // Runs at each event. What raises a run-time error here must catch it.
    std::function<void(CommEvent)> OnComm;

protected:
    // Brings the device in line with the settings, at once or when it may.
    virtual void SettingsChanged() = 0;
    void Tell(CommEvent event) const {
        if (OnComm) OnComm(event);
    }

private:
    int number_ = 1;
    std::string settings_ = "300,N,8,1";
};

// When bytes that were given leave a line, by its rate alone. Times are milliseconds of any clock.
class LinePace {
public:
    // Takes bytes on at a time; they go behind what is still under way.
    void Add(double now, std::size_t bytes, const LineSettings& line);
    double Left(double now) const { return free_ > now ? free_ - now : 0; }
    void Reset() { free_ = 0; }

private:
    double free_ = 0;
};

// Tells a device that takes nothing from one that is slow. Times are milliseconds of any clock.
class LineWatch {
public:
    void Add(std::size_t bytes) { given_ += static_cast<long long>(bytes); }
    // For how long nothing has left, with so many bytes waiting and so many milliseconds of their time on the line
    // still to go.
    double Stalled(double now, std::size_t waiting, double left);

private:
    long long given_ = 0, gone_ = 0;
    double moved_ = 0;  // when the last byte had left, or was to leave
};

}  // namespace kvt
