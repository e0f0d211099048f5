#include "platform/list_view.h"

#include <gtest/gtest.h>

#include "support/table.h"

namespace kvt::test {

namespace {

class ListViewTest : public ::testing::Test {
protected:
    // Rows "1" to count in column 1, one of them selected.
    void Fill(int count, int selected) {
        List.Clear();
        for (int row = 1; row <= count; ++row) List.AddRow()[1] = std::to_string(row);
        List.Select(selected);
    }
    std::string Selected() const {
        return List.SelectedRow() == 0 ? "" : std::string(List.Row(List.SelectedRow())[1].View());
    }

    Form Window{"frmTest"};
    ListView List{Window, "lvTest"};
};

}  // namespace

TEST_F(ListViewTest, OneRowIsSelectedWhileThereAreRows) {
    EXPECT_EQ(List.SelectedRow(), 0);
    List.AddRow();
    List.AddRow();
    EXPECT_EQ(List.SelectedRow(), 1);
    List.Clear();
    EXPECT_EQ(List.SelectedRow(), 0);
    List.InsertRow(1);
    EXPECT_EQ(List.SelectedRow(), 1);
    int clicks = 0;
    List.OnClick = [&] { ++clicks; };
    Fill(3, 3);
    EXPECT_EQ(List.SelectedRow(), 3);
    EXPECT_EQ(clicks, 0);
}

TEST_F(ListViewTest, InsertingLeavesTheSelectionOnItsRow) {
    for (int selected = 1; selected <= 3; ++selected) {
        for (int at = 1; at <= 4; ++at) {
            Fill(3, selected);
            List.InsertRow(at)[1] = "new";
            EXPECT_EQ(List.Row(at)[1], "new");
            EXPECT_EQ(Selected(), std::to_string(selected)) << at;
        }
    }
}

TEST_F(ListViewTest, RemovingTheSelectedRowSelectsTheOneInItsPlace) {
    // Rows, the selected one, the removed one, the one selected then.
    for (const char* line : {"3|2|2|3", "3|1|1|2", "3|3|3|2", "3|3|1|3", "3|1|3|1", "1|1|1|"}) {
        const auto one = Fields(line);
        Fill(std::stoi(one[0]), std::stoi(one[1]));
        List.RemoveRow(std::stoi(one[2]));
        EXPECT_EQ(Selected(), one[3]) << line;
    }
}

TEST_F(ListViewTest, ScrollsAsLittleAsItTakes) {
    List.Height = 4000;
    const int page = List.VisibleRows();
    ASSERT_GT(page, 2);
    Fill(100, 1);
    // A row, then the top that shows it.
    for (const auto& [row, top] :
         {std::pair{page, 1}, {page + 1, 2}, {2, 2}, {100, 101 - page}, {40, 40}, {39 + page, 40}}) {
        List.EnsureVisible(row);
        EXPECT_EQ(List.TopRow(), top) << row;
    }
    while (List.Count() > 0) List.RemoveRow(List.Count());
    EXPECT_EQ(List.TopRow(), 1);
    Fill(100, 1);
    List.EnsureVisible(100);
    Fill(100, 1);
    EXPECT_EQ(List.TopRow(), 1);
    List.Height = 10;
    EXPECT_EQ(List.VisibleRows(), 1);
}

TEST_F(ListViewTest, PlacesOutsideAreAnError) {
    Fill(2, 1);
    for (const int row : {0, 3}) {
        EXPECT_EQ(ErrorOf([&] { List.Row(row); }), fault::SubscriptOutOfRange);
        EXPECT_EQ(ErrorOf([&] { List.Select(row); }), fault::SubscriptOutOfRange);
        EXPECT_EQ(ErrorOf([&] { List.RemoveRow(row); }), fault::SubscriptOutOfRange);
        EXPECT_EQ(ErrorOf([&] { List.EnsureVisible(row); }), fault::SubscriptOutOfRange);
    }
    EXPECT_EQ(ErrorOf([&] { List.InsertRow(4); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { List.Row(1)[19] = ""; }), fault::SubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { List.SetHeaderWidth(0, 1); }), fault::SubscriptOutOfRange);
}

}  // namespace kvt::test
