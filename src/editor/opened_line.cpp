#include "editor/opened_line.h"

#include "basic/text.h"
#include "editor/entry_row.h"
#include "program/program_store.h"

namespace kvt {

namespace {

std::string Without(std::string_view cell, std::string_view letters) {
    std::string text;
    for (const char c : cell) {
        if (letters.find(UpperChar(c)) == std::string_view::npos) text += c;
    }
    return std::string(Trim(text));
}

}  // namespace

std::string CodeCell(const EntryRow& entry) {
    const std::string& letter = entry.lblGMcode.Caption.Get();
    const std::string text = entry.txtGMcode.Text.Get() + " ";
    return (letter == "G" ? " " : letter) + std::string(Right(text, 3));
}

void FillFields(EntryRow& entry, const ListRow& row, bool mill) {
    entry.txtXI.Text = Without(row[column::X], "DIR");
    entry.txtYJ.Text = Without(row[column::Y], "JS");
    entry.txtZK.Text = Without(row[column::Z], "K");
    entry.txtFKTL.Text = Without(row[column::F], "KTL");
    entry.txtH.Text =
        mill && entry.txtH.Visible ? Without(row[column::F], "KTL") : Without(row[column::H], "");
    entry.txtComment.Text = row[column::Comment];
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
