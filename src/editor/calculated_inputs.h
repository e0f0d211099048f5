#pragma once

#include <string>

#include "editor/field_layout.h"
#include "editor/value_range.h"

namespace kvt {

// Works out a small expression strictly from left to right, without priorities; P is pi. Up to ten operands of
// 32-bit floats. text is consumed. Gives the result rounded to a whole number with at least two digits. A
// division by 0 and an operand beyond the tenth are reported, and the statement is skipped.
std::string MathString(std::string& text);

// Checks entry fields when they are left.
class CalculatedInputs {
public:
    CalculatedInputs(FieldLayout& layout, const ProgramStore& store, const Texts& texts,
                     DialogService& dialogs, FocusService& focus);

    // Checks the text of a field against the range in its Tag. A value outside is told, the field is emptied
    // (unless its text stays) and gets the focus back. A text that is no number is told, and no more.
    // False where the value was refused.
    bool EvalText(TextBox& field, bool keepText = false);
    // What the parameter fields do when they are left: the expression becomes its value, which is checked.
    // With keepEmpty an empty field stays empty.
    void EvaluateField(TextBox& field, bool keepEmpty);

private:
    void Refuse(TextBox& field, MessageText message, const ValueRange& range, bool keepText);

    FieldLayout& layout_;
    const ProgramStore& store_;
    const Texts& texts_;
    DialogService& dialogs_;
    FocusService& focus_;
};

}  // namespace kvt
