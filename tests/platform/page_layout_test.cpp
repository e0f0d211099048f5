#include "platform/page_layout.h"

#include <gtest/gtest.h>

namespace kvt::test {

namespace {

// A4 inside its margins.
constexpr Sheet a4{510, 757, 0.6, 1.2};

std::vector<PageLine> Program(int lines, int width, int notes = 0) {
    std::vector<PageLine> all = {
        {"lid.cnc", PrintedLine::Head}, {"/home/lid.cnc", PrintedLine::Head}, {"", PrintedLine::Head}};
    for (int i = 0; i < notes; ++i) all.push_back({"Note", PrintedLine::Text});
    all.push_back({"N  G  X", PrintedLine::Table});
    for (int i = 0; i < lines; ++i)
        all.push_back({std::string(static_cast<std::size_t>(width), 'x'), PrintedLine::Table});
    all.push_back({"M", PrintedLine::Table});
    return all;
}

}  // namespace

TEST(PageLayout, ColumnsDecideSizeAndOrientation) {
    const std::tuple<int, double, bool, double> cases[] = {
        {80, 10, false, 10}, {85, 10, false, 10}, {86, 10, false, 9.5}, {106, 10, false, 8},
        {107, 10, true, 10}, {126, 10, true, 10}, {127, 10, true, 9.5}, {180, 10, true, 7},
        {300, 10, true, 7},  {30, 18, false, 18}, {60, 18, false, 14},  {30, 6, false, 6},
        {150, 6, true, 6}};
    for (const auto& [width, largest, landscape, size] : cases) {
        SCOPED_TRACE(width);
        const PageLayout layout = LayOutPages(Program(3, width), a4, largest, "Page %1 of %2");
        EXPECT_EQ(layout.Landscape, landscape);
        EXPECT_DOUBLE_EQ(layout.FontSize, size);
        for (const auto& page : layout.Pages) {
            for (const PageLine& line : page) EXPECT_LE(static_cast<int>(line.Text.size()), layout.Columns);
        }
    }
    // A sheet that the user has turned stays so.
    EXPECT_DOUBLE_EQ(LayOutPages(Program(3, 120), a4, 10, "", false).FontSize, 7);
}

TEST(PageLayout, EveryPageHasHeadNumberAndColumns) {
    // 63 lines of 10 points: 3 of the head, 5 notes.
    const PageLayout layout = LayOutPages(Program(130, 80, 5), a4, 10, "Page %1 of %2");
    ASSERT_EQ(layout.Pages.size(), 3u);
    EXPECT_EQ(layout.Rows, 63);
    int program = 0;
    for (std::size_t i = 0; i < layout.Pages.size(); ++i) {
        const std::vector<PageLine>& page = layout.Pages[i];
        EXPECT_LE(page.size(), 63u);
        const std::string number = "Page " + std::to_string(i + 1) + " of 3";
        EXPECT_TRUE(page[0].Text.starts_with("lid.cnc ") && page[0].Text.ends_with(number)) << page[0].Text;
        EXPECT_EQ(page[0].Text.size(), 85u);
        EXPECT_EQ(page[i == 0 ? 8 : 3].Text, "N  G  X");
        for (const PageLine& line : page) program += line.Text.starts_with("xxx") ? 1 : 0;
    }
    EXPECT_EQ(program, 130);
}

TEST(PageLayout, WhatStaysTogetherAndWhatBreaks) {
    // The names of the columns would be the last line of the first page.
    const PageLayout layout = LayOutPages(Program(4, 80, 58), a4, 10, "");
    ASSERT_EQ(layout.Pages.size(), 2u);
    EXPECT_EQ(layout.Pages[1][3].Text, "N  G  X");
    EXPECT_EQ(layout.Pages[1].size(), 9u);
    // Texts and names that are too long never make the table smaller; a long name leaves room for the number.
    std::vector<PageLine> lines = Program(1, 20);
    lines[0].Text = std::string(200, 'n');
    lines.insert(lines.begin() + 3,
                 {"A note " + std::string(30, 'a') + " " + std::string(60, 'b'), PrintedLine::Text});
    const PageLayout other = LayOutPages(lines, a4, 10, "Page %1 of %2");
    EXPECT_DOUBLE_EQ(other.FontSize, 10);
    EXPECT_TRUE(other.Pages[0][0].Text.ends_with("n Page 1 of 1"));
    // A line of a table goes on below its last column.
    const PageLayout broken = LayOutPages(
        {{std::string(180, 'x') + "  comment " + std::string(20, 'c'), PrintedLine::Table}}, a4, 7, "");
    ASSERT_EQ(broken.Pages[0].size(), 2u);
    EXPECT_EQ(LayOutPages({}, a4, 10, "").Pages.size(), 1u);
}

TEST(PageLayout, TheTableOfAJobStandsOnPaperInPlaceOfThatOfItsText) {
    PrintJob job;
    std::vector<PageLine> lines;
    AppendPrinted(lines, job, "a\r\nb", PrintedLine::Table);
    job.Table = {"head", "line"};
    AppendPrinted(lines, job, "", PrintedLine::Text);
    AppendPrinted(lines, job, "a\r\nb", PrintedLine::Table);
    std::string all;
    for (const PageLine& line : lines) all += line.Text + "|";
    EXPECT_EQ(all, "a|b||head|line|");
}

}  // namespace kvt::test
