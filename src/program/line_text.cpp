#include "program/line_text.h"

#include <utility>

#include "basic/number.h"
#include "basic/text.h"
#include "program/program_store.h"

namespace kvt {

std::string LineNumber(int row) { return Format(row - 1, "00"); }

std::string LineText(const ListRow& row) {
    constexpr std::pair<int, char> parameters[] = {
        {column::X, 'X'}, {column::Y, 'Y'}, {column::Z, 'Z'}, {column::F, 'F'}, {column::H, 'H'}};
    const std::string_view code = Trim(row[column::Code]);
    std::string text = code.empty() || UpperChar(code[0]) == 'M' ? "" : "G";
    text += code;
    for (const auto& [column, letter] : parameters) {
        const std::string_view cell = Trim(row[column]);
        if (cell.empty()) continue;
        const bool hasLetter = UpperChar(cell[0]) >= 'A' && UpperChar(cell[0]) <= 'Z';
        text += ' ';
        if (!hasLetter) text += letter;
        text += cell;
    }
    const std::string_view comment = Trim(row[column::Comment]);
    if (!comment.empty()) text += " " + std::string(comment);
    return text;
}

}  // namespace kvt
