#include "support/program_text.h"

#include "basic/number.h"
#include "basic/text.h"
#include "files/cnc_format.h"

namespace kvt::test {

namespace {

// The cell as wide as its column, the first character the prefix.
std::string Wide(const std::string& cell, std::size_t width) {
    if (cell.empty()) return std::string(width, ' ');
    if (cell.size() == width) return cell;
    const bool prefixed = !(cell[0] >= '0' && cell[0] <= '9');
    const std::string digits = prefixed ? cell.substr(1) : cell;
    return (prefixed ? cell.substr(0, 1) : " ") + RightPad(digits, width - 1);
}

}  // namespace

std::string FileText(const std::string& machine, const std::vector<Line>& lines, const std::string& units,
                     const std::string& notes) {
    std::string text = notes.empty() ? "" : notes + "\r\n";
    text += "%\r\n";
    if (machine == "MK4") text += std::string(cnc::HeaderMK4) + "\r\n";
    if (machine == "F1") text += std::string(cnc::HeaderF1) + "\r\n";
    int number = 0;
    for (const Line& line : lines) {
        const std::string code =
            std::string(line.Code).size() == 2 ? " " + std::string(line.Code) : line.Code;
        const std::string n = RightPad(Format(number, "00"), machine == "MK2" ? 2 : 3);
        ++number;
        if (machine == "MK2") {
            text += "   N" + n + " G" + code.substr(1) + " X" + Wide(line.X, 5) + " Z" + Wide(line.Z, 6) +
                    " F" + RightPad(line.F, 3) + " " + line.Comment;
        } else if (machine == "MK4") {
            text += "   " + n + code + " " + Wide(line.X, 5) + " " + Wide(line.Z, 6) + Wide(line.F, 4) + " " +
                    RightPad(line.H, 3) + "  " + line.Comment;
        } else {
            text += "   " + n + code + Wide(line.X, 6) + Wide(line.Y, 5) + Wide(line.Z, 6) + Wide(line.F, 4) +
                    " " + line.Comment;
        }
        text += "\r\n";
    }
    return text + "   " + units + "\r\n";
}

}  // namespace kvt::test
