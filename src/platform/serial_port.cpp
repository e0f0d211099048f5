#include "platform/serial_port.h"

#include <algorithm>
#include <cmath>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"

namespace kvt {

namespace {

constexpr double secondInMilliseconds = 1000;
constexpr int fastest = 4'000'000;

int WholeNumber(std::string_view text, int least, int most) {
    if (!IsNumeric(text)) throw RunTimeError(fault::InvalidCall);
    const int number = ToLong(Val(text));
    if (number < least || number > most) throw RunTimeError(fault::InvalidCall);
    return number;
}

}  // namespace

double LineSettings::CharacterMilliseconds() const {
    const int bits = 1 + DataBits + (Parity == 'N' ? 0 : 1) + StopBits;
    return bits * secondInMilliseconds / Baud;
}

LineSettings ParseLineSettings(std::string_view text) {
    const std::vector<std::string_view> parts = Split(text, ",");
    if (parts.size() != 4 || parts[1].size() != 1) throw RunTimeError(fault::InvalidCall);
    LineSettings line;
    line.Baud = WholeNumber(parts[0], 1, fastest);
    line.Parity = UpperChar(parts[1][0]);
    if (std::string_view("NEO").find(line.Parity) == std::string_view::npos)
        throw RunTimeError(fault::InvalidCall);
    line.DataBits = WholeNumber(parts[2], 7, 8);
    line.StopBits = WholeNumber(parts[3], 1, 2);
    return line;
}

void SerialPort::SetCommPort(int number) {
    if (number < 1 || number > PortCount) throw RunTimeError(fault::InvalidPort);
    if (IsOpen()) throw RunTimeError(fault::PortAlreadyOpen);
    number_ = number;
}

void SerialPort::SetSettings(std::string_view settings) {
    if (settings == settings_) return;
    ParseLineSettings(settings);
    settings_ = settings;
    if (IsOpen()) SettingsChanged();
}

int SerialPort::Unsent() const {
    return static_cast<int>(std::ceil(MillisecondsLeft() / Line().CharacterMilliseconds() - 1e-6));
}

void LinePace::Add(double now, std::size_t bytes, const LineSettings& line) {
    free_ = std::max(free_, now) + static_cast<double>(bytes) * line.CharacterMilliseconds();
}

double LineWatch::Stalled(double now, std::size_t waiting, double left) {
    const long long gone = given_ - static_cast<long long>(waiting);
    if (waiting == 0 || gone != gone_ || left > 0) moved_ = now + left;
    gone_ = gone;
    return std::max(0.0, now - moved_);
}

}  // namespace kvt
