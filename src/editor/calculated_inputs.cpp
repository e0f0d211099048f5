#include "editor/calculated_inputs.h"

#include <array>
#include <bit>
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
constexpr std::size_t mostOperands = 10;
constexpr std::string_view operators = "+-*/";
// In front of another operator pi is this 32-bit float; at the end it is the decimal number.
constexpr std::uint32_t piBits = 0x40490FDB;
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
class Store {
public:
    Item& operator[](std::size_t index) {
        if (index < 1 || index > mostOperands) throw RunTimeError(fault::SubscriptOutOfRange);
        return items_[index - 1];
    }

private:
    std::array<Item, mostOperands> items_ = {};
};

}  // namespace

std::string MathString(std::string& text) {
    Store<float> operands;
    Store<char> operations;
    // 1. The length is measured once.
    const std::size_t length = text.size();
    std::size_t n = 1;
    for (;;) {
        // 2. The first operator, where it stands below the length.
        const std::size_t found = text.find_first_of(operators);
        const std::size_t m = found != std::string::npos && found + 1 < length ? found + 1 : length;
        // 3. No operator is left, or only one that is the untouched text's last character.
        if (m == length) break;
        // 4., 5. A leading minus gives an operand of 0.
        const std::string operand = text.substr(0, m - 1);
        Attempt(mathStringName,
                [&] { operands[n] = IsPi(operand) ? std::bit_cast<float>(piBits) : Single(Val(operand)); });
        Attempt(mathStringName, [&] { operations[n] = text[m - 1]; });
        text.erase(0, m);
        ++n;
    }
    // 6.
    if (IsPi(text)) text = piDigits;
    Attempt(mathStringName, [&] { operands[n] = Single(Val(text)); });
    // 7.
    double result = operands[1];
    for (std::size_t i = 1; i < n; ++i) {
        Attempt(mathStringName, [&] { result = Apply(operations[i], result, operands[i + 1]); });
    }
    // 8.
    return Format(result, "00");
}

CalculatedInputs::CalculatedInputs(const ProgramStore& store, const Texts& texts, DialogService& dialogs,
                                   FocusService& focus)
    : store_(store), texts_(texts), dialogs_(dialogs), focus_(focus) {}

bool CalculatedInputs::EvalText(TextBox& field, bool textStays) {
    // 1.
    if (!IsNumeric(field.Text)) dialogs_.ShowMessage(Notice(texts_.ErrorTexts(text::MustBeNumeric)));
    // 2., 3.
    if (field.Tag.Empty() || field.Text.Empty()) return true;
    // 4. What no whole number holds is beyond every range, so it is refused below.
    const double number = Val(field.Text);
    std::int32_t value =
        number < 0 ? std::numeric_limits<std::int32_t>::min() : std::numeric_limits<std::int32_t>::max();
    Attempt(evalTextName, [&] { value = ToLong(number); });
    // 5.
    const std::string limits = field.Tag.Get();
    const std::vector<std::string_view> parts = Split(limits, "TO");
    if (parts.size() != 2) return true;
    // 6.
    std::int32_t low = ToLong(Val(parts[0]));
    std::int32_t high = ToLong(Val(parts[1]));
    if (store_.DisableLimitsCheck) {
        low = NoLimit(low);
        high = NoLimit(high);
    }
    // 7., 8. Only the lower bound has an icon: deliberate.
    if (value < low) Refuse(field, text::LowestValue, low, Icon::Information, textStays);
    if (value > high) Refuse(field, text::HighestValue, high, Icon::None, textStays);
    return value >= low && value <= high;
}

void CalculatedInputs::Refuse(TextBox& field, MessageText message, std::int32_t bound, Icon icon,
                              bool textStays) {
    std::string refusal(texts_.MessageTexts(message));
    refusal += " " + PlainNumber(bound);
    dialogs_.ShowMessage(Notice(refusal, "Value Check", icon));
    if (!textStays) field.Text = "";
    if (field.Visible) focus_.SetFocus(field);
}

void CalculatedInputs::LeaveField(TextBox& field, bool keepsEmpty) {
    if (keepsEmpty && field.Text.Empty()) return;
    std::string expression = field.Text.Get();
    field.Text = MathString(expression);
    EvalText(field);
}

}  // namespace kvt
