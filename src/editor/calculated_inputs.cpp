#include "editor/calculated_inputs.h"

#include <array>
#include <cmath>
#include <limits>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "program/limits.h"

namespace kvt {

namespace {

constexpr const char* mathStringName = "MathString";
constexpr const char* evalTextName = "EvalText";
constexpr std::size_t maxOperands = 10;
constexpr std::string_view operators = "+-*/";
// In front of another operator pi is this 32-bit float; at the end it is the decimal number.
constexpr float piSingle = 0x1.921FB6p+1F;
constexpr std::string_view piDigits = "3.141592653";

bool IsPi(std::string_view text) { return EqualIgnoringCase(text, "P"); }

float Single(double value) {
    if (std::abs(value) > std::numeric_limits<float>::max()) throw RunTimeError(fault::Overflow);
    return static_cast<float>(value);
}

double Apply(char operation, double left, double right) {
    double result = left;
    switch (operation) {
        case '+': result = left + right; break;
        case '-': result = left - right; break;
        case '*': result = left * right; break;
        case '/': result = Divide(left, right); break;
        default: break;
    }
    if (!std::isfinite(result)) throw RunTimeError(fault::Overflow);
    return result;
}

// Operands and operators, indexed from 1; an index outside is error 9.
template <class Item>
class IndexedFrom1 {
public:
    Item& operator[](std::size_t index) {
        if (index < 1 || index > maxOperands) throw RunTimeError(fault::SubscriptOutOfRange);
        return items_[index - 1];
    }

private:
    std::array<Item, maxOperands> items_ = {};
};

}  // namespace

std::string MathString(std::string& text) {
    IndexedFrom1<float> operands;
    IndexedFrom1<char> operations;
    // Measured once, so that only a text without any operator in front can end in one: "10+" is 10, "10+20+" adds 0.
    const std::size_t length = text.size();
    std::size_t n = 1;
    for (;;) {
        // The first operator; as the last character of the whole text it is none.
        const std::size_t found = text.find_first_of(operators);
        const std::size_t m = found != std::string::npos && found + 1 < length ? found + 1 : length;
        if (m == length) break;
        // A leading minus gets an operand of 0 in front.
        const std::string operand = text.substr(0, m - 1);
        Attempt(mathStringName, [&] { operands[n] = IsPi(operand) ? piSingle : Single(Val(operand)); });
        Attempt(mathStringName, [&] { operations[n] = text[m - 1]; });
        text.erase(0, m);
        ++n;
    }
    if (IsPi(text)) text = piDigits;
    Attempt(mathStringName, [&] { operands[n] = Single(Val(text)); });
    // From left to right, without priorities.
    double result = operands[1];
    for (std::size_t i = 1; i < n; ++i) {
        Attempt(mathStringName, [&] { result = Apply(operations[i], result, operands[i + 1]); });
    }
    return Format(result, "00");
}

CalculatedInputs::CalculatedInputs(FieldLayout& layout, const ProgramStore& store, const Texts& texts,
                                   DialogService& dialogs, FocusService& focus)
    : layout_(layout), store_(store), texts_(texts), dialogs_(dialogs), focus_(focus) {}

bool CalculatedInputs::EvalText(TextBox& field, bool keepText) {
    // Told, and no more: the leading digits are checked all the same.
    if (!IsNumeric(field.Text)) dialogs_.ShowMessage(Notice(texts_.ErrorTexts(text::MustBeNumeric)));
    // Without a range or a value there is nothing to compare.
    if (field.Tag.Empty() || field.Text.Empty()) return true;
    // What no whole number holds is beyond every range, so it is refused below.
    const double number = Val(field.Text);
    std::int32_t value =
        number < 0 ? std::numeric_limits<std::int32_t>::min() : std::numeric_limits<std::int32_t>::max();
    Attempt(evalTextName, [&] { value = ToLong(number); });
    const std::string limits = field.Tag.Get();
    const std::vector<std::string_view> parts = Split(limits, "TO");
    if (parts.size() != 2) return true;
    ValueRange range{ToLong(Val(parts[0])), ToLong(Val(parts[1]))};
    if (store_.DisableLimitsCheck) range = {NoLimit(range.Low), NoLimit(range.High)};
    if (value < range.Low) Refuse(field, text::LowestValue, range, keepText);
    if (value > range.High) Refuse(field, text::HighestValue, range, keepText);
    return value >= range.Low && value <= range.High;
}

void CalculatedInputs::Refuse(TextBox& field, MessageText message, const ValueRange& range, bool keepText) {
    const bool tooLow = message == text::LowestValue;
    std::string refusal(texts_.MessageTexts(message));
    refusal += " " + PlainNumber(tooLow ? range.Low : range.High);
    // Only the message of the lower bound has an icon.
    MessageBox box =
        Notice(refusal, texts_.DialogTexts(text::ValueCheck), tooLow ? Icon::Information : Icon::None);
    box.Details = layout_.Described(field, range);
    dialogs_.ShowMessage(box);
    if (!keepText) field.Text = "";
    if (field.Visible) focus_.SetFocus(field);
}

void CalculatedInputs::EvaluateField(TextBox& field, bool keepEmpty) {
    if (keepEmpty && field.Text.Empty()) return;
    std::string expression = field.Text.Get();
    field.Text = MathString(expression);
    EvalText(field);
}

}  // namespace kvt
