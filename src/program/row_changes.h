#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/list_view.h"

namespace kvt {

// The rows of a program without their results, in one text: some 40 bytes for a usual line. A number that is that of
// the row's place is kept as such, so that a row which moves counts as unchanged.
class PackedRows {
public:
    int Count() const { return static_cast<int>(ends_.size()); }
    // The cells and the colour of a row, from 0.
    std::string_view Cells(int row) const;
    Color ColorOf(int row) const { return colors_[static_cast<std::size_t>(row)]; }
    bool Same(int row, const PackedRows& other, int otherRow) const {
        return Cells(row) == other.Cells(otherRow) && ColorOf(row) == other.ColorOf(otherRow);
    }
    void Add(const PackedRows& other, int row);
    // Adds a row that stands at a place, from 1.
    void Add(const ListRow& row, int place);
    void Reserve(int rows, std::size_t bytes);
    std::size_t Bytes() const;

private:
    std::string bytes_;
    std::vector<std::uint32_t> ends_;
    std::vector<Color> colors_;
};

PackedRows Packed(const ListView& list);

// How the rows of a list have become others: some of them went at one place and others came, and some of the rest
// have other cells.
class RowChanges {
public:
    RowChanges() = default;
    // Looks for the smallest change that has one such place.
    RowChanges(const PackedRows& before, const PackedRows& after);

    bool Empty() const { return removed_.Count() == 0 && inserted_.Count() == 0 && changed_.empty(); }
    std::size_t Bytes() const;
    // Makes the change in a list that has the rows of one side, or takes it back. Result cells of rows that come are
    // those of a row that no pass has seen; the view is not told.
    void Apply(ListView& list, bool back) const;

private:
    void Splice(const PackedRows& before, const PackedRows& after, int front, int behind);
    void Align(const PackedRows& before, const PackedRows& after, int front, int behind);
    void Patch(const PackedRows& before, const PackedRows& after, int row, int moved);

    int at_ = 0;  // behind so many rows
    PackedRows removed_, inserted_;
    // The rows that have other cells, by their places in front of the change, from 0; and their cells.
    std::vector<int> changed_;
    PackedRows cellsBefore_, cellsAfter_;
};

}  // namespace kvt
