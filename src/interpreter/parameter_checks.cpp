#include "interpreter/parameter_checks.h"

#include <cstdlib>
#include <span>

#include "basic/number.h"

namespace kvt {

namespace {

// A bound by its meaning; units and orientation choose the entry of the limit table.
enum class Bound : std::uint8_t {
    None,
    Zero,
    Two,
    Ten,
    N221,
    N499,
    N999,
    N9999,
    LatheX,
    LatheZ,
    Feed,
    MillX,
    MillY,
    Short,
    Long
};

limit::ByUnits EntryOf(Bound bound, bool horizontal) {
    switch (bound) {
        case Bound::Two: return limit::Both(limit::Two);
        case Bound::Ten: return limit::Both(limit::Ten);
        case Bound::N221: return limit::Both(limit::N221);
        case Bound::N499: return limit::Both(limit::N499);
        case Bound::N999: return limit::Both(limit::N999);
        case Bound::N9999: return limit::Both(limit::Plus9999);
        case Bound::LatheX: return limit::LatheX;
        case Bound::LatheZ: return limit::LatheZ;
        case Bound::Feed: return limit::Feed;
        case Bound::MillX: return horizontal ? limit::MillShort : limit::MillLong;
        case Bound::MillY: return horizontal ? limit::MillLong : limit::MillShort;
        case Bound::Short: return limit::MillShort;
        case Bound::Long: return limit::MillLong;
        case Bound::None:
        case Bound::Zero: break;
    }
    return limit::Both(limit::Zero);
}

int IndexOf(Bound bound, bool negated, bool metric, bool horizontal) {
    return EntryOf(bound, horizontal).In(metric) - (negated ? 1 : 0);
}

enum class Field : std::uint8_t { X, Y, Z, F, H };
enum class UnitSet : std::uint8_t { Neither, Metric, Inch, Both };

// A message that is written as it stands in front of "minimum" or "maximum"; null prints the limit itself.
struct Literal {
    const char* Metric = nullptr;
    const char* Inch = nullptr;
};

constexpr Literal Same(const char* text) { return {text, text}; }

struct Test {
    Field Of;
    char Letter;
    Bound Lower;
    bool LowerNegated;
    Literal LowerText;
    Bound Upper;
    Literal UpperText = {};
    UnitSet AbsoluteIn = UnitSet::Neither;  // where the test takes the value without its sign
    // The metric, horizontal maximum of the mill's X names the negative limit; the test is right all the same.
    bool NamesNegative = false;
};

constexpr Test Axis(Field field, char letter, Bound bound) { return {field, letter, bound, true, {}, bound}; }

constexpr Test FromZero(Field field, char letter, const char* lowerText, Bound upper) {
    return {field, letter, Bound::Zero, false, Same(lowerText), upper};
}

struct Rule {
    std::span<const CodeKey> Keys;
    std::span<const Test> Tests;
    UnitSet For = UnitSet::Both;
};

// --- Lathes ---------------------------------------------------------------------------------------------

constexpr CodeKey latheMoves[] = {code::G00, code::G01, code::G02, code::G03, code::G78,
                                  code::G84, code::G86, code::G88, code::G92, code::M06};
constexpr Test latheMoveTests[] = {Axis(Field::X, 'X', Bound::LatheX), Axis(Field::Z, 'Z', Bound::LatheZ)};

constexpr CodeKey dwell[] = {code::G04};
constexpr Test latheDwellTests[] = {FromZero(Field::X, 'X', "!X= 0 ", Bound::LatheX)};

constexpr CodeKey latheDepths[] = {code::G33, code::G73, code::G81, code::G82,
                                   code::G83, code::G85, code::G89};
constexpr Test latheDepthTests[] = {Axis(Field::Z, 'Z', Bound::LatheZ)};

constexpr CodeKey play[] = {code::M98, code::G23};
constexpr Test lathePlayTests[] = {FromZero(Field::X, 'X', "!X= 0 ", Bound::N999),
                                   FromZero(Field::Z, 'Z', "!Z= 0 ", Bound::N999),
                                   FromZero(Field::F, 'L', "!L= 0 ", Bound::N221)};

constexpr CodeKey arcCenter[] = {code::M99};
constexpr Test latheArcCenterTests[] = {FromZero(Field::X, 'I', "!I= 0 ", Bound::LatheX),
                                        FromZero(Field::Z, 'K', "!K= 0 ", Bound::LatheZ)};

constexpr CodeKey pointers[] = {code::G25, code::G27};
constexpr Test pointerTests[] = {FromZero(Field::F, 'L', "!L= 0 ", Bound::N221)};

constexpr Rule latheCoordinates[] = {
    {latheMoves, latheMoveTests}, {dwell, latheDwellTests},         {latheDepths, latheDepthTests},
    {play, lathePlayTests},       {arcCenter, latheArcCenterTests}, {pointers, pointerTests},
};

// G86 is not here: its feed is not tested.
constexpr CodeKey latheFeeds[] = {code::G01, code::G02, code::G03, code::G73, code::G81, code::G82,
                                  code::G83, code::G84, code::G85, code::G88, code::G89};
constexpr Test latheFeedTests[] = {{Field::F, 'F', Bound::Two, false, Same("!F= 2 "), Bound::Feed}};
constexpr CodeKey outputs[] = {code::G23};
constexpr Test outputTests[] = {FromZero(Field::F, 'F', "!F= 0 ", Bound::N499)};
constexpr CodeKey threads[] = {code::G33, code::G78};
constexpr Test threadTests[] = {{Field::F, 'K', Bound::Two, false, Same("!K= 2 "), Bound::Feed}};
constexpr CodeKey toolChange[] = {code::M06};
constexpr Test toolTests[] = {FromZero(Field::F, 'T', "!T= 0 ", Bound::Feed)};

constexpr Rule latheFCell[] = {
    {latheFeeds, latheFeedTests}, {outputs, outputTests}, {threads, threadTests}, {toolChange, toolTests}};

constexpr CodeKey cuts[] = {code::G78, code::G84, code::G88, code::M26};
constexpr Test cutTests[] = {FromZero(Field::H, 'H', "!H= 0 ", Bound::N999)};
constexpr CodeKey groove[] = {code::G86};
constexpr Test grooveTests[] = {{Field::H, 'H', Bound::Ten, false, {nullptr, "!H= 10 "}, Bound::N999}};

constexpr Rule latheHCell[] = {{cuts, cutTests}, {groove, grooveTests}};

// --- Mill -----------------------------------------------------------------------------------------------

constexpr Test WithoutSign(Test test, UnitSet units) {
    test.AbsoluteIn = units;
    return test;
}

constexpr Test MillXMove() {
    Test test = Axis(Field::X, 'X', Bound::MillX);
    test.NamesNegative = true;
    return test;
}

constexpr CodeKey millMoves[] = {code::G00, code::G01, code::G02, code::G03,
                                 code::G04, code::G72, code::G92, code::M06};
constexpr Test millMoveTests[] = {MillXMove(), WithoutSign(Axis(Field::Y, 'Y', Bound::MillY), UnitSet::Inch),
                                  Axis(Field::Z, 'Z', Bound::Long)};

constexpr CodeKey millDepths[] = {code::G73, code::G81, code::G82, code::G83, code::G85, code::G89};
constexpr Test millDepthTests[] = {Axis(Field::Z, 'Z', Bound::Long)};

constexpr CodeKey millPlay[] = {code::M98};
constexpr Test millPlayTests[] = {FromZero(Field::X, 'X', "!X= 0 ", Bound::Long),
                                  WithoutSign(FromZero(Field::Y, 'Y', "!Y= 0 ", Bound::Short), UnitSet::Inch),
                                  FromZero(Field::Z, 'Z', "!Z= 0 ", Bound::Long)};

// In millimetres only the upper bounds are tested, without the sign; in inches the maxima of I and J come
// before the tests against 0.
constexpr Test UpperOnly(Field field, char letter, Bound bound, UnitSet absoluteIn) {
    return {field, letter, Bound::None, false, {}, bound, {}, absoluteIn};
}
constexpr Test LowerOnly(Field field, char letter, const char* text, UnitSet absoluteIn) {
    return {field, letter, Bound::Zero, false, Same(text), Bound::None, {}, absoluteIn};
}
constexpr Test millCenterMetric[] = {UpperOnly(Field::X, 'I', Bound::MillX, UnitSet::Both),
                                     UpperOnly(Field::Y, 'J', Bound::MillY, UnitSet::Both),
                                     UpperOnly(Field::Z, 'K', Bound::Long, UnitSet::Both)};
constexpr Test millCenterInch[] = {UpperOnly(Field::X, 'I', Bound::MillX, UnitSet::Neither),
                                   UpperOnly(Field::Y, 'J', Bound::MillY, UnitSet::Both),
                                   LowerOnly(Field::X, 'I', "!I= 0 ", UnitSet::Neither),
                                   LowerOnly(Field::Y, 'J', "!J= 0 ", UnitSet::Both),
                                   LowerOnly(Field::Z, 'K', "!K= 0 ", UnitSet::Neither),
                                   UpperOnly(Field::Z, 'K', Bound::Long, UnitSet::Neither)};

constexpr Rule millCoordinates[] = {
    {millMoves, millMoveTests},
    {millDepths, millDepthTests},
    {millPlay, millPlayTests},
    {arcCenter, millCenterMetric, UnitSet::Metric},
    {arcCenter, millCenterInch, UnitSet::Inch},
    {pointers, pointerTests},
};

// G86 has no feed test here either.
constexpr CodeKey millFeeds[] = {code::G01, code::G02, code::G03, code::G72, code::G73, code::G81,
                                 code::G82, code::G83, code::G84, code::G85, code::G88, code::G89};
constexpr Test millFeedTests[] = {
    {Field::F, 'F', Bound::Two, false, Same("!F= 2 "), Bound::Feed, {"!F= 499 ", nullptr}}};
constexpr CodeKey pulses[] = {code::M26};
constexpr Test pulseTests[] = {FromZero(Field::F, 'F', "!F= 0 ", Bound::N9999)};

constexpr Rule millFCell[] = {{millFeeds, millFeedTests}, {toolChange, toolTests}, {pulses, pulseTests}};

// --- Walking the tables ---------------------------------------------------------------------------------

std::int32_t ValueOf(Field field, const RowValues& values) {
    switch (field) {
        case Field::X: return values.X;
        case Field::Y: return values.Y;
        case Field::Z: return values.Z;
        case Field::F: return values.F;
        case Field::H: break;
    }
    return values.H;
}

struct Conditions {
    const LimitTable& Limits;
    const Texts& Language;
    bool Metric;
    bool Horizontal;
};

// "!X=-5999minimum": the literal, or the letter and the limit, then the word.
std::string MessageOf(const Test& test, const Literal& literal, int index, MessageText word,
                      const Conditions& now) {
    std::string message;
    if (const char* text = now.Metric ? literal.Metric : literal.Inch) {
        message = text;
    } else {
        message = {'!', test.Letter, '='};
        message += PlainNumber(now.Limits(index));
    }
    message += now.Language.MessageTexts(word);
    return message;
}

void Apply(const Test& test, const RowValues& values, const Conditions& now, std::string& message) {
    std::int64_t value = ValueOf(test.Of, values);
    const UnitSet units = now.Metric ? UnitSet::Metric : UnitSet::Inch;
    if (test.AbsoluteIn == UnitSet::Both || test.AbsoluteIn == units) value = std::abs(value);

    if (test.Lower != Bound::None) {
        const int lower = IndexOf(test.Lower, test.LowerNegated, now.Metric, now.Horizontal);
        if (value < now.Limits(lower)) message = MessageOf(test, test.LowerText, lower, text::Minimum, now);
    }
    if (test.Upper != Bound::None) {
        const int upper = IndexOf(test.Upper, false, now.Metric, now.Horizontal);
        if (value > now.Limits(upper)) {
            const int named = test.NamesNegative && now.Metric && now.Horizontal ? upper - 1 : upper;
            message = MessageOf(test, test.UpperText, named, text::Maximum, now);
        }
    }
}

// The first rule of a group that holds a code in these units; null for none.
const Rule* RuleOf(std::span<const Rule> rules, CodeKey key, UnitSet units) {
    for (const Rule& rule : rules) {
        if (rule.For != UnitSet::Both && rule.For != units) continue;
        for (const CodeKey one : rule.Keys) {
            if (one == key) return &rule;
        }
    }
    return nullptr;
}

// The three independent groups of a machine.
struct RuleGroups {
    std::span<const Rule> Coordinates, FCell, HCell;
};

constexpr RuleGroups latheGroups{latheCoordinates, latheFCell, latheHCell};
constexpr RuleGroups millGroups{millCoordinates, millFCell, {}};

}  // namespace

ParameterChecks::ParameterChecks(const ProgramStore& store, const Texts& texts)
    : limits_(store.LimitValues),
      texts_(texts),
      metric_(store.Metric),
      horizontal_(store.Horizontal),
      mill_(store.IsF1()) {}

std::string ParameterChecks::Message(CodeKey key, const RowValues& values) const {
    const RuleGroups& groups = mill_ ? millGroups : latheGroups;
    const UnitSet units = metric_ ? UnitSet::Metric : UnitSet::Inch;
    const Conditions now{limits_, texts_, metric_, horizontal_};
    std::string message;
    for (const std::span<const Rule> group : {groups.Coordinates, groups.FCell, groups.HCell}) {
        const Rule* rule = RuleOf(group, key, units);
        if (!rule) continue;
        for (const Test& test : rule->Tests) Apply(test, values, now, message);
    }
    return message;
}

}  // namespace kvt
