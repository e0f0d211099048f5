#pragma once

#include "platform/controls.h"

namespace kvt {

// Whether controls of a kind take keys.
bool TakesKeys(ControlKind kind);

// Whether the Tab key stops at a control: one of a kind that takes keys, with a tab index, to be seen and enabled.
bool TakesTab(const Control& control);

// The stop after a control in the order of the tab indices, round the end of its form; null where there is no
// other.
Control* NextInTabOrder(Control& from, bool backwards);
Control* FirstInTabOrder(const Form& form);

}  // namespace kvt
