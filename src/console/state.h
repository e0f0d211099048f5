#pragma once

#include <string>
#include <string_view>

#include "console/json_output.h"
#include "headless/memory_platform.h"
#include "shell/workbench.h"

namespace kvt {

// One JSON object with the state of a workbench, without a line end. file is the name as it was given.
void WriteState(JsonSink& out, std::string_view file, const Workbench& workbench,
                const MemoryDialogs& dialogs);

// {"file":…, "error":…}
void WriteFileError(JsonSink& out, std::string_view file, std::string_view error);

}  // namespace kvt
