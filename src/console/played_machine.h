#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/serial_port.h"
#include "transfer/played_control.h"

namespace kvt {

// A device that two programs can hold as the two ends of a line.
class PseudoTerminal {
public:
    // Error 8005 where the system has none to give.
    PseudoTerminal();
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    // This end, and the path by which another program opens the other one.
    int Handle() const { return handle_; }
    const std::string& Path() const { return path_; }

private:
    int handle_;
    std::string path_;
};

// How a reception or a sending has ended.
enum class TransferEnd { Completed, Stopped, Disconnected, CutOff };

// The machine's end of the line: takes and gives a program at the line's pace, as the control does.
class PlayedMachine {
public:
    struct Line {
        int Handle = -1;  // non-blocking
        LineSettings Settings;
        // A pseudo-terminal, whose other end comes and goes.
        bool Pseudo = true;
        // So many times faster than the settings say.
        double SpeedUp = 1;
        // After so many characters in either direction it is over; none where below 0.
        long DropAfter = -1;
    };
    explicit PlayedMachine(Line line);

    // Asked all through; true ends what is under way.
    std::function<bool()> StopRequested;

    // Collects what comes, up to the line that ends the reception.
    TransferEnd Receive(std::string& received);
    // Sends what a control sends that is asked for a program with notes: the "%" and the lines behind it, without
    // comments. On a pseudo-terminal it waits until somebody has held the other end for a second.
    TransferEnd SendProgram(std::string_view file);
    // On a pseudo-terminal: stays there until the other end is let go, for which the line must not go before.
    void AwaitRelease() const;

private:
    bool Stops() const { return StopRequested && StopRequested(); }
    bool OtherEndIsOpen() const;
    TransferEnd AwaitOtherEnd();
    TransferEnd Send(std::string_view text);
    std::size_t Due();
    bool CountPassed(std::size_t more);

    Line line_;
    CharacterPace pace_;
    long passed_ = 0;
};

}  // namespace kvt
