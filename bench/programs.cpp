#include "programs.h"

#include <vector>

#include "basic/number.h"
#include "basic/text.h"
#include "files/cnc_format.h"

namespace kvt::bench {

namespace {

struct Block {
    const char* Code;  // letter or blank, two digits
    const char* X;
    const char* Y;
    const char* Z;
    const char* F;
    const char* H;
    const char* Comment;
};

// Five characters of X and Y on the lathes' side, six and five on the mill's; the layout below pads.
const std::vector<Block> latheBlocks = {
    {" 00", " 2100", "", "   100", "", "", "near the stock"},
    {" 84", " 1800", "", "- 2000", " 100", "100", ""},
    {" 01", " 2000", "", "- 1000", "  80", "", "cone"},
    {" 03", " 2400", "", "- 1200", "  80", "", ""},
    {" 01", " 2400", "", "- 1500", "  80", "", ""},
    {" 00", " 2600", "", "   100", "", "", ""},
    {" 04", "  150", "", "", "", "", "dwell"},
};

const std::vector<Block> millBlocks = {
    {" 00", "  1000", "  500", "     0", "", "", "above the corner"},
    {" 00", "  1000", "  500", "     0", "", "", ""},
    {" 01", "  2000", "  500", "     0", " 100", "", "edge"},
    {" 02", "  2500", "    0", "     0", " 100", "", ""},
    {" 01", "  2500", "-1000", "     0", " 100", "", ""},
    {" 81", "      ", "", "-  500", " 100", "", "hole"},
    {" 00", "     0", "-1000", "     0", "", "", ""},
};

std::string Wide(std::string_view cell, std::size_t width) {
    return cell.empty() ? std::string(width, ' ') : RightPad(cell, width);
}

std::string LineText(const std::string& machine, int number, const Block& block) {
    const std::string n = RightPad(Format(number, "00"), machine == "MK2" ? 2 : 3);
    if (machine == "MK2") {
        return "   N" + n + " G" + std::string(block.Code).substr(1) + " X" + Wide(block.X, 5) + " Z" +
               Wide(block.Z, 6) + " F" + Wide(block.F, 3) + " " + block.Comment;
    }
    if (machine == "MK4") {
        return "   " + n + block.Code + " " + Wide(block.X, 5) + " " + Wide(block.Z, 6) + Wide(block.F, 4) +
               " " + Wide(block.H, 3) + "  " + block.Comment;
    }
    return "   " + n + block.Code + Wide(block.X, 6) + Wide(block.Y, 5) + Wide(block.Z, 6) +
           Wide(block.F, 4) + " " + block.Comment;
}

}  // namespace

std::string ProgramText(const std::string& machine, int lines) {
    std::string text = "%\r\n";
    if (machine == "MK4") text += std::string(cnc::HeaderMK4) + "\r\n";
    if (machine == "F1") text += std::string(cnc::HeaderF1) + "\r\n";
    const bool mill = machine == "F1";
    const std::vector<Block>& blocks = mill ? millBlocks : latheBlocks;
    const Block first = mill ? Block{" 92", "     0", "    0", "     0", "", "", "zero"}
                             : Block{" 92", " 2600", "", "   100", "", "", "zero"};
    const Block last{machine == "MK2" ? " 22" : "M30", "", "", "", "", "", ""};
    text += LineText(machine, 0, first) + "\r\n";
    for (int i = 1; i < lines - 1; ++i) {
        text += LineText(machine, i % 1000, blocks[static_cast<std::size_t>(i - 1) % blocks.size()]) + "\r\n";
    }
    text += LineText(machine, (lines - 1) % 1000, last) + "\r\n";
    return text + (mill ? "   MI\r\n" : "   M\r\n");
}

}  // namespace kvt::bench
