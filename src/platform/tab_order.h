#pragma once

#include "platform/controls.h"

namespace kvt {

// Whether controls of a kind take keys from whatever gives them the focus.
bool AcceptsKeys(ControlKind kind);

// Whether the Tab key stops at a control: one of a kind that takes keys, with a tab index, to be seen and enabled. Of
// options that lie together it is the chosen one, from which the arrows lead to the others.
bool AcceptsTab(const Control& control);

// The stop after a control in the order of the tab indices, round the end of its form; null where there is no
// other.
Control* NextInTabOrder(Control& from, bool backwards);
// The first stop inside a form, a frame or the page of a tab strip that is in front; null where there is none.
Control* FirstInTabOrder(const Control& container);

}  // namespace kvt
