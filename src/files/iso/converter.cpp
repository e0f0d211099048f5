#include "files/iso/converter.h"

#include <algorithm>
#include <cmath>

#include "basic/number.h"
#include "basic/text.h"
#include "editor/value_range.h"

namespace kvt::iso {

namespace {

constexpr double millimetresPerInch = 25.4;
constexpr std::size_t longestComment = 50;
// Whole numbers beyond this are in no column of any machine.
constexpr double largestNumber = 99'999;

// G codes that change nothing here: compensation off, work offsets, exact path, cycles off, constant speed.
constexpr int ignoredCodes[] = {40, 49, 54, 55, 56, 57, 58, 59, 64, 80, 97};

bool IsIgnored(int code) {
    return std::find(std::begin(ignoredCodes), std::end(ignoredCodes), code) != std::end(ignoredCodes);
}

}  // namespace

const Word* FindWord(const Block& block, char letter) {
    const auto found = std::find_if(block.Words.begin(), block.Words.end(),
                                    [&](const Word& word) { return word.Letter == letter; });
    return found == block.Words.end() ? nullptr : &*found;
}

Converter::Converter(MachineModel machine) {
    program_.Machine = machine;
    axes_ = Lathe() ? std::vector<Axis>{{'X'}, {'Z'}} : std::vector<Axis>{{'X'}, {'Y'}, {'Z'}};
}

void Converter::Refuse(const std::string& why) const { throw Refusal{line_, why}; }

std::string Converter::LineText(int line) { return "Line " + PlainNumber(line) + ": "; }

void Converter::Remark(const std::string& text) {
    if (std::find(remarks_.begin(), remarks_.end(), text) == remarks_.end()) remarks_.push_back(text);
}

MachineProgram Converter::Convert(const std::vector<Block>& blocks) {
    for (const Block& block : blocks) {
        line_ = block.Line;
        if (ended_) {
            Remark(block, "what follows the end of the program was left out.");
            break;
        }
        ConvertBlock(block);
    }
    if (program_.Rows.empty()) throw Refusal{0, "there is nothing to convert"};
    if (!ended_) AddRow(program_.Machine == MachineModel::MK2 ? "22" : "M30").Comment = "End of program";
    return program_;
}

// What the block says, then the changes of state in the order of a control, the way, and last stop and end.
void Converter::ConvertBlock(const Block& block) {
    setsPosition_ = dwells_ = referenceReturn_ = toolChange_ = end_ = false;
    stop_ = spindle_ = -1;
    // A comment on a line of its own belongs to the block behind it.
    if (!block.Comment.empty()) comment_ = block.Comment.substr(0, longestComment);
    // A comment must not become a command of the control.
    if (EqualIgnoringCase(Left(comment_, 3), "cmd")) comment_ = "* " + comment_.substr(0, longestComment - 2);
    if (block.Words.empty()) {
        if (!program_.Rows.empty()) return;
        program_.Notes.push_back(block.Comment);
        comment_.clear();
        return;
    }
    for (const Word& word : block.Words) {
        if (word.Letter == 'G') ApplyGCode(word);
    }
    if (SkipsBlock(block)) return;
    for (const Word& word : block.Words) {
        // A dwell has numbers of its own.
        if (word.Letter != 'G' && !dwells_) ApplyNumber(word);
    }
    for (const Word& word : block.Words) {
        if (word.Letter == 'M') ApplyMCode(word);
    }
    if (toolChange_) ChangeTool();
    if (spindle_ > 0) SwitchSpindle(true);
    if (dwells_) {
        Dwell(block);
    } else {
        Move(block);
    }
    if (spindle_ == 0) SwitchSpindle(false);
    if (stop_ >= 0) AddRow(program_.Machine == MachineModel::MK2 ? "20" : "M00");
    if (end_) {
        AddRow(program_.Machine == MachineModel::MK2 ? "22" : "M30");
        ended_ = true;
    }
}

void Converter::ApplyGCode(const Word& word) {
    const int code = word.Value >= 0 && word.Value <= 99 ? static_cast<int>(word.Value) : -1;
    if (code < 0 || code != word.Value) Refuse("G" + word.Text + " is not known");
    if (code <= 3) {
        motion_ = code;
    } else if (code == 4) {
        dwells_ = true;
    } else if (code == 28 || code == 30) {
        referenceReturn_ = true;
    } else if (code == 50 || code == 92) {
        setsPosition_ = true;
    } else if (!IsIgnored(code)) {
        ApplyModalCode(code, word);
    }
}

void Converter::ApplyModalCode(int code, const Word& word) {
    switch (code) {
        case 17:
        case 18:
        case 19:
            if (code != (Lathe() ? 18 : 17)) Refuse("this plane (G" + word.Text + ") is not converted");
            return;
        case 20:
        case 21:
        case 70:
        case 71:
            metric_ = code == 21 || code == 71;
            if (!unitsSet_ && !begun_) program_.Metric = metric_;
            unitsSet_ = true;
            return;
        case 43: return Remark("The length of the tool (G43) was left out: it is set with the tool change.");
        case 90:
        case 91: absolute_ = code == 90; return;
        case 94:
        case 95: perTurn_ = code == 95; return;
        // How far a cycle of the mill goes back; on lathes another pair of codes for the feed.
        case 98:
        case 99: perTurn_ = Lathe() && code == 99; return;
        case 41:
        case 42:
            Refuse("the compensation G" + word.Text + " cannot be converted; have it worked out by the CAM");
        case 96: Refuse("a constant cutting speed (G96) is not possible; give the spindle speed (G97)");
        default: break;
    }
    if (code >= 72 && code <= 89)
        Refuse("the cycle G" + word.Text + " is not converted; have it written out");
    Refuse("G" + word.Text + " is not converted");
}

// Reference returns and subprograms are left out, with a remark.
bool Converter::SkipsBlock(const Block& block) {
    if (referenceReturn_) {
        Remark(block, "the return to the reference point was left out.");
        return true;
    }
    for (const Word& word : block.Words) {
        if (word.Letter != 'M' || (word.Value != 98 && word.Value != 97 && word.Value != 99)) continue;
        Remark(block, word.Value == 99 ? "the end of a subprogram was left out."
                                       : "the call of a subprogram was left out.");
        return true;
    }
    return false;
}

void Converter::ApplyNumber(const Word& word) {
    switch (word.Letter) {
        case 'F':
            feed_ = ToProgramUnits(word.Value) / 100;
            if (feed_ <= 0) Refuse("the feed must be above 0");
            return;
        case 'S':
            if (!setsPosition_) speed_ = word.Value;  // there it is the highest speed
            return;
        case 'T': {
            // On lathes the last two digits of four name the offset.
            const double tool = word.Value >= 100 && Lathe() ? std::floor(word.Value / 100) : word.Value;
            if (tool < 0 || tool > 99 || tool != std::floor(tool))
                Refuse("tool T" + word.Text + " is not possible");
            toolChange_ = toolChange_ || (Lathe() && tool_ != static_cast<int>(tool));
            tool_ = static_cast<int>(tool);
            return;
        }
        case 'A':
        case 'B':
        case 'C':
        case 'E':
        case 'V': Refuse(std::string("the machine has no axis ") + word.Letter);
        case 'Y':
        case 'J':
            if (Lathe()) Refuse(std::string("a lathe has no ") + word.Letter);
            return;
        case 'U':
        case 'W':
            if (!Lathe()) Refuse(std::string("the machine has no axis ") + word.Letter);
            return;
        default: return;
    }
}

void Converter::ApplyMCode(const Word& word) {
    const int code = word.Value >= 0 && word.Value <= 99 ? static_cast<int>(word.Value) : -1;
    switch (code) {
        case 0:
        case 1: stop_ = code; return;
        case 2:
        case 30: end_ = true; return;
        case 3: spindle_ = 1; return;
        case 4: Refuse("the spindle turns one way only (M04)");
        case 5: spindle_ = 0; return;
        case 6: toolChange_ = true; return;
        case 7:
        case 8:
        case 9: return Remark("Coolant (M07, M08, M09) was left out.");
        default: Refuse("M" + word.Text + " is not possible on this machine");
    }
}

void Converter::SwitchSpindle(bool on) {
    const double turns = on ? speed_ : 0;
    if (on && spindleSpeed_ == turns) return;
    spindleSpeed_ = turns;
    if (program_.Machine == MachineModel::F1 && on) {
        const auto change = std::find_if(program_.Rows.rbegin(), program_.Rows.rend(),
                                         [](const Row& row) { return row.Code == "M06"; });
        if (change != program_.Rows.rend() && change->Parameters[1] == 0)
            change->Parameters[1] = ToWhole(speed_);
    }
    const std::string speed =
        on && speed_ > 0 ? " at " + PlainNumber(static_cast<float>(speed_)) + " rpm" : "";
    // That spindle is switched by hand: the program stops for it.
    const bool byHand = program_.Machine == MachineModel::MK2;
    Row& row = AddRow(byHand ? "20" : on ? "M03" : "M05");
    row.Comment = (on ? "Spindle on" : "Spindle off") + speed + (byHand ? " by hand, then Start" : "");
}

void Converter::ChangeTool() {
    if (tool_ < 0) Refuse("no tool is named for the change");
    Row& row = AddRow(program_.Machine == MachineModel::MK2 ? "26" : "M06");
    row.Parameters = {0, std::nullopt, 0, tool_};
    if (!Lathe()) row.Parameters[1] = ToWhole(speed_);
    Remark("The measures of the tools are not in the program: enter them in the lines of the tool change.");
}

void Converter::Dwell(const Block& block) {
    if (program_.Machine == MachineModel::MK2)
        return Remark(block, "the dwell was left out, the MK2 has none.");
    double seconds = 0;
    // P without a point counts milliseconds.
    if (const Word* word = FindWord(block, 'P'))
        seconds = word->Text.find('.') == std::string::npos ? word->Value / 1000 : word->Value;
    for (const char letter : {'X', 'U'}) {
        if (const Word* word = FindWord(block, letter)) seconds = word->Value;
    }
    if (seconds <= 0) Refuse("the dwell has no time");
    AddRow("04").Parameters[0] = static_cast<int>(std::lround(std::min(seconds, 999.0) * 100));
}

int Converter::ToWhole(double value) const {
    if (!(std::abs(value) <= largestNumber)) Refuse("a number is too large for the machine");
    return static_cast<int>(std::lround(value));
}

// A length of the program in units of the result.
double Converter::ToProgramUnits(double value) const {
    if (program_.Metric) return value * 100 * (metric_ ? 1 : millimetresPerInch);
    return value * 1000 / (metric_ ? millimetresPerInch : 1);
}

// Rows take the comment of the block with the first of them.
Row& Converter::AddRow(const std::string& code) {
    Row row;
    row.Code = code;
    row.Comment = comment_;
    comment_.clear();
    row.Line = line_;
    program_.Rows.push_back(std::move(row));
    return program_.Rows.back();
}

void Converter::AddPosition(const std::string& code, bool feeds) {
    Row& row = AddRow(code);
    for (const Axis& axis : axes_)
        row.Parameters[static_cast<std::size_t>(axis.Letter - 'X')] = ToWhole(axis.At);
    if (feeds) row.Parameters[3] = FeedNumber();
}

// Millimetres a minute, or tenths of an inch.
int Converter::FeedNumber() {
    if (perTurn_ && speed_ <= 0) Refuse("a feed per turn needs the spindle speed (S)");
    const double feed = feed_ * (perTurn_ ? speed_ : 1);
    if (feed <= 0) Refuse("no feed is given");
    const ValueRange& range = FeedRange.In(program_.Metric);
    const double clamped = std::clamp<double>(feed, range.Low, range.High);
    if (std::lround(clamped) != std::lround(feed)) {
        Remark("Feeds beyond the machine's were held to " + PlainNumber(range.Low) + " to " +
               PlainNumber(range.High) + ".");
    }
    return static_cast<int>(std::lround(clamped));
}

}  // namespace kvt::iso
