#include "basic/text.h"

#include <gmock/gmock.h>

#include "basic/code_page.h"
#include "support/table.h"

namespace kvt::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(TextTest, TrimmingTakesOffBlanksOnly) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(TrimLeft("  a b  "), "a b  ");
    EXPECT_EQ(TrimRight("  a b  "), "  a b");
    EXPECT_EQ(Trim(" \ta\r\n\xA0 "), "\ta\r\n\xA0");
    EXPECT_EQ(Trim("   "), "");
}

TEST(TextTest, CaseIsThatOfTheLettersAToZ) {
    EXPECT_TRUE(EqualIgnoringCase("cmdNORENUM", "CMDnorenum"));
    EXPECT_FALSE(EqualIgnoringCase("ab", "abc"));
    EXPECT_FALSE(EqualIgnoringCase("\xE4", "\xC4"));
    EXPECT_EQ(UpperCase("`az{\xE4\xFC"), "`AZ{\xE4\xFC");
    EXPECT_TRUE(BeginsWithIgnoringCase("CmdNoRenum x", "CMDNORENUM"));
    EXPECT_FALSE(BeginsWithIgnoringCase(" CMDNORENUM", "CMDNORENUM"));
    EXPECT_FALSE(BeginsWithIgnoringCase("CMD", "CMDNORENUM"));
}

TEST(TextTest, CuttingStopsAtTheEndAndFailsInFrontOfTheBeginning) {
    EXPECT_EQ(Left("abc", 2), "ab");
    EXPECT_EQ(Left("abc", 9), "abc");
    EXPECT_EQ(Right("abc", 2), "bc");
    EXPECT_EQ(Right("abc", 9), "abc");
    EXPECT_EQ(Mid("abc", 2), "bc");
    EXPECT_EQ(Mid("abc", 9), "");
    EXPECT_EQ(Mid("abc", 2, 1), "b");
    EXPECT_EQ(Mid("abc", 3, 5), "c");
    EXPECT_EQ(ErrorOf([] { Left("abc", -1); }), fault::InvalidCall);
    EXPECT_EQ(ErrorOf([] { Right("abc", -1); }), fault::InvalidCall);
    EXPECT_EQ(ErrorOf([] { Mid("abc", 0); }), fault::InvalidCall);
    EXPECT_EQ(ErrorOf([] { Mid("abc", 1, -1); }), fault::InvalidCall);
    EXPECT_EQ(RightPad("5", 3), "  5");
    EXPECT_EQ(RightPad("12345", 3), "345");
    EXPECT_EQ(RightPad("ab", 0), "");
}

TEST(TextTest, SplitAndReplace) {
    EXPECT_THAT(Split("a,b,,c,", ","), ElementsAre("a", "b", "", "c", ""));
    EXPECT_THAT(Split("a,b,c", ",", 2), ElementsAre("a", "b,c"));
    EXPECT_THAT(Split("1to2TO3", "TO"), ElementsAre("1to2", "3"));
    EXPECT_THAT(Split("1to2TO3", "TO", -1, Compare::IgnoreCase), ElementsAre("1", "2", "3"));
    EXPECT_THAT(Split("", ","), IsEmpty());

    EXPECT_EQ(Replace("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(Replace("aaa", "a", "b", 1, 2), "bba");
    EXPECT_EQ(Replace("x.~PP", ".~pp", ""), "x.~PP");
    EXPECT_EQ(Replace("x.~PP", ".~pp", "", 1, -1, Compare::IgnoreCase), "x");
    EXPECT_EQ(Replace("abcabc", "b", "x", 3), "caxc");
    EXPECT_EQ(ErrorOf([] { Replace("abc", "a", "b", 0); }), fault::InvalidCall);
}

TEST(TextTest, NamesAndKeyLines) {
    EXPECT_EQ(ExtractFileName("C:\\cnc\\part.cnc"), "part.cnc");
    EXPECT_EQ(ExtractFileName("part.cnc"), "part.cnc");
    EXPECT_EQ(ExtractFileName("C:\\cnc\\"), "");
    EXPECT_EQ(RemoveExtension("part.old.cnc"), "part.old");
    EXPECT_EQ(RemoveExtension("part"), "part");
    for (const char* line :
         {" TXfilter = on |TXfilter|on", "[Port]=[2]|Port|2", "a=b=c|a|b=c", "=x||x", "Key=|Key|"}) {
        const auto expected = Fields(line);
        std::string key = "old", value = "old";
        ParseKeyLine(expected[0], key, value);
        EXPECT_EQ(key, expected[1]) << line;
        EXPECT_EQ(value, expected[2]) << line;
    }
}

TEST(CodePageTest, CharactersGoBothWays) {
    const std::string bytes =
        "A\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B"
        "\x9C"
        "\x9E\x9F\xA0\xB5\xDF\xE4\xFF";
    const std::string utf8 = "A€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ\u00A0µßäÿ";
    EXPECT_EQ(ToUtf8(bytes), utf8);
    EXPECT_EQ(FromUtf8(utf8), bytes);
    EXPECT_EQ(ToUtf8("\x81\x8D\x8F\x90\x9D"), "\u0081\u008D\u008F\u0090\u009D");
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    EXPECT_EQ(FromUtf8(ToUtf8(all)), all);
    // What has no byte, and what is no character.
    for (const char* line : {"aΩb|a?b", "\U0001F600|?", "\u0080|?", "a\xE4z|a?z", "\xBFz|?z", "z\xC3|z?"})
        EXPECT_EQ(FromUtf8(Fields(line)[0]), Fields(line)[1]) << line;
}

}  // namespace kvt::test
