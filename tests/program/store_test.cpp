#include <gtest/gtest.h>

#include <random>

#include "basic/run_time_error.h"
#include "program/code_tables.h"
#include "program/program_store.h"
#include "program/texts.h"
#include "program/word.h"

namespace kvt::test {

namespace {

class StoreTest : public ::testing::Test {
protected:
    // Program lines N00 on, without the open line.
    void Fill(int lines) {
        Store.lvCncProgram.Clear();
        for (int i = 0; i < lines; ++i) Store.lvCncProgram.AddRow()[column::Number] = " 00";
    }
    ListRow& Last() { return Store.lvCncProgram.Row(Store.lvCncProgram.Count()); }

    Form Window{"frmTest"};
    ProgramStore Store{Window};
};

}  // namespace

TEST_F(StoreTest, TheOpenLineDoesNotCount) {
    EXPECT_EQ(Store.LineCount(), 0);
    Store.AddBlankLine(true);
    EXPECT_EQ(Store.LineCount(), 0);
    Fill(3);
    EXPECT_EQ(Store.LineCount(), 3);
    Store.AddBlankLine(true);
    EXPECT_EQ(Store.LineCount(), 3);
    Last()[column::Number] = " 1N";
    EXPECT_EQ(Store.LineCount(), 3);
    Store.lvCncProgram.Row(2)[column::Number] = "NN";
    EXPECT_EQ(Store.LineCount(), 3);
}

TEST_F(StoreTest, AnEndCodeFreesItsLine) {
    for (const auto& [machine, cap] : {std::pair{"MK2", 160}, {"mk2", 160}, {"MK4", 210}, {"F1", 210}}) {
        Store.Machine = machine;
        Store.EndCodePresent = false;
        EXPECT_EQ(Store.MaxLines(), cap - 1) << machine;
        Store.EndCodePresent = true;
        EXPECT_EQ(Store.MaxLines(), cap) << machine;
    }
}

TEST_F(StoreTest, AddBlankLineRestoresTheOpenLine) {
    ListView& list = Store.lvCncProgram;
    Store.AddBlankLine(false);
    ASSERT_EQ(list.Count(), 1);
    EXPECT_EQ(list.SelectedRow(), 1);
    EXPECT_EQ(Last()[0], "");
    EXPECT_EQ(Last()[column::Number], "NN");
    for (int c = column::Code; c <= column::Comment; ++c) EXPECT_EQ(Last()[c], " ") << c;
    Store.AddBlankLine(true);
    EXPECT_EQ(list.Count(), 1);

    Fill(50);
    list.Select(20);
    Store.AddBlankLine(false);
    EXPECT_EQ(list.Count(), 51);
    EXPECT_EQ(list.SelectedRow(), 20);
    list.Select(7);
    Store.AddBlankLine(true);  // is there already: the selection stays too
    EXPECT_EQ(list.SelectedRow(), 7);

    Fill(50);
    list.Select(20);
    list.Height = 2000;
    Store.AddBlankLine(true);
    EXPECT_EQ(list.SelectedRow(), 51);
    EXPECT_EQ(list.TopRow(), 52 - list.VisibleRows());
    // The selected row comes into sight, wherever the list stood.
    list.RemoveRow(51);
    list.Select(3);
    Store.AddBlankLine(false);
    EXPECT_EQ(list.SelectedRow(), 3);
    EXPECT_EQ(list.TopRow(), 3);
    // A row that is no open line by its beginning is followed by one.
    list.RemoveRow(51);
    Last()[column::Number] = " 1N";
    Store.AddBlankLine(false);
    EXPECT_EQ(list.Count(), 51);
}

TEST(WordTest, SplitsACellIntoLetterAndNumber) {
    struct Case {
        const char *Cell, *Letter;
        std::int32_t Value;
    };
    const Case cases[] = {{"I 1234", "I", 1234},
                          {"-  500", "", -500},
                          {"      ", "", 0},
                          {"", "", 0},
                          {"L 05", "L", 5},
                          {"L105", "L", 105},
                          {" 499", "", 499},
                          {"t 01", "t", 1},
                          {"M 3", "M", 3},
                          {"J-20", "J", -20},
                          {"K   00", "K", 0},
                          {"D  500", "D", 500},
                          {"S1200", "S", 1200},
                          {"X 12", "", 0},
                          {"F100", "", 0},
                          {"H 12", "", 0},
                          {"R 500", "", 0},
                          {" I 12", "", 0},
                          {"-", "", 0},
                          {"I", "I", 0},
                          {"12x4", "", 12},
                          {" 1 2 3", "", 123},
                          {"--5", "", 0},
                          {"5-", "", 5},
                          {"2.5", "", 2},
                          {"3.5", "", 4},
                          {"K 2.51", "K", 3},
                          {"-0.5", "", 0},
                          {"12345678", "", 12345678},
                          {"-1234567", "", -1234567},
                          {"\t12", "", 12}};
    for (const Case& one : cases) {
        std::string letter = "old";
        std::int32_t value = -1;
        WordVal(one.Cell, letter, value);
        EXPECT_EQ(letter, one.Letter) << one.Cell;
        EXPECT_EQ(value, one.Value) << one.Cell;
        EXPECT_EQ(ReadWord(Cell(one.Cell)).Value, one.Value) << one.Cell;
    }
    try {
        ReadWord("L 3000000000");
        FAIL() << "beyond 32 bits";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number, fault::Overflow);
    }
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

TEST(LimitsTest, NoLimitWidensToTheSameNumberOfDigits) {
    for (const auto& [value, wide] : {std::pair{0, 0},
                                      {1, 9},
                                      {2, 9},
                                      {9, 9},
                                      {10, 99},
                                      {199, 999},
                                      {221, 999},
                                      {3999, 9999},
                                      {-1999, -9999},
                                      {-3999, -9999},
                                      {-12900, -99999},
                                      {-32760, -99999},
                                      {32760, 99999},
                                      {-5, -9}}) {
        EXPECT_EQ(NoLimit(value), wide) << value;
    }
}

TEST(LimitsTest, TheTableHoldsTheBoundsOfTheMachines) {
    const std::vector<int> bounds = {0,    2,      10,    199,    221,   499,    999,  -1999,
                                     1999, -3999,  3999,  -5999,  5999,  -7999,  7999, -9999,
                                     9999, -12900, 12900, -19999, 19999, -32760, 32760};
    const std::vector<int> widened = {0,    9,      99,    999,    999,   999,    999,  -9999,
                                      9999, -9999,  9999,  -9999,  9999,  -9999,  9999, -9999,
                                      9999, -99999, 99999, -99999, 99999, -99999, 99999};
    LimitTable table;
    table.Fill(true);
    for (int i = 1; i <= LimitTable::Size; ++i)
        EXPECT_EQ(table(i), widened[static_cast<std::size_t>(i) - 1]) << i;
    table.Fill(false);
    for (int i = 1; i <= LimitTable::Size; ++i)
        EXPECT_EQ(table(i), bounds[static_cast<std::size_t>(i) - 1]) << i;
    // The rooms name the entries by their numbers.
    EXPECT_EQ(table(limit::Minus12900), -12900);
    EXPECT_EQ(table(limit::Plus32760), 32760);
    Form window("frmTest");
    EXPECT_EQ(ProgramStore(window).LimitValues(limit::N221), 221);
}

TEST(TextsTest, ABlankEntryGivesTheBuiltInText) {
    EXPECT_EQ(LanguageText("English", "  "), "English");
    EXPECT_EQ(LanguageText("English", ""), "English");
    EXPECT_EQ(LanguageText("English", " Deutsch "), " Deutsch ");

    Texts texts;
    EXPECT_EQ(texts.MessageTexts(text::ClearAnyway), "File has been changed. Clear anyway?");
    texts.MessageTexts.Set(text::ClearAnyway, "Trotzdem?");
    EXPECT_EQ(texts.MessageTexts(text::ClearAnyway), "Trotzdem?");
    texts.MessageTexts.Set(text::ClearAnyway, "   ");
    EXPECT_EQ(texts.MessageTexts(text::ClearAnyway), "File has been changed. Clear anyway?");
    EXPECT_EQ(texts.ErrorTexts(2), "");

    for (const auto& [table, size] : {std::pair{&texts.ProgramErrorTexts, 22},
                                      {&texts.ErrorTexts, 30},
                                      {&texts.MessageTexts, 31},
                                      {&texts.DrawErrorTexts, 20}}) {
        table->Set(size, "last");
        EXPECT_EQ((*table)(size), "last");
        for (const int index : {0, size + 1}) {
            EXPECT_THROW((*table)(index), RunTimeError);
            EXPECT_THROW(table->Set(index, "x"), RunTimeError);
        }
    }
}

TEST(CodeTablesTest, EachMachineKnowsItsCodesInOrder) {
    Form window("frmTest");
    CodeLists lists(window);
    const auto codes = [](const ListBox& list) {
        std::string all;
        for (const std::string& entry : list.Entries()) {
            EXPECT_EQ(entry.at(4), '\t') << entry;
            EXPECT_GT(EntryDescription(entry).size(), 8u) << entry;
            all += entry.substr(0, 4);
        }
        return all;
    };
    EXPECT_EQ(codes(lists.lstMK2Gcodes),
              "G00 G01 G02 G03 G20 G21 G22 G23 G24 G26 G33 G78 G84 G90 G91 G92 G94 G95 ");
    EXPECT_EQ(codes(lists.lstMK4Gcodes),
              "G00 G01 G02 G03 G04 G21 G24 G25 G27 G33 G73 G78 G81 G82 G83 G84 G85 G86 G88 G89 G90 G91 G92 "
              "G94 G95 ");
    EXPECT_EQ(codes(lists.lstMK4Mcodes), "M00 M03 M05 M06 M08 M09 M17 M22 M23 M26 M30 M98 M99 M99R");
    EXPECT_EQ(codes(lists.lstF1Gcodes),
              "G00 G01 G02 G03 G04 G21 G25 G27 G40 G45 G46 G47 G48 G72 G73 G81 G82 G83 G85 G89 G90 G91 G92 ");
    EXPECT_EQ(codes(lists.lstF1Mcodes), "M00 M03 M05 M06 M08 M09 M17 M20 M21 M22 M23 M26 M30 M98 M99 M99R");
    EXPECT_EQ(EntryDescription("M99R\tPartial \tArc  "), "Partial Arc");
}

}  // namespace kvt::test
