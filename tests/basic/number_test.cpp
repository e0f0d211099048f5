#include "basic/number.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <vector>

#include "basic/run_time_error.h"
#include "basic/text.h"

namespace kvt::test {

namespace {

template <class Statement>
int ErrorOf(Statement statement) {
    try {
        statement();
    } catch (const RunTimeError& error) {
        return error.Number;
    }
    return 0;
}

struct Report {
    int Number;
    std::string Description, Procedure;
    bool operator==(const Report&) const = default;
};

// Keeps what is reported while it stands.
class Reports {
public:
    Reports() {
        before_ = SetErrorSink([this](const RunTimeError& error, const char* procedure) {
            All.push_back({error.Number, error.Description, procedure});
        });
    }
    ~Reports() { SetErrorSink(before_); }
    std::vector<Report> All;

private:
    ErrorSink before_;
};

}  // namespace

TEST(NumberTest, ReadsTheLongestNumericBeginning) {
    struct Case {
        const char* Text;
        double Value;
    };
    const Case cases[] = {{"", 0},
                          {"      ", 0},
                          {"-  500", -500},
                          {"1 2", 12},
                          {"12x", 12},
                          {"1E5", 1},
                          {"&H1F", 0},
                          {"x12", 0},
                          {" \t\r\n7\n8", 78},
                          {"+4", 4},
                          {"--4", 0},
                          {"+-4", 0},
                          {"-", 0},
                          {".", 0},
                          {".5", 0.5},
                          {" - . 5", -0.5},
                          {"1.2.3", 1.2},
                          {"1,5", 1},
                          {"1-2", 1},
                          {"12 345.6 7", 12345.67},
                          {"007", 7},
                          {"1\v2", 1},
                          {"12345678901234567890x", 12345678901234567890.0},
                          {"-0.00000000000000000001", -1e-20},
                          {"0000000000000000000012.5", 12.5},
                          {"+ 1 2345678901234567.5.5", 12345678901234567.5}};
    for (const Case& one : cases) {
        EXPECT_EQ(Val(one.Text), one.Value) << one.Text;
    }
}

TEST(NumberTest, NumericIsASignDigitsAndOnePoint) {
    for (const char* text : {"0", " 12 ", "-5", "+5", "1.", "-.5", "0000", "12345678901234567890"}) {
        EXPECT_TRUE(IsNumeric(text)) << text;
    }
    for (const char* text :
         {"", "   ", "-", "+", ".", "-.", "- 5", "1 2", "1.2.3", "12x", "1E5", "\t5", "5-", "&H1"}) {
        EXPECT_FALSE(IsNumeric(text)) << text;
    }
}

TEST(NumberTest, WholeNumbersAreTheNearestHalvesToEven) {
    struct Case {
        double Value;
        std::int32_t Whole;
    };
    const Case cases[] = {{0.5, 0},   {1.5, 2},    {2.5, 2}, {-0.5, 0}, {-1.5, -2},
                          {-2.5, -2}, {2.4999, 2}, {-7, -7}, {2.51, 3}};
    for (const Case& one : cases) {
        EXPECT_EQ(ToLong(one.Value), one.Whole) << one.Value;
        EXPECT_EQ(ToInteger(one.Value), one.Whole) << one.Value;
    }
    EXPECT_EQ(ToLong(2147483647.4), 2147483647);
    EXPECT_EQ(ToLong(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(ToInteger(32767.4), 32767);
    EXPECT_EQ(ToInteger(-32768.5), -32768);
    for (const double value : {2147483647.5, -2147483649.0, 1e300, -1e300}) {
        EXPECT_EQ(ErrorOf([&] { ToLong(value); }), fault::Overflow) << value;
    }
    for (const double value : {32767.5, -32769.0, 40000.0}) {
        EXPECT_EQ(ErrorOf([&] { ToInteger(value); }), fault::Overflow) << value;
    }
    EXPECT_EQ(WholePart(2.9), 2);
    EXPECT_EQ(WholePart(-2.9), -2);
}

TEST(NumberTest, DivisionAndRoots) {
    EXPECT_EQ(Remainder(7.5, 2.5), 0);  // 8 by 2
    EXPECT_EQ(Remainder(-7, 3), -1);
    EXPECT_EQ(Remainder(-2147483648.0, -1), 0);
    EXPECT_EQ(ErrorOf([] { Remainder(7, 0.5); }), fault::DivisionByZero);
    EXPECT_EQ(ErrorOf([] { Remainder(3e9, 2); }), fault::Overflow);
    EXPECT_EQ(Divide(7, -2), -3.5);
    EXPECT_EQ(ErrorOf([] { Divide(0, 0); }), fault::DivisionByZero);
    EXPECT_EQ(SquareRoot(6.25), 2.5);
    EXPECT_EQ(SquareRoot(0), 0);
    EXPECT_EQ(ErrorOf([] { SquareRoot(-0.001); }), fault::InvalidCall);
}

TEST(NumberTest, PatternsRoundHalvesAwayFromZero) {
    struct Case {
        double Value;
        const char *Pattern, *Text;
    };
    const Case cases[] = {{5, "00", "05"},          {123, "00", "123"},
                          {0, "00", "00"},          {-5, "00", "-05"},
                          {2.5, "00", "03"},        {-2.5, "00", "-03"},
                          {-0.5, "00", "-01"},      {-0.4, "##00", "00"},
                          {5, "#00", "05"},         {123.4, "#00", "123"},
                          {12345, "##00", "12345"}, {-99999.5, "###00", "-100000"},
                          {0, "0.0", "0.0"},        {1.25, "0.0", "1.3"},
                          {-0.25, "0.0", "-0.3"},   {-0.04, "0.0", "0.0"},
                          {12, "0.0", "12.0"},      {9.96, "0.0", "10.0"},
                          {23, "100", "123"},       {7, "100", "107"},
                          {0, "100", "100"},        {1e17, "00", "100000000000000000"}};
    for (const Case& one : cases) {
        EXPECT_EQ(Format(one.Value, one.Pattern), one.Text) << one.Value << " " << one.Pattern;
    }
    for (const char* kept : {"", "   ", "12x", "1 2", "-", "- 5"}) EXPECT_EQ(FormatText(kept, "00"), kept);
    EXPECT_EQ(FormatText("  5 ", "00"), "05");
    EXPECT_EQ(FormatText("-7", "##00"), "-07");
    EXPECT_EQ(FormatText("+1.5", "00"), "02");
    EXPECT_EQ(FormatText("23", "100"), "123");
}

TEST(NumberTest, TextsOf32BitFloats) {
    struct Case {
        float Value;
        const char *Signed, *Plain;
    };
    const Case cases[] = {{0, " 0", "0"},
                          {-0.0F, " 0", "0"},
                          {0.5F, " .5", "0.5"},
                          {-0.5F, "-.5", "-0.5"},
                          {-12.25F, "-12.25", "-12.25"},
                          {100, " 100", "100"},
                          {0.1F, " .1", "0.1"},
                          {1.5F, " 1.5", "1.5"},
                          {70.710678F, " 70.71068", "70.71068"},
                          {1 / 3.0F, " .33333334", "0.33333334"},
                          {0.00001F, " .00001", "0.00001"},
                          {16777216, " 16777216", "16777216"},
                          {-1e10F, "-10000000000", "-10000000000"}};
    for (const Case& one : cases) {
        EXPECT_EQ(NumberText(one.Value), one.Signed);
        EXPECT_EQ(PlainNumber(one.Value), one.Plain);
    }
    EXPECT_EQ(PlainNumber(-15), "-15");
    EXPECT_EQ(PlainNumber(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(NumberTest, FieldOfSixGivesUpTheSignPlaceThenDecimals) {
    struct Case {
        float Value;
        const char* Text;
    };
    const Case cases[] = {
        {0, "     0"},           {-0.0F, "     0"},        {0.5F, "    .5"},       {-0.5F, "   -.5"},
        {0.25F, "   .25"},       {12.5F, "  12.5"},        {-12.25F, "-12.25"},    {1234.5F, "1234.5"},
        {-1234.5F, " -1235"},    {-1234.4F, " -1234"},     {70.710678F, "70.711"}, {-70.710678F, "-70.71"},
        {0.70710678F, ".70711"}, {-0.70710678F, "-.7071"}, {1234.25F, "1234.3"},   {12345.5F, " 12346"},
        {99999.5F, "100000"},    {123456, "123456"},       {-12345, "-12345"},     {1234567, "234567"},
        {-123456, "123456"},     {1000000.5F, "000001"},   {1234.35F, "1234.4"}};
    for (const Case& one : cases) {
        EXPECT_EQ(std::string_view(FieldOfSix(one.Value)), one.Text) << one.Value;
    }
    for (int twice = -199'999; twice <= 199'999; ++twice) {
        const int whole = std::abs(twice) / 2;
        std::string text =
            (whole == 0 && twice % 2 != 0 ? "" : std::to_string(whole)) + (twice % 2 != 0 ? ".5" : "");
        if (twice < 0) text.insert(0, "-");
        if (text.size() > 6) continue;
        ASSERT_EQ(std::string_view(FieldOfSix(static_cast<float>(twice) / 2)), RightPad(text, 6));
    }
}

TEST(RunTimeErrorTest, NumbersHaveTheirTexts) {
    const std::vector<std::pair<int, const char*>> texts = {
        {5, "Invalid procedure call or argument"},
        {6, "Overflow"},
        {9, "Subscript out of range"},
        {11, "Division by zero"},
        {13, "Type mismatch"},
        {53, "File not found"},
        {62, "Input past end of file"},
        {75, "Path/File access error"},
        {91, "Object variable not set"},
        {482, "Printer error"},
        {8002, "Invalid port number"},
        {8005, "Port already open"},
        {8018, "Operation valid only when the port is open"},
        {32755, "Cancel was selected"},
    };
    for (const auto& [number, text] : texts) {
        EXPECT_EQ(RunTimeError(number).Number, number);
        EXPECT_EQ(RunTimeError(number).Description, text);
    }
    EXPECT_EQ(RunTimeError(75, "own words").Description, "own words");
}

TEST(RunTimeErrorTest, AFailingStatementIsReportedAndSkippedAsAWhole) {
    Reports reports;
    double quotient = 7;
    std::int32_t whole = 7;
    EXPECT_FALSE(Attempt("First", [&] { quotient = Divide(1, 0); }));
    EXPECT_FALSE(Attempt("Second", [&] { whole = ToLong(1e10); }));
    EXPECT_TRUE(Attempt("Third", [&] { whole += 1; }));
    EXPECT_EQ(quotient, 7);
    EXPECT_EQ(whole, 8);
    EXPECT_EQ(reports.All,
              (std::vector<Report>{{11, "Division by zero", "First"}, {6, "Overflow", "Second"}}));
    EXPECT_THROW(Attempt("Fourth", [] { throw std::logic_error("not a run-time error"); }), std::logic_error);
    EXPECT_EQ(reports.All.size(), 2u);
}

TEST(RunTimeErrorTest, TheReporterNeverRaisesAnything) {
    const ErrorSink before = SetErrorSink([](const RunTimeError&, const char*) { throw RunTimeError(75); });
    EXPECT_NO_THROW(EXPECT_FALSE(Attempt("P", [] { throw RunTimeError(5); })));
    SetErrorSink(nullptr);
    EXPECT_NO_THROW(EXPECT_FALSE(Attempt("P", [] { throw RunTimeError(5); })));
    SetErrorSink(before);
}

}  // namespace kvt::test
