#include "interpreter/parameter_checks.h"

#include <gtest/gtest.h>

#include <map>
#include <span>
#include <utility>

#include "basic/number.h"

namespace kvt::test {

namespace {

// The lowest and the highest value of one parameter that pass, and the findings one below and one above.
struct Range {
    const char* Codes;
    char Field;
    int Low, High;
    const char* Below;
    const char* Above;
};

// Where the units make no difference.
constexpr Range lathe[] = {
    {"M98 23", 'X', 0, 999, "!X= 0 minimum", "!X=999maximum"},
    {"M98 23", 'Z', 0, 999, "!Z= 0 minimum", "!Z=999maximum"},
    {"M98", 'F', 0, 221, "!L= 0 minimum", "!L=221maximum"},
    {"23", 'F', 0, 221, "!F= 0 minimum", "!L=221maximum"},
    {"25 27", 'F', 0, 221, "!L= 0 minimum", "!L=221maximum"},
    {"78 84 88 M26", 'H', 0, 999, "!H= 0 minimum", "!H=999maximum"},
};

constexpr Range latheMetric[] = {
    {"00 01 02 03 78 84 86 88 92 M06", 'X', -5999, 5999, "!X=-5999minimum", "!X=5999maximum"},
    {"00 01 02 03 78 84 86 88 92 M06", 'Z', -32760, 32760, "!Z=-32760minimum", "!Z=32760maximum"},
    {"33 73 81 82 83 85 89", 'Z', -32760, 32760, "!Z=-32760minimum", "!Z=32760maximum"},
    {"04", 'X', 0, 5999, "!X= 0 minimum", "!X=5999maximum"},
    {"M99", 'X', 0, 5999, "!I= 0 minimum", "!I=5999maximum"},
    {"M99", 'Z', 0, 32760, "!K= 0 minimum", "!K=32760maximum"},
    {"01 02 03 73 81 82 83 84 85 88 89", 'F', 2, 499, "!F= 2 minimum", "!F=499maximum"},
    {"33 78", 'F', 2, 499, "!K= 2 minimum", "!K=499maximum"},
    {"M06", 'F', 0, 499, "!T= 0 minimum", "!T=499maximum"},
    {"86", 'H', 10, 999, "!H=10minimum", "!H=999maximum"},
};

constexpr Range latheInch[] = {
    {"00 01 02 03 78 84 86 88 92 M06", 'X', -1999, 1999, "!X=-1999minimum", "!X=1999maximum"},
    {"00 01 02 03 78 84 86 88 92 M06", 'Z', -12900, 12900, "!Z=-12900minimum", "!Z=12900maximum"},
    {"33 73 81 82 83 85 89", 'Z', -12900, 12900, "!Z=-12900minimum", "!Z=12900maximum"},
    {"04", 'X', 0, 1999, "!X= 0 minimum", "!X=1999maximum"},
    {"M99", 'X', 0, 1999, "!I= 0 minimum", "!I=1999maximum"},
    {"M99", 'Z', 0, 12900, "!K= 0 minimum", "!K=12900maximum"},
    {"01 02 03 73 81 82 83 84 85 88 89", 'F', 2, 199, "!F= 2 minimum", "!F=199maximum"},
    {"33 78", 'F', 2, 199, "!K= 2 minimum", "!K=199maximum"},
    {"M06", 'F', 0, 199, "!T= 0 minimum", "!T=199maximum"},
    {"86", 'H', 10, 999, "!H= 10 minimum", "!H=999maximum"},
};

// On the mill the orientation decides about X and Y alone.
constexpr Range mill[] = {
    {"25 27", 'F', 0, 221, "!L= 0 minimum", "!L=221maximum"},
    {"M26", 'F', 0, 9999, "!F= 0 minimum", "!F=9999maximum"},
};

constexpr Range millMetric[] = {
    {"00 01 02 03 04 72 92 M06", 'Z', -19999, 19999, "!Z=-19999minimum", "!Z=19999maximum"},
    {"73 81 82 83 85 89", 'Z', -19999, 19999, "!Z=-19999minimum", "!Z=19999maximum"},
    {"M98", 'X', 0, 19999, "!X= 0 minimum", "!X=19999maximum"},
    {"M98", 'Y', 0, 9999, "!Y= 0 minimum", "!Y=9999maximum"},
    {"M98", 'Z', 0, 19999, "!Z= 0 minimum", "!Z=19999maximum"},
    {"M99", 'Z', -19999, 19999, "!K=19999maximum", "!K=19999maximum"},
    {"01 02 03 72 73 81 82 83 84 85 88 89", 'F', 2, 499, "!F= 2 minimum", "!F= 499 maximum"},
    {"M06", 'F', 0, 499, "!T= 0 minimum", "!T=499maximum"},
};

constexpr Range millInch[] = {
    {"00 01 02 03 04 72 92 M06", 'Z', -7999, 7999, "!Z=-7999minimum", "!Z=7999maximum"},
    {"73 81 82 83 85 89", 'Z', -7999, 7999, "!Z=-7999minimum", "!Z=7999maximum"},
    {"M98", 'X', 0, 7999, "!X= 0 minimum", "!X=7999maximum"},
    {"M98", 'Y', -3999, 3999, "!Y=3999maximum", "!Y=3999maximum"},
    {"M98", 'Z', 0, 7999, "!Z= 0 minimum", "!Z=7999maximum"},
    {"M99", 'Z', 0, 7999, "!K= 0 minimum", "!K=7999maximum"},
    {"01 02 03 72 73 81 82 83 84 85 88 89", 'F', 2, 199, "!F= 2 minimum", "!F=199maximum"},
    {"M06", 'F', 0, 199, "!T= 0 minimum", "!T=199maximum"},
};

constexpr Range verticalMetric[] = {
    {"00 01 02 03 04 72 92 M06", 'X', -19999, 19999, "!X=-19999minimum", "!X=19999maximum"},
    {"00 01 02 03 04 72 92 M06", 'Y', -9999, 9999, "!Y=-9999minimum", "!Y=9999maximum"},
    {"M99", 'X', -19999, 19999, "!I=19999maximum", "!I=19999maximum"},
    {"M99", 'Y', -9999, 9999, "!J=9999maximum", "!J=9999maximum"},
};

// The maximum of X names the wrong sign here.
constexpr Range horizontalMetric[] = {
    {"00 01 02 03 04 72 92 M06", 'X', -9999, 9999, "!X=-9999minimum", "!X=-9999maximum"},
    {"00 01 02 03 04 72 92 M06", 'Y', -19999, 19999, "!Y=-19999minimum", "!Y=19999maximum"},
    {"M99", 'X', -9999, 9999, "!I=9999maximum", "!I=9999maximum"},
    {"M99", 'Y', -19999, 19999, "!J=19999maximum", "!J=19999maximum"},
};

// In inches Y counts without its sign.
constexpr Range verticalInch[] = {
    {"00 01 02 03 04 72 92 M06", 'X', -7999, 7999, "!X=-7999minimum", "!X=7999maximum"},
    {"00 01 02 03 04 72 92 M06", 'Y', -3999, 3999, "!Y=3999maximum", "!Y=3999maximum"},
    {"M99", 'X', 0, 7999, "!I= 0 minimum", "!I=7999maximum"},
    {"M99", 'Y', -3999, 3999, "!J=3999maximum", "!J=3999maximum"},
};

constexpr Range horizontalInch[] = {
    {"00 01 02 03 04 72 92 M06", 'X', -3999, 3999, "!X=-3999minimum", "!X=3999maximum"},
    {"00 01 02 03 04 72 92 M06", 'Y', -7999, 7999, "!Y=7999maximum", "!Y=7999maximum"},
    {"M99", 'X', 0, 3999, "!I= 0 minimum", "!I=3999maximum"},
    {"M99", 'Y', -7999, 7999, "!J=7999maximum", "!J=7999maximum"},
};

// With limits disabled every bound is the largest number of its width, lower ones too.
constexpr Range widenedLatheMetric[] = {
    {"00", 'X', -9999, 9999, "!X=-9999minimum", "!X=9999maximum"},
    {"00", 'Z', -99999, 99999, "!Z=-99999minimum", "!Z=99999maximum"},
    {"25", 'F', 0, 999, "!L= 0 minimum", "!L=999maximum"},
    {"01", 'F', 9, 999, "!F= 2 minimum", "!F=999maximum"},
    {"86", 'H', 99, 999, "!H=99minimum", "!H=999maximum"},
};
constexpr Range widenedLatheInch[] = {
    {"00", 'X', -9999, 9999, "!X=-9999minimum", "!X=9999maximum"},
    {"33", 'F', 9, 999, "!K= 2 minimum", "!K=999maximum"},
    {"86", 'H', 99, 999, "!H= 10 minimum", "!H=999maximum"},
};
constexpr Range widenedMill[] = {
    {"00", 'X', -9999, 9999, "!X=-9999minimum", "!X=-9999maximum"},
    {"00", 'Y', -99999, 99999, "!Y=-99999minimum", "!Y=99999maximum"},
    {"72", 'F', 9, 999, "!F= 2 minimum", "!F= 499 maximum"},
};

struct Setting {
    const char* Machine;
    bool Metric;
    bool Horizontal;
};

CodeKey KeyOfCode(const std::string& code) {
    return KeyOf(code.size() == 2 ? " " + code + " " : code.size() == 3 ? code + " " : code);
}

std::int32_t& ValueOf(RowValues& values, char field) {
    switch (field) {
        case 'X': return values.X;
        case 'Y': return values.Y;
        case 'Z': return values.Z;
        case 'F': return values.F;
        default: return values.H;
    }
}

class ParameterChecksTest : public ::testing::Test {
protected:
    void Use(const Setting& setting) {
        Store.Machine = MachineNamed(setting.Machine).value();
        Store.Metric = setting.Metric;
        Store.Horizontal = setting.Horizontal;
        Checks = std::make_unique<ParameterChecks>(Store, Language);
    }

    // The finding of a row that is good but for one parameter.
    std::string With(const std::string& code, char field, int value) {
        RowValues values{0, 0, 0, 50, 99};
        ValueOf(values, field) = value;
        return Checks->Message(KeyOfCode(code), values);
    }

    void ExpectRange(const Range& range, const std::string& code) {
        const std::string what = std::string(NameOf(Store.Machine)) + " " + code + " " + range.Field;
        EXPECT_EQ(With(code, range.Field, range.Low), "") << what;
        EXPECT_EQ(With(code, range.Field, range.Low - 1), range.Below) << what;
        EXPECT_EQ(With(code, range.Field, range.High), "") << what;
        EXPECT_EQ(With(code, range.Field, range.High + 1), range.Above) << what;
    }

    static std::vector<std::string> CodesOf(const Range& range) {
        std::vector<std::string> codes;
        for (const std::string_view code : Split(range.Codes, " ")) codes.emplace_back(code);
        return codes;
    }

    Form Window{"frmMain"};
    ProgramStore Store{Window};
    Texts Language;
    std::unique_ptr<ParameterChecks> Checks;
};

// Every code from 00 to 99, every parameter: the range of the tables, or none at all.
TEST_F(ParameterChecksTest, BoundsOfEveryCodeOnEveryMachine) {
    const std::pair<Setting, std::vector<std::span<const Range>>> machines[] = {
        {{"MK2", true, false}, {lathe, latheMetric}},
        {{"mk4", true, true}, {lathe, latheMetric}},
        {{"MK2", false, false}, {lathe, latheInch}},
        {{"MK4", false, true}, {lathe, latheInch}},
        {{"F1", true, false}, {mill, millMetric, verticalMetric}},
        {{"F1", true, true}, {mill, millMetric, horizontalMetric}},
        {{"F1", false, false}, {mill, millInch, verticalInch}},
        {{"f1", false, true}, {mill, millInch, horizontalInch}},
    };
    for (const auto& [setting, tables] : machines) {
        Use(setting);
        std::map<std::pair<std::string, char>, Range> ranges;
        for (const auto& table : tables) {
            for (const Range& range : table) {
                for (const std::string& code : CodesOf(range)) {
                    ASSERT_TRUE(ranges.emplace(std::pair(code, range.Field), range).second) << code;
                }
            }
        }
        std::vector<std::string> codes = {"M99R", "M9R", "ZZ"};
        for (int number = 0; number < 100; ++number) {
            codes.push_back(Format(number, "00"));
            codes.push_back("M" + Format(number, "00"));
        }
        for (const std::string& code : codes) {
            for (const char field : {'X', 'Y', 'Z', 'F', 'H'}) {
                if (const auto found = ranges.find({code, field}); found != ranges.end()) {
                    ExpectRange(found->second, code);
                    continue;
                }
                EXPECT_EQ(With(code, field, INT32_MIN), "") << NameOf(Store.Machine) << " " << code << field;
                EXPECT_EQ(With(code, field, INT32_MAX), "") << NameOf(Store.Machine) << " " << code << field;
            }
        }
    }
}

TEST_F(ParameterChecksTest, LastFindingOfARowIsShown) {
    const struct {
        Setting On;
        const char* Code;
        RowValues Values;
        const char* Message;
    } cases[] = {
        {{"MK4", true, false}, "00", {6000, 0, -32761, 0, 0}, "!Z=-32760minimum"},
        {{"MK4", true, false}, "01", {6000, 0, 0, 1, 0}, "!F= 2 minimum"},
        {{"MK4", true, false}, "84", {0, 0, 40000, 500, 1000}, "!H=999maximum"},
        {{"MK4", true, false}, "84", {6000, 0, 0, 500, 999}, "!F=499maximum"},
        {{"MK4", true, false}, "M98", {1000, 0, 1000, 222, 0}, "!L=221maximum"},
        {{"MK4", true, false}, "23", {1000, 0, -1, 499, 0}, "!L=221maximum"},
        {{"MK4", true, false}, "23", {0, 0, 0, 500, 0}, "!F=499maximum"},
        {{"MK4", false, false}, "M06", {2000, 0, 0, 200, 0}, "!T=199maximum"},
        {{"F1", true, false}, "72", {20000, 10000, 0, 50, 0}, "!Y=9999maximum"},
        {{"F1", true, false}, "M99", {20000, -10000, 0, 0, 0}, "!J=9999maximum"},
        {{"F1", false, false}, "M99", {8000, 4000, 0, 0, 0}, "!J=3999maximum"},
        {{"F1", false, false}, "M99", {-1, 4000, 0, 0, 0}, "!I= 0 minimum"},
        {{"F1", false, false}, "M99", {-1, 0, -1, 0, 0}, "!K= 0 minimum"},
        {{"F1", false, false}, "M99", {8000, 4000, 8000, 0, 0}, "!K=7999maximum"},
    };
    for (const auto& one : cases) {
        Use(one.On);
        EXPECT_EQ(Checks->Message(KeyOfCode(one.Code), one.Values), one.Message) << one.Code;
    }
}

TEST_F(ParameterChecksTest, DisabledLimitsAreWidened) {
    Store.LimitValues.Fill(true);
    const std::pair<Setting, std::span<const Range>> machines[] = {
        {{"MK4", true, false}, widenedLatheMetric},
        {{"MK2", false, false}, widenedLatheInch},
        {{"F1", true, true}, widenedMill},
    };
    for (const auto& [setting, table] : machines) {
        Use(setting);
        for (const Range& range : table) ExpectRange(range, range.Codes);
    }
}

}  // namespace

}  // namespace kvt::test
