#include "editor/entry_target.h"

#include <algorithm>

#include "basic/text.h"
#include "program/line_text.h"

namespace kvt {

namespace {

constexpr const char* nothing = "\x96";  // a dash
constexpr std::string_view emptyLine = " 21 ";

// An empty line has nothing to lose.
bool IsEmpty(const ListRow& line) {
    return line[column::Code] == emptyLine && Trim(line[column::Comment]).empty();
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
    const ListView& list = store_.lvCncProgram;
    const bool adds = row == list.Count();
    // What is typed now takes the place of a line that nobody has opened.
    const bool replaces = !opened.IsOpen && !adds && row > 0 && !IsEmpty(list.Row(row));
    return Filled(language_.EntryTexts(adds       ? EntryText::NewLine
                                       : replaces ? EntryText::ReplacesLine
                                                  : EntryText::Line),
                  {number});
}

// The open line has nothing that could be lost, and neither has an empty one.
std::string EntryTarget::Before(int row) {
    const ListView& list = store_.lvCncProgram;
    if (row < 1 || row >= list.Count() || entry_.txtGMcode.Text.Empty()) return {};
    const bool itself = entry_.Opened.IsOpen && entry_.Opened.Place == row;
    if (itself && CodeUnchanged(entry_)) return ChangedFields();
    const ListRow& line = list.Row(row);
    if (IsEmpty(line)) return {};
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
