#include <gtest/gtest.h>

#include <random>

#include "program/program_store.h"
#include "program/word.h"

namespace kvt::test {

namespace {

class StoreTest : public ::testing::Test {
protected:
    // Program lines without the open line.
    void Fill(int lines, int selected = 1) {
        List.Clear();
        for (int i = 0; i < lines; ++i) List.AddRow()[column::Number] = " 00";
        List.Select(selected);
    }
    ListRow& Last() { return List.Row(List.Count()); }

    Form Window{"frmTest"};
    ProgramStore Store{Window};
    ListView& List = Store.lvCncProgram;
};

}  // namespace

TEST_F(StoreTest, LinesAndTheirCap) {
    EXPECT_EQ(Store.LineCount(), 0);
    Store.AddBlankLine(true);
    EXPECT_EQ(Store.LineCount(), 0);
    Fill(3);
    EXPECT_EQ(Store.LineCount(), 3);
    Store.AddBlankLine(true);
    EXPECT_EQ(Store.LineCount(), 3);
    Last()[column::Number] = " 1N";
    EXPECT_EQ(Store.LineCount(), 3);
    EXPECT_FALSE(MachineNamed("MK9"));
    for (const auto& [machine, cap] : {std::pair{"MK2", 160}, {"mk2", 160}, {"MK4", 210}, {"F1", 210}}) {
        Store.Machine = MachineNamed(machine).value();
        Store.EndCodePresent = false;
        EXPECT_EQ(Store.MaxLines(), cap - 1) << machine;
        Store.EndCodePresent = true;
        EXPECT_EQ(Store.MaxLines(), cap) << machine;
    }
}

TEST_F(StoreTest, AddBlankLineRestoresTheOpenLine) {
    Store.AddBlankLine(false);
    ASSERT_EQ(List.Count(), 1);
    EXPECT_EQ(List.SelectedRow(), 1);
    EXPECT_EQ(Last()[0], "");
    EXPECT_EQ(Last()[column::Number], "NN");
    for (int c = column::Code; c <= column::Comment; ++c) EXPECT_EQ(Last()[c], " ") << c;

    List.Height = 2000;
    Fill(50, 20);
    Store.AddBlankLine(true);
    EXPECT_EQ(List.SelectedRow(), 51);
    EXPECT_EQ(List.TopRow(), 52 - List.VisibleRows());
    // One is enough, and nothing is selected or scrolled to then.
    List.Select(7);
    Store.AddBlankLine(true);
    EXPECT_EQ(List.Count(), 51);
    EXPECT_EQ(List.SelectedRow(), 7);
    EXPECT_EQ(List.TopRow(), 52 - List.VisibleRows());
    // The row that was selected comes into sight.
    List.RemoveRow(51);
    Store.AddBlankLine(false);
    EXPECT_EQ(List.Count(), 51);
    EXPECT_EQ(List.SelectedRow(), 7);
    EXPECT_EQ(List.TopRow(), 7);
    // The beginning makes the open line.
    Last()[column::Number] = " 1N";
    Store.AddBlankLine(false);
    EXPECT_EQ(List.Count(), 52);
}

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
