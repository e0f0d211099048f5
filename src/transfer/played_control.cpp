#include "transfer/played_control.h"

#include <algorithm>

#include "basic/line_end.h"
#include "basic/text.h"
#include "files/cnc_format.h"
#include "transfer/outgoing_lines.h"

namespace kvt {

namespace {

constexpr std::size_t commentPosition = 30;
// What the control's own buffer holds.
constexpr double mostAtOnce = 16;

}  // namespace

bool EndsReception(std::string_view line, bool inProgram) {
    const std::string_view mark = Trim(line);
    const bool hasOrientation = mark.size() == 2 && (mark[1] == 'I' || mark[1] == '-');
    if ((mark.size() == 1 || hasOrientation) && (mark[0] == 'M' || mark[0] == '"')) return true;
    return inProgram && line.find('M', commentPosition) != std::string_view::npos;
}

std::size_t ControlReception::Take(std::string_view characters) {
    if (ended_) return 0;
    const std::size_t before = text_.size();
    text_ += characters;
    for (std::size_t end = text_.find('\n', before); end != std::string::npos;
         end = text_.find('\n', end + 1)) {
        if (!EndsWithLine(end)) continue;
        ended_ = true;
        text_.resize(end + 1);
        break;
    }
    return text_.size() - before;
}

bool ControlReception::EndsWithLine(std::size_t lineEnd) {
    std::string_view line = std::string_view(text_).substr(lineStart_, lineEnd - lineStart_);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lineStart_ = lineEnd + 1;
    const bool ends = EndsReception(line, inProgram_);
    inProgram_ = inProgram_ || line.starts_with(cnc::NotesEnd);
    return ends;
}

std::string ControlSending(std::string_view file) {
    OutgoingLines lines(file, true);
    std::string text;
    for (std::string line; lines.Next(line);) text.append(line).append(LineEnd);
    return text;
}

std::string ReceivedFile(std::string_view received) {
    const bool whole = received.find(cnc::NotesEnd) != std::string_view::npos;
    return (whole ? std::string() : std::string(cnc::NotesEnd) + std::string(LineEnd)) +
           std::string(received);
}

std::size_t CharacterPace::Due(double now) {
    if (now < next_) return 0;
    next_ = std::max(next_, now - mostAtOnce * each_);
    return 1 + static_cast<std::size_t>((now - next_) / each_);
}

}  // namespace kvt
