#include "program/explanations.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "basic/line_end.h"
#include "basic/number.h"
#include "basic/text.h"

namespace kvt {

namespace {

// A finding of a fixed text stands in one of two tables; one on a limit is known by the letter of the value.
struct Row {
    ProgramErrorText Program = {};
    ErrorText Error = {};
    char Letter = 0;
    const char* Control;
    const char* Why;
    const char* Helps;
};

constexpr Row Of(ProgramErrorText finding, const char* control, const char* why, const char* helps) {
    return {finding, {}, 0, control, why, helps};
}
constexpr Row Of(ErrorText finding, const char* control, const char* why, const char* helps) {
    return {{}, finding, 0, control, why, helps};
}

constexpr const char* refuses =
    "does not take this line; it gives an alarm when the line is typed in or sent.";

// "%1" stands for the limit and its side: "5999 or less".
constexpr Row Limit(char letter, const char* why, const char* helps) {
    return {{}, {}, letter, refuses, why, helps};
}

// In the order that language modules number them: new ones at the end.
constexpr Row rows[] = {
    Of(text::UnknownControlCommand, "never sees it: comments stay in the workbench.",
       "a comment that begins with cmd is a command for the drawing, and this word is none of them.",
       "one of the commands in the help under Control commands, or a comment that begins in another way."),
    Of(text::StartAndEndSame, "has no way to go and gives an alarm.",
       "the arc ends where it begins, and so has neither centre nor radius.",
       "another end point. A whole circle is four arcs, a quarter each."),
    Of(text::OneQuadrantMax, "gives an alarm at the arc.",
       "the arc reaches over a quadrant: it passes a point straight above, below or beside its centre.",
       "two arcs, the first one up to that point; each with an M99 of its own."),
    Of(text::G24BeforeG90, "would take the X behind it for something else than they are.",
       "G24 makes X a radius. It has to be known before G90 or G92 begins with absolute measures.",
       "G24 in front of the G90 or G92."),
    Of(text::InvalidSub, "would run the same lines over and over.",
       "G25 calls a line in front of itself, itself or the very next one.",
       "the subroutine behind the end of the program, closed by M17, and its first line in L."),
    Of(text::MaxNestedSubs, "remembers the way back of five calls; at the sixth it gives an alarm.",
       "subroutines call one another more than five deep.",
       "an M17 at the end of each subroutine, or the lines of the innermost one in the place of its call."),
    Of(text::EndlessLoop, "runs these lines again and again until somebody stops it.",
       "G27 jumps to a line that has run already.",
       "a target that has not run yet. What is to run several times is a subroutine, called by G25 each "
       "time."),
    Of(text::NoSuchLine, "looks for a line that is not there and gives an alarm.",
       "L names a line behind the last one.", "the number of a line of the program in L."),
    Of(text::ReturnWithoutSub, "has nowhere to go back to and gives an alarm.",
       "the run comes to an M17 without a G25. Mostly the end in front of the subroutines is missing.",
       "M30 in front of the first subroutine, or no M17 here."),
    Of(text::MustFollowArc, "does not know whose centre this is and gives an alarm.",
       "the line in front of M99 is no G02 or G03.", "M99 right behind its arc, or no M99."),
    Of(text::DivisionOfCut, "cannot share out the cuts and gives an alarm.",
       "H, the depth of one cut, is more than there is to cut from where the tool stands.",
       "a smaller H (0 makes one cut), or a look at the target and at the position in front of the cycle."),
    Of(text::NotFullQuadrant, "takes the arc for a whole quarter of a circle and gives an alarm.",
       "without an M99 behind it the two moves of an arc have to be equal.",
       "an M99 with the centre, or with the radius, behind the arc; or equal moves."),
    Of(text::InvalidArc, "gives an alarm at the arc.",
       "the centre that M99 gives is not as far from the start of the arc as from its end.",
       "I, J and K as the distances from the start to the centre, without a sign; or the radius instead."),
    Of(text::RadiusTooSmall, "finds no such arc and gives an alarm.",
       "the arc goes farther in one direction than its radius.",
       "a larger radius, or an end point that is nearer."),
    Of(text::MustFollowM06, "does not know the radius of the tool and gives an alarm.",
       "no M06 has run in front of this line.", "an M06 with the radius of the tool in D in front of it."),
    Of(text::PocketTooSmall, "gives an alarm: the tool would have to go less than no way.",
       "the pocket has no room for the radius of the last M06.",
       "a smaller tool, a larger pocket, or the right D in the M06."),
    Of(text::TooManyLines, "would run on for days.",
       "subroutines that call others have come to a million lines, and the end is not reached.",
       "fewer calls within subroutines."),
    Of(text::MaximumLines, "has no memory for the lines from here on.",
       "the MK2 holds 160 lines, the MK4 and the F1 210, with the end of the program among them.",
       "cycles and subroutines in the place of single lines, no empty lines, or two programs."),
    Of(text::No3d, "moves in a plane or along the third axis, and gives an alarm.",
       "X, Y and Z all change in this line.",
       "two lines: the plane first and then the depth, or the other way round."),
    Limit('X', "X goes farther than this code allows: %1.",
          "a look at sign and units, and at whether X is a diameter here; a longer way in two lines. With "
          "G04 X is a time, with "
          "M98 the play."),
    Limit('Y', "Y goes farther than this code allows: %1.",
          "a look at sign, units and orientation of the mill; a longer way in two lines."),
    Limit('Z', "Z goes farther than this code allows: %1.",
          "a look at sign, units and orientation of the mill; a longer way in two lines."),
    Limit('I', "I, the distance to the centre of the arc in X, has to be %1.",
          "the distance from the start of the arc, without a sign."),
    Limit('J', "J, the distance to the centre of the arc in Y, has to be %1.",
          "the distance from the start of the arc, without a sign."),
    Limit('K',
          "K, the pitch of a thread, or with M99 the distance to the centre of the arc in Z, has to be %1.",
          "the pitch in 1/100 mm or 1/1000 inch; with M99 the distance without a sign."),
    Limit('L', "L names a line that no memory has: %1.", "the number of the line that is meant."),
    Limit('F', "the drive cannot do this feed: %1. With M26 and G23 F is a time.",
          "a feed within these bounds; a look at the units, and at G94 and G95."),
    Limit('T', "no tool has this number: %1.", "the number of the tool as it was measured."),
    Limit('H',
          "H, the depth of one cut, has to be %1. With G86 it is the width of the tool, with M26 the number "
          "of pulses.",
          "a value within these bounds; 0 is one cut."),
};
static_assert(std::size(rows) == FindingCount);

int PlaceOf(int number, int part) { return (number - 1) * ExplanationPartCount + part; }

// "!X=5999maximum": the letter, and the limit with its side. False for another text.
bool ReadLimit(std::string_view finding, const Texts& texts, char& letter, std::string& bound) {
    if (finding.size() < 4 || finding[0] != '!' || finding[2] != '=') return false;
    for (const auto& [word, side] : {std::pair{text::Minimum, text::OrMore}, {text::Maximum, text::OrLess}}) {
        const std::string_view ending = texts.MessageTexts(word);
        if (!finding.ends_with(ending)) continue;
        letter = finding[1];
        const std::string_view limit = finding.substr(3, finding.size() - 3 - ending.size());
        bound = Filled(texts.NoticeTexts(side), {std::string(Trim(limit))});
        return true;
    }
    return false;
}

int NumberOfLetter(char letter) {
    const auto found = std::find_if(std::begin(rows), std::end(rows),
                                    [letter](const Row& row) { return row.Letter == letter && letter != 0; });
    return found == std::end(rows) ? 0 : static_cast<int>(found - std::begin(rows)) + 1;
}

std::string Composed(int number, const std::string& bound, const Texts& texts) {
    constexpr std::pair<int, NoticeText> parts[] = {
        {1, text::TheControl}, {2, text::Why}, {3, text::WhatHelps}};
    std::string whole;
    for (const auto& [part, word] : parts) {
        if (!whole.empty()) whole += LineEnd;
        whole += Trim(texts.NoticeTexts(word));
        whole += ' ';
        whole += Filled(Trim(texts.ExplanationTexts.At(PlaceOf(number, part))), {bound});
    }
    return whole;
}

}  // namespace

std::span<const TextsOf<int>::Default> ExplanationDefaults() {
    static const auto defaults = [] {
        std::array<TextsOf<int>::Default, std::size(rows)* ExplanationPartCount> all = {};
        for (int i = 0; i < FindingCount; ++i) {
            const Row& row = rows[i];
            int place = PlaceOf(i + 1, 1);
            for (const char* part : {row.Control, row.Why, row.Helps}) {
                all[static_cast<std::size_t>(place) - 1] = {place, part};
                ++place;
            }
        }
        return all;
    }();
    return defaults;
}

std::string FindingName(int number, const Texts& texts) {
    if (number < 1 || number > FindingCount) return {};
    const Row& row = rows[number - 1];
    if (row.Letter != 0) return {'!', row.Letter, '='};
    return std::string(row.Program != ProgramErrorText{} ? texts.ProgramErrorTexts(row.Program)
                                                         : texts.ErrorTexts(row.Error));
}

std::string FindingSection(int number) { return "finding" + PlainNumber(number); }

int FindingNumber(std::string_view finding, const Texts& texts) {
    finding = Trim(finding);
    if (finding.empty()) return 0;
    for (int number = 1; number <= FindingCount; ++number) {
        if (rows[number - 1].Letter == 0 && Trim(FindingName(number, texts)) == finding) return number;
    }
    char letter = 0;
    std::string bound;
    return ReadLimit(finding, texts, letter, bound) ? NumberOfLetter(letter) : 0;
}

std::string Explanation(std::string_view finding, const Texts& texts) {
    const int number = FindingNumber(finding, texts);
    if (number == 0) return {};
    char letter = 0;
    std::string bound;
    ReadLimit(Trim(finding), texts, letter, bound);
    return Composed(number, bound, texts);
}

std::string ExplanationOf(int number, const Texts& texts) {
    if (number < 1 || number > FindingCount) return {};
    return Composed(number, "\x85", texts);
}

}  // namespace kvt
