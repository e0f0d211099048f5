#pragma once

#include <string>
#include <string_view>

namespace kvt {

// The lines of a program file as they go over the wire. The filter leaves out the notes and cuts off the comments:
// the "%" line is the first one, and each line behind it keeps its first 30 characters.
class OutgoingLines {
public:
    // Looks into text.
    OutgoingLines(std::string_view text, bool filter);

    // The next line that is sent; false at the end. Empty lines and those that begin with ";" are not.
    bool Next(std::string& line);

private:
    bool Read(std::string_view& line);

    std::string_view rest_;
    bool filter_;
    bool begun_ = false;
};

// What is to be sent of a text, line ends counted.
struct OutgoingAmount {
    int Lines = 0;
    std::size_t Characters = 0;
};
OutgoingAmount AmountOf(std::string_view text, bool filter);

// The row that is shown for a line: its number plus 1, where the columns hold a number. The number of mk2 has two
// digits, so that its rows begin anew at line 100.
int RowOfLine(std::string_view line, bool mk2);

}  // namespace kvt
