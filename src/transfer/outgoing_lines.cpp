#include "transfer/outgoing_lines.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/text.h"
#include "files/cnc_format.h"

namespace kvt {

namespace {

// Position 30 is the last blank in front of the comment.
constexpr std::ptrdiff_t filteredLength = 30;

}  // namespace

OutgoingLines::OutgoingLines(std::string_view text, bool filter) : rest_(text), filter_(filter) {}

bool OutgoingLines::Read(std::string_view& line) {
    if (rest_.empty()) return false;
    const std::size_t end = std::min(rest_.find('\r'), rest_.size());
    line = rest_.substr(0, end);
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    if (rest_.substr(0, 1) == "\n") rest_.remove_prefix(1);
    return true;
}

bool OutgoingLines::Next(std::string& line) {
    std::string_view read;
    while (Read(read)) {
        if (filter_ && !begun_) {
            if (read.substr(0, 1) != cnc::NotesEnd) continue;
            begun_ = true;
        } else if (filter_) {
            read = Left(read, filteredLength);
        }
        if (read.empty() || read[0] == ';') continue;
        line = read;
        return true;
    }
    return false;
}

OutgoingAmount AmountOf(std::string_view text, bool filter) {
    OutgoingAmount amount;
    OutgoingLines lines(text, filter);
    for (std::string line; lines.Next(line); ++amount.Lines)
        amount.Characters += line.size() + LineEnd.size();
    return amount;
}

int RowOfLine(std::string_view line, bool mk2) {
    return ToLong(Val(mk2 ? Mid(line, 5, 2) : Mid(line, 4, 3)) + 1);
}

}  // namespace kvt
