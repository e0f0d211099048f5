#pragma once

#include <vector>

#include "platform/services.h"

namespace kvt {

// Whether a press of the mouse gives a control the focus: it takes keys, is a document to scroll, or a picture or
// a label in the tab order.
bool TakesFocus(const Control& control);

// Gives the focus to a control that takes it, as a press of the mouse does. False where it did not stay there: the
// press is used up then.
bool FocusByHand(Control& control, FocusService& focus);

// The options that lie in the same container as one, itself among them, in the order of their making.
std::vector<OptionButton*> OptionsBeside(const OptionButton& option);

// What a click does to a control that has the focus: a check box changes, an option is chosen and the others beside
// it go out; then the handler runs.
void ChooseAndClick(Control& control);

// A click by hand: gives the focus to a control that takes it, then chooses and clicks. Nothing where the control or
// one around it is hidden or disabled; false then.
bool ClickByHand(Control& control, FocusService& focus);

}  // namespace kvt
