#include "platform/list_view.h"

#include <algorithm>

#include "basic/run_time_error.h"

namespace kvt {

void ListRow::NoSuchColumn() { throw RunTimeError(fault::SubscriptOutOfRange); }

void ListView::NoSuchRow() { throw RunTimeError(fault::SubscriptOutOfRange); }

std::size_t ListView::CheckedHeader(int header) {
    if (header < 1 || header > ListRow::Capacity) throw RunTimeError(fault::SubscriptOutOfRange);
    return static_cast<std::size_t>(header) - 1;
}

ListRow& ListView::AddRow() {
    rows_.emplace_back();
    if (selected_ == 0) selected_ = 1;
    return rows_.back();
}

ListRow& ListView::InsertRow(int row) {
    if (row < 1 || row > Count() + 1) NoSuchRow();
    const auto at = rows_.emplace(rows_.begin() + (row - 1));
    if (selected_ == 0) {
        selected_ = 1;
    } else if (row <= selected_) {
        ++selected_;
    }
    return *at;
}

void ListView::RemoveRow(int row) {
    if (row < 1 || row > Count()) NoSuchRow();
    rows_.erase(rows_.begin() + (row - 1));
    if (row < selected_) --selected_;
    selected_ = std::min(selected_, Count());
    top_ = std::max(1, std::min(top_, Count()));
    RowsChanged();
}

void ListView::ReplaceRows(int row, int removed, int inserted) {
    if (row < 1 || removed < 0 || inserted < 0 || row - 1 + removed > Count()) NoSuchRow();
    const auto at = rows_.erase(rows_.begin() + (row - 1), rows_.begin() + (row - 1 + removed));
    rows_.insert(at, static_cast<std::size_t>(inserted), ListRow());
    selected_ = std::clamp(selected_, std::min(1, Count()), Count());
    top_ = std::clamp(top_, 1, std::max(1, Count()));
}

void ListView::Clear() {
    rows_.clear();
    selected_ = 0;
    top_ = 1;
    RowsChanged();
}

void ListView::Select(int row) {
    if (row < 1 || row > Count()) NoSuchRow();
    if (row == selected_) return;
    selected_ = row;
    Changed(PropertyId::SelectedRow);
}

void ListView::EnsureVisible(int row) {
    if (row < 1 || row > Count()) NoSuchRow();
    int top = top_;
    if (row < top) top = row;
    if (row >= top + VisibleRows()) top = row - VisibleRows() + 1;
    ScrollTo(top);
}

void ListView::ScrollTo(int row) {
    if (row < 1 || row > Count()) NoSuchRow();
    if (row == top_) return;
    top_ = row;
    Changed(PropertyId::TopRow);
}

int ListView::VisibleRows() const {
    return std::max(1, rowsInSight_ > 0 ? rowsInSight_ : (Height - HeaderHeight) / RowHeight);
}

void ListView::Changed(PropertyId id) {
    if ((id == PropertyId::SelectedRow || id == PropertyId::Rows) && OnSelection) OnSelection();
    Control::Changed(id);
}

void ListView::SetHeaderText(int header, std::string_view text) {
    headers_[CheckedHeader(header)].Text = text;
    Changed(PropertyId::Headers);
}

void ListView::SetHeaderWidth(int header, int twips) {
    int& width = headers_[CheckedHeader(header)].Width;
    if (width == twips) return;
    width = twips;
    Changed(PropertyId::Headers);
}

}  // namespace kvt
