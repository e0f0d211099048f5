#include "files/paper_table.h"

#include <algorithm>

#include "basic/text.h"

namespace kvt {

namespace {

constexpr std::string_view gap = "  ";

// Over the words as the writer sets them. On the MK2 they have their letters with them.
std::string_view WordHeads(const ProgramStore& store) {
    if (store.IsMK2()) return "";
    return store.IsMK4() ? "     N  G     X      Z   F   H" : "     N  G     X    Y     Z   F";
}

// Texts stand at the left of their column, numbers at its right.
bool IsText(int subItem) { return subItem == column::Error || subItem == column::Comment; }

std::string Padded(std::string_view text, std::size_t width, bool atLeft) {
    const std::string blanks(width > text.size() ? width - text.size() : 0, ' ');
    return atLeft ? std::string(text) + blanks : blanks + std::string(text);
}

// Lines that get one column after the other, heads first.
class Table {
public:
    explicit Table(std::size_t lines) : lines_(lines) {}

    void Add(std::vector<std::string> column, bool atLeft) {
        std::size_t width = 0;
        for (const std::string& cell : column) width = std::max(width, cell.size());
        for (std::size_t i = 0; i < lines_.size(); ++i) {
            if (!lines_[i].empty()) lines_[i] += gap;
            lines_[i] += Padded(column[i], width, atLeft);
        }
    }

    std::vector<std::string> TakeLines() {
        for (std::string& line : lines_) line = std::string(TrimRight(line));
        return std::move(lines_);
    }

private:
    std::vector<std::string> lines_;
};

}  // namespace

std::vector<std::string> PaperTable(const ProgramStore& store, const CncWriter& writer,
                                    std::string_view units) {
    const ListView& list = store.lvCncProgram;
    const int count = store.LineCount();
    Table table(static_cast<std::size_t>(count) + 1);
    std::vector<std::string> words{std::string(WordHeads(store))};
    for (int row = 1; row <= count; ++row) words.push_back(writer.WordsOf(list.Row(row)));
    table.Add(std::move(words), true);
    for (int c = column::Error; c <= column::Comment; ++c) {
        const ColumnHeader& header = list.Header(c + 1);
        const bool inSight = header.Width > 1;
        // The comments belong to the program, whether the list shows them or not.
        if (!inSight && c != column::Comment) continue;
        std::vector<std::string> cells{inSight ? header.Text : std::string()};
        for (int row = 1; row <= count; ++row) cells.emplace_back(Trim(list.Row(row)[c]));
        table.Add(std::move(cells), IsText(c));
    }
    std::vector<std::string> lines = table.TakeLines();
    lines.insert(lines.end(), {std::string(), "   " + std::string(units)});
    return lines;
}

}  // namespace kvt
