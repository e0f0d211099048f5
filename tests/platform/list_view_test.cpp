#include "platform/list_view.h"

#include <gtest/gtest.h>

#include "basic/run_time_error.h"

namespace kvt::test {

namespace {

class ListViewTest : public ::testing::Test {
protected:
    // Rows "1" to count in column 1, one of them selected.
    void Fill(int count, int selected) {
        List.Clear();
        for (int row = 1; row <= count; ++row) List.AddRow()[1] = std::to_string(row);
        if (count > 0) List.Select(selected);
    }
    std::string Selected() const {
        return List.SelectedRow() == 0 ? "" : std::string(List.Row(List.SelectedRow())[1].View());
    }

    Form Window{"frmTest"};
    ListView List{Window, "lvTest"};
};

template <class Statement>
int ErrorOf(Statement statement) {
    try {
        statement();
    } catch (const RunTimeError& error) {
        return error.Number;
    }
    return 0;
}

}  // namespace

TEST_F(ListViewTest, TheFirstRowIsSelectedAndTheNextOnesAreNot) {
    EXPECT_EQ(List.SelectedRow(), 0);
    EXPECT_EQ(List.TopRow(), 1);
    List.AddRow();
    EXPECT_EQ(List.SelectedRow(), 1);
    List.AddRow();
    EXPECT_EQ(List.SelectedRow(), 1);
    List.Clear();
    EXPECT_EQ(List.SelectedRow(), 0);
    List.InsertRow(1);
    EXPECT_EQ(List.SelectedRow(), 1);
}

TEST_F(ListViewTest, InsertingLeavesTheSelectionOnItsRow) {
    struct Case {
        int Selected, At, Place;
    };
    const Case cases[] = {{2, 1, 3}, {2, 2, 3}, {2, 3, 2}, {3, 4, 3}, {1, 1, 2}};
    for (const Case& one : cases) {
        Fill(3, one.Selected);
        List.InsertRow(one.At)[1] = "new";
        EXPECT_EQ(List.Row(one.At)[1], "new");
        EXPECT_EQ(List.SelectedRow(), one.Place);
        EXPECT_EQ(Selected(), std::to_string(one.Selected));
    }
}

TEST_F(ListViewTest, RemovingTheSelectedRowSelectsTheOneInItsPlace) {
    struct Case {
        int Count, Selected, Removed;
        const char* Then;
    };
    const Case cases[] = {{3, 2, 2, "3"}, {3, 1, 1, "2"}, {3, 3, 3, "2"},
                          {3, 3, 1, "3"}, {3, 1, 3, "1"}, {1, 1, 1, ""}};
    for (const Case& one : cases) {
        Fill(one.Count, one.Selected);
        List.RemoveRow(one.Removed);
        EXPECT_EQ(List.Count(), one.Count - 1);
        EXPECT_EQ(Selected(), one.Then) << one.Selected << " of " << one.Count << ", without " << one.Removed;
    }
}

TEST_F(ListViewTest, SelectingByCodeCallsNoHandler) {
    int clicks = 0;
    List.OnClick = [&] { ++clicks; };
    Fill(3, 1);
    List.Select(3);
    EXPECT_EQ(List.SelectedRow(), 3);
    EXPECT_EQ(clicks, 0);
}

TEST_F(ListViewTest, ScrollsAsLittleAsItTakes) {
    List.Height = 4000;
    const int page = List.VisibleRows();
    ASSERT_GT(page, 2);
    Fill(100, 1);
    List.EnsureVisible(page);
    EXPECT_EQ(List.TopRow(), 1);
    List.EnsureVisible(page + 1);
    EXPECT_EQ(List.TopRow(), 2);
    List.EnsureVisible(2);
    EXPECT_EQ(List.TopRow(), 2);
    List.EnsureVisible(100);
    EXPECT_EQ(List.TopRow(), 101 - page);
    List.EnsureVisible(40);
    EXPECT_EQ(List.TopRow(), 40);
    while (List.Count() > 0) {
        List.RemoveRow(List.Count());
        EXPECT_LE(List.TopRow(), std::max(1, List.Count()));
    }
    EXPECT_EQ(List.TopRow(), 1);

    Fill(100, 1);
    List.EnsureVisible(100);
    List.Clear();
    Fill(100, 1);
    EXPECT_EQ(List.TopRow(), 1);
    List.Height = 10;
    EXPECT_EQ(List.VisibleRows(), 1);
}

TEST_F(ListViewTest, CellsBeginEmptyAndPlacesOutsideAreAnError) {
    Fill(2, 1);
    EXPECT_EQ(List.Row(2)[0], "");
    EXPECT_EQ(List.Row(2)[18], "");
    EXPECT_EQ(List.Row(2).ForeColor, 0u);
    for (const int row : {-1, 0, 3}) {
        EXPECT_EQ(ErrorOf([&] { List.Row(row); }), fault::SubscriptOutOfRange);
        EXPECT_EQ(ErrorOf([&] { List.Select(row); }), fault::SubscriptOutOfRange);
        EXPECT_EQ(ErrorOf([&] { List.RemoveRow(row); }), fault::SubscriptOutOfRange);
        EXPECT_EQ(ErrorOf([&] { List.EnsureVisible(row); }), fault::SubscriptOutOfRange);
    }
    EXPECT_EQ(ErrorOf([&] { List.InsertRow(4); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { List.InsertRow(0); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { List.Row(1)[19] = ""; }), fault::SubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { List.Row(1)[-1] = ""; }), fault::SubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { List.SetHeaderWidth(0, 1); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { List.SetHeaderText(20, ""); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(List.Count(), 2);
}

}  // namespace kvt::test
