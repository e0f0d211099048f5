#include "platform/cell.h"

#include <gtest/gtest.h>

#include <vector>

namespace kvt::test {

namespace {

const std::string inPlace = "123456789012345";
const std::string onHeap = "1234567890123456";
const std::string note(1000, 'n');

}  // namespace

TEST(CellTest, HoldsTextsOfAnyLength) {
    EXPECT_EQ(Cell().View(), "");
    EXPECT_TRUE(Cell().Empty());
    for (const std::string& text : {std::string(), std::string(" "), inPlace, onHeap, note,
                                    std::string("a\0b\xFF", 4), std::string(20, '\0')}) {
        Cell cell{text};
        EXPECT_EQ(cell.View(), text);
        EXPECT_EQ(cell.Size(), text.size());
        EXPECT_EQ(cell.Empty(), text.empty());
        EXPECT_TRUE(cell == text);
        EXPECT_FALSE(cell == text + "x");
        // From every length to every other.
        for (const std::string& next : {std::string(), std::string("x"), inPlace, onHeap, note}) {
            Cell changed{text};
            changed = next;
            EXPECT_EQ(changed.View(), next);
        }
    }
}

TEST(CellTest, TakesATextThatLooksIntoItself) {
    struct Case {
        std::string Text;
        std::size_t At, Length;
    };
    const Case cases[] = {{inPlace, 0, 15},         {inPlace, 1, 14},       {inPlace, 5, 3},
                          {onHeap, 0, 16},          {onHeap, 1, 15},        {onHeap, 0, 0},
                          {note + "end", 900, 103}, {note + "end", 1000, 3}};
    for (const Case& one : cases) {
        Cell cell{one.Text};
        cell = cell.View().substr(one.At, one.Length);
        EXPECT_EQ(cell.View(), one.Text.substr(one.At, one.Length));
    }
}

TEST(CellTest, CopiesAreIndependentAndMovesLeaveNothing) {
    for (const std::string& text : {inPlace, onHeap}) {
        Cell cell{text};
        Cell copy = cell;
        Cell assigned{"an older text that is long enough"};
        assigned = cell;
        cell = "changed";
        EXPECT_EQ(copy.View(), text);
        EXPECT_EQ(assigned.View(), text);

        Cell& self = copy;
        copy = self;
        EXPECT_EQ(copy.View(), text);
        copy = std::move(self);
        EXPECT_EQ(copy.View(), text);

        Cell moved = std::move(copy);
        EXPECT_EQ(moved.View(), text);
        EXPECT_TRUE(copy.Empty());
        cell = std::move(moved);
        EXPECT_EQ(cell.View(), text);
        EXPECT_TRUE(moved.Empty());
        moved = "again";
        EXPECT_EQ(moved.View(), "again");
    }
}

TEST(CellTest, StaysWholeWhenItsVectorGrows) {
    std::vector<Cell> cells;
    for (int i = 0; i < 100; ++i) cells.emplace_back(i % 2 == 0 ? inPlace : onHeap);
    cells.erase(cells.begin());
    for (int i = 0; i < 99; ++i) {
        EXPECT_EQ(cells[static_cast<std::size_t>(i)].View(), i % 2 == 0 ? onHeap : inPlace);
    }
}

}  // namespace kvt::test
