#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/printer.h"

namespace kvt {

inline constexpr double SmallestPrint = 7;  // points
inline constexpr double PageMargin = 15;    // millimetres, at every edge

// A line that is to be printed, without a line end.
struct PageLine {
    std::string Text;
    PrintedLine What = PrintedLine::Text;
};

// Adds what is printed to the lines of a document; the table as it is to stand on paper.
void AppendPrinted(std::vector<PageLine>& lines, const PrintJob& job, std::string_view text,
                   PrintedLine what);

// The part of a drawing's field that fills a page, which is never without a width or a height.
FieldArea AreaOnPaper(const PrintedDrawing& drawing);

// The room inside the margins of a sheet that stands upright, in points, and the characters of a face of one pitch: a
// character's width and a line's height at 1 point.
struct Sheet {
    double Width = 0, Height = 0;
    double CharacterWidth = 0.6, LineHeight = 1.2;
};

// How a text is put on pages.
struct PageLayout {
    bool Landscape = false;
    double FontSize = 10;
    // How many characters and lines a page holds.
    int Columns = 1, Rows = 1;
    std::vector<std::vector<PageLine>> Pages;
};

// The largest size, down to the smallest, at which the table fits: upright where that can be read well, otherwise
// across; what is still too long goes on in the next line, below its last column. Texts and heads always do. landscape
// forces the one or the other.
PageLayout LayOutPages(const std::vector<PageLine>& lines, const Sheet& sheet, double largestFont,
                       std::string_view pageText);
PageLayout LayOutPages(const std::vector<PageLine>& lines, const Sheet& sheet, double largestFont,
                       std::string_view pageText, bool landscape);

}  // namespace kvt
