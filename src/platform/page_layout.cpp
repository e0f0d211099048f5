#include "platform/page_layout.h"

#include <algorithm>
#include <cmath>

#include "basic/line_end.h"
#include "basic/number.h"
#include "basic/text.h"

namespace kvt {

namespace {

// Points: with less, a sheet across the other way is the better one.
constexpr double readable = 8;
constexpr double sizeStep = 0.5;
// Characters that a broken line has below its last column; with less it goes on farther left.
constexpr std::size_t leastRoom = 10;
constexpr int leastBelowHead = 2;  // lines of a table

int ColumnsAt(const Sheet& sheet, double size, bool landscape) {
    const double width = landscape ? sheet.Height : sheet.Width;
    return std::max(1, static_cast<int>(std::floor(width / (sheet.CharacterWidth * size) + 1e-6)));
}

int RowsAt(const Sheet& sheet, double size, bool landscape) {
    const double height = landscape ? sheet.Width : sheet.Height;
    return std::max(1, static_cast<int>(std::floor(height / (sheet.LineHeight * size) + 1e-6)));
}

int WidthOf(const std::vector<PageLine>& lines) {
    std::size_t width = 0;
    for (const PageLine& line : lines) {
        if (line.What == PrintedLine::Table) width = std::max(width, TrimRight(line.Text).size());
    }
    return static_cast<int>(width);
}

// The largest size from largest down to least at which so many characters stand beside one another; 0 for none.
double SizeFor(int width, const Sheet& sheet, bool landscape, double largest, double least) {
    for (double size = largest; size > least - 1e-9; size -= sizeStep) {
        if (ColumnsAt(sheet, size, landscape) >= width) return size;
    }
    return ColumnsAt(sheet, least, landscape) >= width ? least : 0;
}

// A line that is too long is broken at a blank, and goes on below its last column.
void AppendBroken(std::vector<PageLine>& lines, const PageLine& line, std::size_t columns) {
    std::string rest(TrimRight(line.Text));
    std::size_t indent = 0;
    bool first = true;
    do {
        std::size_t fits = std::min(rest.size(), std::max(columns, indent + 1));
        if (fits < rest.size()) {
            const std::size_t blank = rest.rfind(' ', fits);
            if (blank != std::string::npos && blank > std::max(indent, fits / 2)) fits = blank;
        }
        const std::string piece = rest.substr(0, fits);
        lines.push_back({piece, line.What});
        if (first) {
            const std::size_t gap = piece.rfind("  ");
            const bool below = gap != std::string::npos && gap + 2 + leastRoom <= fits;
            indent = below ? gap + 2 : std::min<std::size_t>(4, fits / 2);
            first = false;
        }
        rest = std::string(Trim(rest.substr(fits)));
        if (!rest.empty()) rest.insert(0, indent, ' ');
    } while (!rest.empty());
}

// Puts lines on pages, each below the head.
class Pages {
public:
    Pages(const std::vector<PageLine>& lines, PageLayout& layout) : layout_(layout) {
        const auto columns = static_cast<std::size_t>(layout.Columns);
        for (const PageLine& line : lines) {
            std::vector<PageLine>& part = line.What == PrintedLine::Head ? head_ : body_;
            if (line.What == PrintedLine::Table && tableAt_ == none) tableAt_ = body_.size();
            AppendBroken(part, line, columns);
            if (line.What == PrintedLine::Table && body_.size() == tableAt_ + 1) names_ = body_.back();
        }
        while (!body_.empty() && Trim(body_.back().Text).empty()) body_.pop_back();
    }

    void Fill() {
        Begin();
        for (std::size_t i = 0; i < body_.size(); ++i) {
            // The names of the columns do not stand alone at the end of a page.
            const int needed = i == tableAt_ ? 1 + leastBelowHead : 1;
            if (Left() < needed && !IsFresh()) {
                Begin();
                if (i > tableAt_ && Left() > 1) Page().push_back(names_);
            }
            Page().push_back(body_[i]);
        }
    }

    // Behind the first line of the head, at the right edge.
    void Number(std::string_view pageText) {
        if (head_.empty()) return;
        const auto count = static_cast<std::int64_t>(layout_.Pages.size());
        std::int64_t number = 0;
        for (std::vector<PageLine>& page : layout_.Pages) {
            const std::string text = Filled(pageText, ++number, count);
            const auto columns = static_cast<std::size_t>(layout_.Columns);
            std::string& line = page.front().Text;
            const std::size_t room = columns > text.size() + 1 ? columns - text.size() - 1 : 0;
            if (line.size() > room) line.resize(room);
            line += std::string(columns > line.size() + text.size() ? columns - line.size() - text.size() : 1,
                                ' ') +
                    text;
        }
    }

private:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    static std::string Filled(std::string_view pageText, std::int64_t page, std::int64_t pages) {
        return Replace(Replace(pageText, "%1", PlainNumber(page)), "%2", PlainNumber(pages));
    }

    std::vector<PageLine>& Page() { return layout_.Pages.back(); }
    int Left() const { return layout_.Rows - static_cast<int>(layout_.Pages.back().size()); }
    bool IsFresh() const { return layout_.Pages.back().size() <= head_.size(); }
    void Begin() { layout_.Pages.push_back(head_); }

    PageLayout& layout_;
    std::vector<PageLine> head_, body_;
    std::size_t tableAt_ = none;
    PageLine names_;
};

PageLayout Filled(const std::vector<PageLine>& lines, const Sheet& sheet, double size, bool landscape,
                  std::string_view pageText) {
    PageLayout layout;
    layout.Landscape = landscape;
    layout.FontSize = size;
    layout.Columns = ColumnsAt(sheet, size, landscape);
    layout.Rows = RowsAt(sheet, size, landscape);
    Pages pages(lines, layout);
    pages.Fill();
    pages.Number(pageText);
    return layout;
}

}  // namespace

void AppendPrinted(std::vector<PageLine>& lines, const PrintJob& job, std::string_view text,
                   PrintedLine what) {
    if (what == PrintedLine::Table && !job.Table.empty()) {
        for (const std::string& row : job.Table) lines.push_back({row, what});
        return;
    }
    if (text.empty()) lines.push_back({{}, what});
    for (const std::string_view part : Split(text, LineEnd)) lines.push_back({std::string(part), what});
}

PageLayout LayOutPages(const std::vector<PageLine>& lines, const Sheet& sheet, double largestFont,
                       std::string_view pageText) {
    const int width = WidthOf(lines);
    const double least = std::min(largestFont, SmallestPrint);
    const double upright = SizeFor(width, sheet, false, largestFont, std::min(largestFont, readable));
    const bool landscape = upright == 0;
    const double size = landscape ? SizeFor(width, sheet, true, largestFont, least) : upright;
    return Filled(lines, sheet, size > 0 ? size : least, landscape, pageText);
}

PageLayout LayOutPages(const std::vector<PageLine>& lines, const Sheet& sheet, double largestFont,
                       std::string_view pageText, bool landscape) {
    const double least = std::min(largestFont, SmallestPrint);
    const double size = SizeFor(WidthOf(lines), sheet, landscape, largestFont, least);
    return Filled(lines, sheet, size > 0 ? size : least, landscape, pageText);
}

FieldArea AreaOnPaper(const PrintedDrawing& drawing) {
    FieldArea area = drawing.Area;
    area.Width = std::max(area.Width, 1.0);
    area.Height = std::max(area.Height, 1.0);
    return area;
}

}  // namespace kvt
