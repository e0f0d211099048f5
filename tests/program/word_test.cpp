#include <gtest/gtest.h>

#include <random>

#include "program/word.h"

namespace kvt::test {

// Cells are read eight characters at a time where that goes; it must never show.
TEST(WordTest, TheShortRoadReadsWhatTheLongOneDoes) {
    const std::string characters("  0123456789 -+.ILTJx\t\n\xB5\xFF\0", 26);
    std::mt19937 random(1);
    for (int i = 0; i < 200'000; ++i) {
        std::string text(random() % 10, ' ');
        for (char& c : text) c = characters[random() % (i % 2 == 0 ? 13 : characters.size())];
        const Word expected = ReadWord(std::string_view(text));
        const Word word = ReadWord(Cell(text));
        ASSERT_EQ(word.Letter, expected.Letter) << ::testing::PrintToString(text);
        ASSERT_EQ(word.Value, expected.Value) << ::testing::PrintToString(text);
        ASSERT_EQ(word.Number, expected.Number) << ::testing::PrintToString(text);
    }
}

}  // namespace kvt::test
