#pragma once

#include <array>
#include <string>

#include "platform/list_view.h"

namespace kvt {

struct EntryRow;

// The line that stands in the entry row: its cells, and what the fields showed of them. As long as the user changes
// neither the code nor a field, writing the line leaves the cell of that field as it is, to the last character.
struct OpenedLine {
    // The row of the program that it was opened from; 0 where that row has gone, or where no line is open.
    int Place = 0;
    bool IsOpen = false;
    ListRow Row;
    // Mode and code, fields and comment as the entry row showed them.
    std::string Mode, Code;
    std::array<std::string, 5> Shown;
    std::string Comment;
    // Set while the line is being opened.
    bool BeingOpened = false;

    void Close() {
        Place = 0;
        IsOpen = false;
    }
};

// The code cell that the entry row makes: a blank or M, two digits, a blank.
std::string CodeCell(const EntryRow& entry);
// The fields and the comment take the texts of a row. On the mill H stands in the column of F.
void FillFields(EntryRow& entry, const ListRow& row, bool mill);
// From here on the entry row counts as the line of that row.
void RememberOpenedLine(EntryRow& entry, const ListRow& row, int place);
// Where the row of the opened line holds others by now, through a replaced feed or a pointer that has moved, fields and
// comment that nobody has changed show them.
void FollowOpenedRow(EntryRow& entry, const ListView& list, bool mill);
// Whether the code in the entry row is still that of the line that was opened.
bool CodeUnchanged(const EntryRow& entry);
// The same for one of the five fields (by its place in EntryRow::Fields) and for the comment.
bool FieldUnchanged(EntryRow& entry, std::size_t field);
bool CommentUnchanged(const EntryRow& entry);

}  // namespace kvt
