#include "basic/number.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <stdexcept>

#include "basic/text.h"
#include "support/table.h"

namespace kvt::test {

TEST(NumberTest, ReadsTheLongestNumericBeginning) {
    const std::string_view cases =
        "|0/      |0/-  500|-500/1 2|12/12x|12/1E5|1/&H1F|0/x12|0/ "
        "\t\r\n7\n8|78/+4|4/--4|0/+-4|0/-|0/.|0/.5|0.5/ - . 5|-0.5/1.2.3|1.2/1,5|1/1-2|1/12 345.6 "
        "7|12345.67/1\v2|1/12345678901234567890x|12345678901234567890/-0.00000000000000000001|-1e-20/"
        "0000000000000000000012.5|12.5/+ 1 2345678901234567.5.5|12345678901234567.5";
    for (const std::string_view line : Split(cases, "/"))
        EXPECT_EQ(Val(Fields(line)[0]), std::stod(Fields(line)[1])) << line;
}

TEST(NumberTest, NumericIsASignDigitsAndOnePoint) {
    for (const char* text : {"0", " 12 ", "-5", "+5", "1.", "-.5", "12345678901234567890"})
        EXPECT_TRUE(IsNumeric(text)) << text;
    for (const char* text : {"", "   ", "-", ".", "-.", "- 5", "1 2", "1.2.3", "12x", "1E5", "\t5", "5-"})
        EXPECT_FALSE(IsNumeric(text)) << text;
}

TEST(NumberTest, WholeNumbersAndDivision) {
    // The number, then the nearest whole one, halves to even.
    const double pairs[] = {0.5, 0,    1.5, 2,    2.5, 2,       2.51,  3,        -0.5,
                            0,   -1.5, -2,  -2.5, -2,  32767.4, 32767, -32768.5, -32768};
    for (std::size_t i = 0; i < std::size(pairs); i += 2) {
        EXPECT_EQ(ToLong(pairs[i]), pairs[i + 1]) << pairs[i];
        EXPECT_EQ(ToInteger(pairs[i]), pairs[i + 1]) << pairs[i];
    }
    EXPECT_EQ(ToLong(2147483647.4), 2147483647);
    EXPECT_EQ(ToLong(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    for (const double value : {2147483647.5, -2147483649.0, 1e300})
        EXPECT_EQ(ErrorOf([&] { ToLong(value); }), fault::Overflow) << value;
    for (const double value : {32767.5, -32769.0, 1e300})
        EXPECT_EQ(ErrorOf([&] { ToInteger(value); }), fault::Overflow) << value;
    EXPECT_EQ(WholePart(2.9), 2);
    EXPECT_EQ(WholePart(-2.9), -2);

    EXPECT_EQ(Remainder(7.5, 2.5), 0);  // 8 by 2
    EXPECT_EQ(Remainder(-7, 3), -1);
    EXPECT_EQ(Remainder(-2147483648.0, -1), 0);
    EXPECT_EQ(ErrorOf([] { Remainder(7, 0.5); }), fault::DivisionByZero);
    EXPECT_EQ(ErrorOf([] { Remainder(3e9, 2); }), fault::Overflow);
    EXPECT_EQ(ErrorOf([] { Divide(0, 0); }), fault::DivisionByZero);
    EXPECT_EQ(SquareRoot(6.25), 2.5);
    EXPECT_EQ(ErrorOf([] { SquareRoot(-0.001); }), fault::InvalidCall);
}

TEST(NumberTest, PatternsRoundHalvesAwayFromZero) {
    // Number, pattern, text.
    const std::string_view cases =
        "5 00 05, 123 00 123, 0 00 00, -5 00 -05, 2.5 00 03, -2.5 00 -03, -0.5 00 -01, -0.4 ##00 00, 5 #00 "
        "05, "
        "12345 ##00 12345, -99999.5 ###00 -100000, 0 0.0 0.0, 1.25 0.0 1.3, -0.25 0.0 -0.3, -0.04 0.0 0.0, "
        "12 0.0 12.0, 9.96 0.0 10.0, 23 100 123, 7 100 107, 0 100 100";
    for (const std::string_view line : Split(cases, ", ")) {
        const auto one = Split(line, " ");
        EXPECT_EQ(Format(std::stod(std::string(one[0])), one[1]), one[2]) << line;
    }
    for (const char* kept : {"", "   ", "12x", "1 2", "-", "- 5"}) EXPECT_EQ(FormatText(kept, "00"), kept);
    EXPECT_EQ(FormatText("  5 ", "00"), "05");
    EXPECT_EQ(FormatText("+1.5", "00"), "02");
}

TEST(NumberTest, TextsOf32BitFloats) {
    // The number, with its sign place, plain.
    for (const char* line :
         {"0| 0|0", "-0| 0|0", "0.5| .5|0.5", "-0.5|-.5|-0.5", "-12.25|-12.25|-12.25", "100| 100|100",
          "0.1| .1|0.1", "70.710678| 70.71068|70.71068", "0.333333333| .33333334|0.33333334",
          "0.00001| .00001|0.00001", "16777216| 16777216|16777216", "-1e10|-10000000000|-10000000000"}) {
        const auto one = Fields(line);
        EXPECT_EQ(NumberText(std::stof(one[0])), one[1]);
        EXPECT_EQ(PlainNumber(std::stof(one[0])), one[2]);
    }
    EXPECT_EQ(PlainNumber(-15), "-15");
    EXPECT_EQ(PlainNumber(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(NumberTest, FieldOfSixGivesUpTheSignPlaceThenDecimals) {
    for (const char* line :
         {"-0|     0",         "0.25|   .25",        "-12.25|-12.25",    "1234.5|1234.5",
          "-1234.5| -1235",    "-1234.4| -1234",     "70.710678|70.711", "-70.710678|-70.71",
          "0.70710678|.70711", "-0.70710678|-.7071", "1234.25|1234.3",   "1234.35|1234.4",
          "1.00185|1.0019",    "12345.5| 12346",     "99999.5|100000",   "1234567|234567",
          "-123456|123456",    "1000000.5|000001",   "0.999995|1.0000",  "-0.99996|-1.000",
          "0.999994|.99999",   "9.99996|10.000",     "-99.9996|-100.0"}) {
        const auto one = Fields(line);
        EXPECT_EQ(std::string_view(FieldOfSix(std::stof(one[0]))), RightPad(one[1], 6)) << line;
    }
    // All that fits, in halves.
    for (int twice = -199'999; twice <= 199'999; ++twice) {
        const int whole = std::abs(twice) / 2;
        std::string text =
            (whole == 0 && twice % 2 != 0 ? "" : std::to_string(whole)) + (twice % 2 != 0 ? ".5" : "");
        if (twice < 0) text.insert(0, "-");
        if (text.size() > 6) continue;
        ASSERT_EQ(std::string_view(FieldOfSix(static_cast<float>(twice) / 2)), RightPad(text, 6));
    }
}

TEST(RunTimeErrorTest, AFailingStatementIsReportedAndSkippedAsAWhole) {
    std::vector<std::string> reports;
    const ErrorSink before = SetErrorSink([&](const RunTimeError& error, const char* procedure) {
        reports.push_back(std::to_string(error.Number) + " " + procedure);
    });
    double quotient = 7;
    std::int32_t whole = 7;
    EXPECT_FALSE(Attempt("First", [&] { quotient = Divide(1, 0); }));
    EXPECT_FALSE(Attempt("Second", [&] { whole = ToLong(1e10); }));
    EXPECT_TRUE(Attempt("Third", [&] { whole += 1; }));
    EXPECT_EQ(quotient, 7);
    EXPECT_EQ(whole, 8);
    EXPECT_THAT(reports, ::testing::ElementsAre("11 First", "6 Second"));
    EXPECT_THROW(Attempt("Fourth", [] { throw std::logic_error("not a run-time error"); }), std::logic_error);
    EXPECT_EQ(reports.size(), 2u);
    // Whoever is told never raises anything.
    SetErrorSink([](const RunTimeError&, const char*) { throw RunTimeError(75); });
    EXPECT_NO_THROW(Attempt("Fifth", [] { throw RunTimeError(5); }));
    SetErrorSink(nullptr);
    EXPECT_NO_THROW(Attempt("Sixth", [] { throw RunTimeError(5); }));
    SetErrorSink(before);
}

}  // namespace kvt::test
