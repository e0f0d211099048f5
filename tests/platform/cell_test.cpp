#include "platform/cell.h"

#include <gtest/gtest.h>

#include <vector>

namespace kvt::test {

namespace {

const std::string inPlace = "123456789012345";
const std::string onHeap = "1234567890123456";
const std::string note(1000, 'n');
const std::string lengths[] = {
    "", " ", inPlace, onHeap, note, std::string("a\0b\xFF", 4), std::string(20, '\0')};

}  // namespace

TEST(CellTest, HoldsTextsOfAnyLengthAlsoOutOfItself) {
    EXPECT_EQ(Cell().View(), "");
    for (const std::string& text : lengths) {
        const Cell cell{text};
        EXPECT_EQ(cell.View(), text);
        EXPECT_EQ(cell.Size(), text.size());
        EXPECT_EQ(cell.Empty(), text.empty());
        for (const std::string& next : lengths) {
            Cell changed{text};
            changed = next;
            EXPECT_EQ(changed.View(), next);
        }
        for (std::size_t at = 0; at <= text.size(); at += 1 + at / 3) {
            for (const std::size_t length : {std::size_t{3}, std::size_t{15}, text.size()}) {
                Cell itself{text};
                itself = itself.View().substr(at, length);
                EXPECT_EQ(itself.View(), text.substr(at, length));
            }
        }
    }
}

}  // namespace kvt::test
