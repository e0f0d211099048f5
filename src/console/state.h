#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "console/json_output.h"
#include "console/plain_value.h"
#include "shell/workbench.h"
#include "system/offscreen_platform.h"

namespace kvt {

// One JSON object with the state of a workbench, without a line end. file is the name as it was given.
void WriteState(JsonSink& out, std::string_view file, const Workbench& workbench,
                const OffscreenDialogs& dialogs);

// The same, and at its end the name of the control with the focus and the properties of all controls.
void WriteDump(JsonSink& out, std::string_view file, Workbench& workbench, const OffscreenDialogs& dialogs,
               FocusService& focus);

// An array of message boxes as the state has them.
void WriteMessages(JsonSink& out, std::span<const MessageBox> boxes);

// A member of the state that is neither array nor object, by its name; "file" is not among them.
std::optional<PlainValue> StateScalar(std::string_view name, const Workbench& workbench);

// Names as the state has them.
std::string_view IconName(Icon icon);
std::string_view ButtonsName(Buttons buttons);

// {"file":…, "error":…}
void WriteFileError(JsonSink& out, std::string_view file, std::string_view error);

}  // namespace kvt
