#pragma once

#include "platform/services.h"

namespace kvt {

// What a text box does by itself with a character that its handler let pass: put it in at the selection, or take
// one out for Backspace. Other control characters do nothing.
void EditByCharacter(TextBox& box, int character);
// And with a key: the caret's moves, and Delete.
void EditByKey(TextBox& box, int pressed);
// Copies, cuts or pastes for Ctrl+C, Ctrl+X and Ctrl+V. Line ends are not pasted. Where the clipboard fails the
// box stays as it is.
void EditByClipboard(TextBox& box, int character, ClipboardService& clipboard);

// Whether a control is of a kind that keys can go to.
bool TakesFocus(const Control& control);

// Gives the focus to a control that takes it, as a press of the mouse does. False where it did not stay there: the
// press is used up then.
bool FocusByHand(Control& control, FocusService& focus);

// A click by hand: gives the focus to a control that takes it, changes a check box or an option, then runs the
// handler. Nothing where the control or one around it is hidden or disabled; false then.
bool ClickByHand(Control& control, FocusService& focus);

}  // namespace kvt
