// Canned cycles: how often they repeat, from the distance and the division of cut.

#include <cmath>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "interpreter/check_pass.h"

namespace kvt {

namespace {

// Chip breaking and withdrawal: a first part and then one repeat for each spacing, in program units.
struct Spacing {
    CodeKey Key;
    double MetricFirst, MetricEach;
    double InchFirst, InchEach;
};

constexpr Spacing spacings[] = {
    {code::G73, 21, 180, 11, 90},
    {code::G83, 51, 550, 26, 275},
};

constexpr CodeKey restoringKeys[] = {code::G72, code::G73, code::G78, code::G81, code::G82, code::G83,
                                     code::G84, code::G85, code::G86, code::G88, code::G89};

}  // namespace

// After a cycle the tool is back where the row began.
void CheckPass::RestorePosition() {
    if (!IsOneOf(key_, restoringKeys)) return;
    if (store_.AbsoluteMode) {
        x_ = xBefore_;
        y_ = yBefore_;
        z_ = zBefore_;
    } else {
        x_ -= xTarget_;
        y_ -= yTarget_;
        z_ -= zTarget_;
    }
}

float CheckPass::CycleDistance() const {
    return static_cast<float>(std::abs(store_.AbsoluteMode ? raw_.Z - double(z_) : double(raw_.Z)));
}

// The length that the division of cut shares out.
float CheckPass::CutDistance() const {
    if (key_ == code::G86 || key_ == code::G88) return CycleDistance();
    double x = std::abs(double(raw_.X));
    if (!store_.AbsoluteMode) return static_cast<float>(x);
    if (!store_.RadiusMode) x /= 2;
    return static_cast<float>(std::abs(double(x_)) - x);
}

CheckPass::Next CheckPass::CountRepeats() {
    float distance = 0;
    const double cut = raw_.H;
    switch (key_) {
        case code::G73:
        case code::G83: {
            const Spacing& spacing = spacings[key_ == code::G73 ? 0 : 1];
            distance = CycleDistance();
            const double first = store_.Metric ? spacing.MetricFirst : spacing.InchFirst;
            const double each = store_.Metric ? spacing.MetricEach : spacing.InchEach;
            repeats_ = static_cast<float>(WholePart((distance - first) / each) + 1);
            break;
        }
        case code::G78:
        case code::G84:
        case code::G86:
        case code::G88:
            if (raw_.H == 0) {
                repeats_ = 1;
                break;
            }
            distance = CutDistance();
            repeats_ =
                static_cast<float>(WholePart(distance / cut) + (Remainder(distance, cut) != 0 ? 1 : 0));
            break;
        default: return Next::GoOn;
    }
    if (repeats_ <= 0) return Next::GoOn;
    if (distance < cut) return EndWith(text::DivisionOfCut);
    if (interpreter_.txtComment_.Text.Empty() && !interpreter_.keepsComments_) CycleComment();
    return Next::GoOn;
}

// "@  (3x)" and the description of the code, which every machine takes from the list of the MK4.
void CheckPass::CycleComment() {
    if (describedKey_ != key_) {
        describedKey_ = key_;
        description_.clear();
        const std::string_view digits = Trim((*item_)[column::Code]);
        for (const std::string& entry : interpreter_.lists_.lstMK4Gcodes.Entries()) {
            if (kvt::Find(Left(entry, 3), digits) == 0) continue;
            description_ = EntryDescription(entry);
            break;
        }
    }
    if (!description_.empty()) comment_ = "@  (" + PlainNumber(repeats_) + "x)" + description_;
}

}  // namespace kvt
