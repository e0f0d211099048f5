#pragma once

#include <array>
#include <string>
#include <vector>

#include "platform/cell.h"
#include "platform/controls.h"

namespace kvt {

// One row of a list view: column 0 is the item text, the others are the sub-items. The cells have their place in the
// row itself, so that a pass over thousands of rows asks for no memory.
class ListRow {
public:
    // As many columns as any list may have.
    static constexpr int Capacity = 19;

    // The cell of a column, below Capacity; another column is error 9.
    Cell& operator[](int column) { return cells_[Checked(column)]; }
    const Cell& operator[](int column) const { return cells_[Checked(column)]; }

    // Text colour of the list's coloured columns.
    Color ForeColor = 0;

private:
    static std::size_t Checked(int column) {
        if (column < 0 || column >= Capacity) NoSuchColumn();
        return static_cast<std::size_t>(column);
    }
    [[noreturn]] static void NoSuchColumn();
    std::array<Cell, Capacity> cells_;
};

struct ColumnHeader {
    std::string Text;
    int Width = 0;
};

// A list of rows of cells, addressed by a 1-based row index. While it has rows one of them is selected.
// Writing a cell does not tell the view; RowsChanged does, once, at the end of an operation.
class ListView : public Control {
public:
    ListView(Form& form, std::string_view name) : Control(form, ControlKind::ListView, name) {}

    int Count() const { return static_cast<int>(rows_.size()); }
    // A row, 1 to Count; another index is error 9.
    ListRow& Row(int row) {
        if (row < 1 || row > Count()) NoSuchRow();
        return rows_[static_cast<std::size_t>(row) - 1];
    }
    const ListRow& Row(int row) const { return const_cast<ListView*>(this)->Row(row); }

    void Reserve(int rows) { rows_.reserve(static_cast<std::size_t>(rows)); }
    ListRow& AddRow();
    // Puts an empty row at a place, 1 to Count + 1; the selected row stays selected.
    ListRow& InsertRow(int row);
    void RemoveRow(int row);
    // Puts so many empty rows in the place of so many from a row on; the selected row keeps its place. The view is not
    // told. Rows outside are error 9.
    void ReplaceRows(int row, int removed, int inserted);
    void Clear();

    // 0 where the list is empty. Selecting by code calls no click handler; an index outside is error 9.
    int SelectedRow() const { return selected_; }
    void Select(int row);
    // First row in sight, 1 for an empty list.
    int TopRow() const { return top_; }
    // Scrolls as little as it takes to have the row in sight.
    void EnsureVisible(int row);
    // Scrolls so that a row is the first in sight; an index outside is error 9.
    void ScrollTo(int row);
    // The row that has a mark at its edge; 0 for none.
    Property<int> MarkedRow{*this, PropertyId::MarkedRow};
    // How many rows are in sight, at least 1: those that a view has told, or what the list's height shows.
    int VisibleRows() const;
    void SetRowsInSight(int rows) { rowsInSight_ = rows; }

    // Column headers count from 1; header c + 1 belongs to sub-item c. Another index is error 9.
    const ColumnHeader& Header(int header) const { return headers_[CheckedHeader(header)]; }
    void SetHeaderText(int header, std::string_view text);
    void SetHeaderWidth(int header, int twips);

    // Tells the view that cells, colours or rows have changed.
    void RowsChanged() { Changed(PropertyId::Rows); }

    // The column whose texts a view makes stand out, and those that have the colour of their row; 0 and none by itself.
    int EmphasisedColumn = 0;
    int FirstColoredColumn = 1, LastColoredColumn = 0;

    // Twips.
    static constexpr int HeaderHeight = 300;
    static constexpr int RowHeight = 255;

    // Another row is selected, by hand or by code, or the rows have changed.
    std::function<void()> OnSelection;
    // What is to be known about a cell beyond its text, its lines ended by CR LF: a tool tip. Empty for nothing.
    std::function<std::string(int row, int subItem)> CellToolTip;

    std::function<void(int header)> OnColumnClick;
    // The right button was pressed; the row under the pointer is selected by then.
    std::function<void()> OnRightClick;

protected:
    void Changed(PropertyId id) override;

private:
    [[noreturn]] static void NoSuchRow();
    static std::size_t CheckedHeader(int header);

    std::vector<ListRow> rows_;
    std::array<ColumnHeader, ListRow::Capacity> headers_;
    int selected_ = 0;
    int top_ = 1;
    int rowsInSight_ = 0;
};

}  // namespace kvt
