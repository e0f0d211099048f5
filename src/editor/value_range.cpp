#include "editor/value_range.h"

#include "basic/number.h"

namespace kvt {

void SetRange(TextBox& field, const ValueRange& range) {
    const std::string low = PlainNumber(range.Low);
    const std::string high = PlainNumber(range.High);
    field.Tag = low + "TO" + high;
    field.ToolTip = low + " = Low, Hi = " + high;
}

}  // namespace kvt
