#include "editor/opened_line.h"

#include <algorithm>

#include "basic/text.h"
#include "editor/entry_row.h"
#include "program/program_store.h"

namespace kvt {

namespace {

// The columns of the five fields in their order, then that of the comment.
constexpr int shownColumns[] = {column::X, column::Y, column::Z, column::F, column::H, column::Comment};

std::string Without(std::string_view cell, std::string_view letters) {
    std::string text;
    for (const char c : cell) {
        if (letters.find(UpperChar(c)) == std::string_view::npos) text += c;
    }
    return std::string(Trim(text));
}

// What a field shows of a row. On the mill H stands in the column of F.
std::string FieldText(const EntryRow& entry, std::size_t field, const ListRow& row, bool mill) {
    constexpr std::string_view letters[] = {"DIR", "JS", "K", "KTL", ""};
    const bool isH = shownColumns[field] == column::H;
    const bool inColumnOfF = isH && mill && entry.txtH.Visible;
    const std::size_t shown = inColumnOfF ? field - 1 : field;
    return Without(row[shownColumns[shown]], letters[shown]);
}

}  // namespace

std::string CodeCell(const EntryRow& entry) {
    const std::string& letter = entry.lblGMcode.Caption.Get();
    const std::string text = entry.txtGMcode.Text.Get() + " ";
    return (letter == "G" ? " " : letter) + std::string(Right(text, 3));
}

void FillFields(EntryRow& entry, const ListRow& row, bool mill) {
    const auto fields = entry.Fields();
    for (std::size_t i = 0; i < fields.size(); ++i) fields[i].Box.Text = FieldText(entry, i, row, mill);
    entry.txtComment.Text = row[column::Comment];
}

void FollowOpenedRow(EntryRow& entry, const ListView& list, bool mill) {
    OpenedLine& line = entry.Opened;
    if (!line.IsOpen || line.Place < 1 || line.Place > list.Count()) return;
    const ListRow& row = list.Row(line.Place);
    const auto changed = [&](int column) { return !(row[column] == line.Row[column].View()); };
    if (std::none_of(std::begin(shownColumns), std::end(shownColumns), changed)) return;
    const auto fields = entry.Fields();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::string text = FieldText(entry, i, row, mill);
        if (text == FieldText(entry, i, line.Row, mill) || !FieldUnchanged(entry, i)) continue;
        fields[i].Box.Text = text;
        line.Shown[i] = text;
    }
    if (changed(column::Comment) && CommentUnchanged(entry)) {
        entry.txtComment.Text = row[column::Comment];
        line.Comment = entry.txtComment.Text.Get();
    }
    line.Row = row;
}

void RememberOpenedLine(EntryRow& entry, const ListRow& row, int place) {
    OpenedLine& line = entry.Opened;
    line.IsOpen = true;
    line.Place = place;
    line.Row = row;
    line.Mode = entry.lblGMcode.Caption.Get();
    line.Code = entry.txtGMcode.Text.Get();
    const auto fields = entry.Fields();
    for (std::size_t i = 0; i < fields.size(); ++i) line.Shown[i] = fields[i].Box.Text.Get();
    line.Comment = entry.txtComment.Text.Get();
}

bool CodeUnchanged(const EntryRow& entry) {
    const OpenedLine& line = entry.Opened;
    if (!line.IsOpen || !(entry.lblGMcode.Caption == line.Mode)) return false;
    // The code check brings a code into its two digits.
    return entry.txtGMcode.Text == line.Code ||
           EqualIgnoringCase(Trim(CodeCell(entry)), Trim(line.Row[column::Code]));
}

bool FieldUnchanged(EntryRow& entry, std::size_t field) {
    return CodeUnchanged(entry) && entry.Fields()[field].Box.Text == entry.Opened.Shown[field];
}

bool CommentUnchanged(const EntryRow& entry) {
    return CodeUnchanged(entry) && entry.txtComment.Text == entry.Opened.Comment;
}

}  // namespace kvt
