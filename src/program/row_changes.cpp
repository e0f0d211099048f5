#include "program/row_changes.h"

#include <algorithm>
#include <cstring>

#include "program/program_store.h"
#include "program/result_cells.h"

namespace kvt {

namespace {

constexpr int keptColumns[] = {column::Number, column::Code, column::X, column::Y,
                               column::Z,      column::F,    column::H, column::Comment};
// In the place of a cell's length: the number of the place, and a length of four bytes that follows.
constexpr unsigned char ownNumber = 254, longCell = 255;

struct NumberCell {
    char Text[16];
    std::size_t Length;
    std::string_view View() const { return {Text, Length}; }
};

// The number cell of the row at a place, from 1: two digits and more in three characters.
NumberCell NumberAt(int place) {
    int number = place - 1;
    char digits[12];
    std::size_t count = 0;
    for (; number > 0 || count < 2; number /= 10) digits[count++] = static_cast<char>('0' + number % 10);
    NumberCell cell{{' ', ' ', ' '}, 3};
    for (std::size_t i = 0; i < 3 && i < count; ++i) cell.Text[2 - i] = digits[i];
    return cell;
}

void AppendNumber(std::string& text, std::uint32_t number) {
    char bytes[sizeof number];
    std::memcpy(bytes, &number, sizeof number);
    text.append(bytes, sizeof number);
}

// Takes the packed cells of a row apart, one after the other.
class Unpacking {
public:
    explicit Unpacking(std::string_view packed) : rest_(packed) {}

    std::uint32_t Number() {
        std::uint32_t number = 0;
        std::memcpy(&number, rest_.data(), sizeof number);
        rest_.remove_prefix(sizeof number);
        return number;
    }
    void Cell(kvt::Cell& cell, int place) {
        const auto length = static_cast<unsigned char>(rest_[0]);
        rest_.remove_prefix(1);
        if (length == ownNumber) {
            cell = NumberAt(place).View();
            return;
        }
        const std::size_t size = length == longCell ? Number() : length;
        cell = rest_.substr(0, size);
        rest_.remove_prefix(size);
    }

private:
    std::string_view rest_;
};

void Unpack(const PackedRows& rows, int at, int place, ListRow& row) {
    Unpacking cells(rows.Cells(at));
    for (const int column : keptColumns) cells.Cell(row[column], place);
    row.ForeColor = rows.ColorOf(at);
}

// No pass looks at the open line, which has blanks for results.
void ClearResultsOfOpenLine(ListRow& row) {
    if (row[column::Number].View().find_first_of("Nn") == std::string_view::npos) return;
    for (int c = column::Error; c <= column::Time; ++c) row[c] = " ";
}

}  // namespace

std::string_view PackedRows::Cells(int row) const {
    const auto at = static_cast<std::size_t>(row);
    const std::size_t start = at == 0 ? 0 : ends_[at - 1];
    return std::string_view(bytes_).substr(start, ends_[at] - start);
}

void PackedRows::Add(const PackedRows& other, int row) {
    bytes_ += other.Cells(row);
    ends_.push_back(static_cast<std::uint32_t>(bytes_.size()));
    colors_.push_back(other.ColorOf(row));
}

std::size_t PackedRows::Bytes() const {
    return bytes_.size() + ends_.size() * sizeof ends_[0] + colors_.size() * sizeof colors_[0];
}

void PackedRows::Add(const ListRow& row, int place) {
    for (const int column : keptColumns) {
        const std::string_view cell = row[column];
        if (column == column::Number && cell == NumberAt(place).View()) {
            bytes_ += static_cast<char>(ownNumber);
            continue;
        }
        if (cell.size() < ownNumber) {
            bytes_ += static_cast<char>(cell.size());
        } else {
            bytes_ += static_cast<char>(longCell);
            AppendNumber(bytes_, static_cast<std::uint32_t>(cell.size()));
        }
        bytes_ += cell;
    }
    ends_.push_back(static_cast<std::uint32_t>(bytes_.size()));
    colors_.push_back(row.ForeColor);
}

void PackedRows::Reserve(int rows, std::size_t bytes) {
    ends_.reserve(static_cast<std::size_t>(rows));
    colors_.reserve(static_cast<std::size_t>(rows));
    bytes_.reserve(bytes);
}

PackedRows Packed(const ListView& list) {
    constexpr std::size_t usualBytes = 48;
    PackedRows packed;
    packed.Reserve(list.Count(), static_cast<std::size_t>(list.Count()) * usualBytes);
    for (int row = 1; row <= list.Count(); ++row) packed.Add(list.Row(row), row);
    return packed;
}

RowChanges::RowChanges(const PackedRows& before, const PackedRows& after) {
    const int most = std::min(before.Count(), after.Count());
    int front = 0;
    while (front < most && before.Same(front, after, front)) ++front;
    int behind = 0;
    while (behind < most - front &&
           before.Same(before.Count() - 1 - behind, after, after.Count() - 1 - behind))
        ++behind;
    if (most == front + behind) {
        Splice(before, after, front, behind);
    } else {
        Align(before, after, front, behind);
    }
}

// All rows between the two ends go, and others come.
void RowChanges::Splice(const PackedRows& before, const PackedRows& after, int front, int behind) {
    at_ = front;
    for (int row = front; row < before.Count() - behind; ++row) removed_.Add(before, row);
    for (int row = front; row < after.Count() - behind; ++row) inserted_.Add(after, row);
}

void RowChanges::Patch(const PackedRows& before, const PackedRows& after, int row, int moved) {
    if (before.Same(row, after, row + moved)) return;
    changed_.push_back(row);
    cellsBefore_.Add(before, row);
    cellsAfter_.Add(after, row + moved);
}

// As many rows as the counts differ by come or go where the fewest of the others have changed then.
void RowChanges::Align(const PackedRows& before, const PackedRows& after, int front, int behind) {
    const int moved = after.Count() - before.Count();
    const int kept = std::min(before.Count(), after.Count()) - front - behind;
    // Behind so many kept rows: at first all of them have moved.
    const int removed = std::max(0, -moved), inserted = std::max(0, moved);
    int unequal = 0;
    for (int i = 0; i < kept; ++i)
        unequal += before.Same(front + removed + i, after, front + inserted + i) ? 0 : 1;
    int best = 0, fewest = unequal;
    for (int i = 0; moved != 0 && i < kept; ++i) {
        unequal += before.Same(front + i, after, front + i) ? 0 : 1;
        unequal -= before.Same(front + removed + i, after, front + inserted + i) ? 0 : 1;
        if (unequal >= fewest) continue;
        fewest = unequal;
        best = i + 1;
    }
    at_ = front + best;
    for (int row = at_; row < at_ + removed; ++row) removed_.Add(before, row);
    for (int row = at_; row < at_ + inserted; ++row) inserted_.Add(after, row);
    for (int row = front; row < at_; ++row) Patch(before, after, row, 0);
    for (int row = at_ + removed; row < before.Count() - behind; ++row) Patch(before, after, row, moved);
}

std::size_t RowChanges::Bytes() const {
    return removed_.Bytes() + inserted_.Bytes() + changed_.size() * sizeof changed_[0] +
           cellsBefore_.Bytes() + cellsAfter_.Bytes();
}

void RowChanges::Apply(ListView& list, bool back) const {
    const PackedRows& goes = back ? inserted_ : removed_;
    const PackedRows& comes = back ? removed_ : inserted_;
    const PackedRows& cells = back ? cellsBefore_ : cellsAfter_;
    const int moved = comes.Count() - goes.Count();
    list.ReplaceRows(at_ + 1, goes.Count(), comes.Count());
    for (int i = 0; i < comes.Count(); ++i) {
        ListRow& row = list.Row(at_ + 1 + i);
        Unpack(comes, i, at_ + 1 + i, row);
        ClearResultCells(row);
        ClearResultsOfOpenLine(row);
    }
    // The rows behind have another place, and the number of it where they had that of their own.
    for (int place = at_ + comes.Count() + 1; moved != 0 && place <= list.Count(); ++place) {
        Cell& number = list.Row(place)[column::Number];
        if (number == NumberAt(place - moved).View()) number = NumberAt(place).View();
    }
    for (std::size_t i = 0; i < changed_.size(); ++i) {
        const int before = changed_[i];
        const bool behind = before >= at_ + removed_.Count();
        const int place = before + 1 + (behind && !back ? moved : 0);
        Unpack(cells, static_cast<int>(i), place, list.Row(place));
        ClearResultsOfOpenLine(list.Row(place));
    }
}

}  // namespace kvt
