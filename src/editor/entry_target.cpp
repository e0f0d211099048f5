#include "editor/entry_target.h"

#include <algorithm>
#include <utility>

#include "basic/number.h"
#include "basic/text.h"

namespace kvt {

namespace {

constexpr const char* nothing = "\x96";  // a dash
constexpr std::string_view emptyLine = " 21 ";

std::string LineNumber(int row) { return Format(row - 1, "00"); }

// What stands in a line, as one reads it: "G01 X1000 Z-500 F100 rough".
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

}  // namespace

void EntryTarget::Refresh(int row) {
    entry_.frEntry.Lead = Lead(row);
    const OpenedLine& opened = entry_.Opened;
    store_.lvCncProgram.MarkedRow = opened.IsOpen && opened.Place > 0 ? opened.Place : row;
    const std::string before = Before(row);
    entry_.lblBefore.Caption = before;
    // Whole, where the label cuts it.
    entry_.lblBefore.ToolTip = before;
}

std::string EntryTarget::Lead(int row) const {
    const OpenedLine& opened = entry_.Opened;
    const std::string number = LineNumber(std::max(row, 1));
    if (opened.IsOpen && opened.Place == 0)
        return Filled(language_.EntryTexts(EntryText::WithFieldsOfDeleted), {number});
    if (opened.IsOpen && opened.Place != row)
        return Filled(language_.EntryTexts(EntryText::WithFieldsOf), {number, LineNumber(opened.Place)});
    const bool adds = row == store_.lvCncProgram.Count();
    return Filled(language_.EntryTexts(adds ? EntryText::NewLine : EntryText::Line), {number});
}

// The open line has nothing that could be lost, and neither has an empty one.
std::string EntryTarget::Before(int row) {
    const ListView& list = store_.lvCncProgram;
    if (row < 1 || row >= list.Count() || entry_.txtGMcode.Text.Empty()) return {};
    const bool itself = entry_.Opened.IsOpen && entry_.Opened.Place == row;
    if (itself && CodeUnchanged(entry_)) return ChangedFields();
    const ListRow& line = list.Row(row);
    const bool empty = line[column::Code] == emptyLine && Trim(line[column::Comment]).empty();
    if (empty) return {};
    const EntryText word = itself ? EntryText::Before : EntryText::Replaces;
    return std::string(language_.EntryTexts(word)) + " " + LineText(line);
}

std::string EntryTarget::ChangedFields() {
    const OpenedLine& opened = entry_.Opened;
    const auto fields = entry_.Fields();
    std::string text;
    const auto add = [&text](std::string_view name, std::string_view value) {
        text += "  ";
        text += name;
        text += ' ';
        text += Trim(value).empty() ? nothing : Trim(value);
    };
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].Box.Visible && !FieldUnchanged(entry_, i))
            add(fields[i].Caption.Caption, opened.Shown[i]);
    }
    if (!CommentUnchanged(entry_)) text += "  \"" + std::string(Trim(opened.Comment)) + "\"";
    return text.empty() ? text : std::string(language_.EntryTexts(EntryText::Before)) + text.substr(1);
}

}  // namespace kvt
