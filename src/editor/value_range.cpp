#include "editor/value_range.h"

#include "basic/number.h"

namespace kvt {

void SetRange(TextBox& field, const ValueRange& range, const Texts& texts) {
    const std::string low = PlainNumber(range.Low);
    const std::string high = PlainNumber(range.High);
    field.Tag = low + "TO" + high;
    field.ToolTip = Filled(texts.DialogTexts(text::RangeOfField), {low, high});
}

}  // namespace kvt
