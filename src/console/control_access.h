#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "console/plain_value.h"
#include "shell/workbench.h"

namespace kvt {

// A control or a window by its name: "cmdRun", "cmdTopButtons(3)", "frmMain.cmdRun", "frmMain". The form may be
// left out for controls of the first form, and for others where only one form has the name. index is that of an
// element where the name does not say it. Null where there is none.
Control* FindByName(const std::vector<Form*>& forms, std::string_view name, int index = -1);

// The shortest name that finds a control again.
std::string NameOf(const std::vector<Form*>& forms, const Control& control);

// Whether any control has a property of this name (case ignored).
bool IsProperty(std::string_view property);
// The value of a property; nothing where the control does not have it.
std::optional<PlainValue> ReadProperty(const Control& control, std::string_view property);
// All that a control has, by name.
std::vector<std::pair<std::string_view, PlainValue>> PropertiesOf(const Control& control);

}  // namespace kvt
