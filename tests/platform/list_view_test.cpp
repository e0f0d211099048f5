#include "platform/list_view.h"

#include <gtest/gtest.h>

#include "support/table.h"

namespace kvt::test {

TEST(ListViewTest, TheSelectionStaysOnItsRow) {
    // Of three rows, the one that is selected; the place of a new row, or the row that goes; the one selected then.
    for (const char* line : {"1|+1|1", "2|+1|2", "2|+2|2", "2|+3|2", "3|+4|3", "2|-2|3", "1|-1|2", "3|-3|2",
                             "3|-1|3", "1|-3|1"}) {
        const auto one = Fields(line);
        Form window("frmTest");
        ListView list(window, "lvTest");
        for (int row = 1; row <= 3; ++row) list.AddRow()[1] = std::to_string(row);
        list.Select(std::stoi(one[0]));
        const int at = std::stoi(one[1].substr(1));
        if (one[1][0] == '+') list.InsertRow(at);
        if (one[1][0] == '-') list.RemoveRow(at);
        EXPECT_EQ(list.Row(list.SelectedRow())[1], one[2]) << line;
    }
}

}  // namespace kvt::test
