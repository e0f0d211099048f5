#pragma once

#include <string>

#include "platform/controls.h"

namespace kvt {

// What a screen reader calls a control: the name that it was given, or what stands on it; a button with a picture goes
// by its tool tip, and a label has name or tool tip in front of what it shows. A field goes by its label or by the button beside it ("txtGrid" by "lblGrid" or "cmdGrid"), by the
// frame around it, or by its tool tip. Empty where nothing tells.
std::string AccessibleNameOf(const Control& control);

// The field that goes by a label or a button; null where none does.
Control* NamedBy(const Control& control);

}  // namespace kvt
