#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// A control at the other end of the line: what it takes, what it sends, and how fast.
namespace kvt {

// Whether a line ends the reception at a control: a units line, or, behind the program's beginning, a capital M in
// a comment.
bool EndsReception(std::string_view line, bool inProgram);

// What a control collects of what comes to it, up to the line that ends its reception. From there on it does not listen.
class ControlReception {
public:
    // Gives how many characters it took; the others came behind the end.
    std::size_t Take(std::string_view characters);
    bool HasEnded() const { return ended_; }
    const std::string& Text() const { return text_; }

private:
    bool EndsWithLine(std::size_t lineEnd);

    std::string text_;
    std::size_t lineStart_ = 0;
    bool inProgram_ = false;
    bool ended_ = false;
};

// What a control sends that is asked for a program with notes: the "%" and the lines behind it, without comments.
std::string ControlSending(std::string_view file);

// What a received text is in a file: it begins with a "%", where it has none.
std::string ReceivedFile(std::string_view received);

// How many characters may pass at a time, by the rate of a line. Time in which none did is lost, but for what the
// control's own buffer holds. Times are milliseconds of any clock.
class CharacterPace {
public:
    void SetEach(double milliseconds) { each_ = milliseconds; }
    // When the next one may pass.
    double Next() const { return next_; }
    std::size_t Due(double now);
    void Pass(std::size_t characters) { next_ += static_cast<double>(characters) * each_; }

private:
    double each_ = 1;
    double next_ = 0;
};

}  // namespace kvt
