#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/services.h"
#include "program/machine.h"

namespace kvt {

// The machine that the name of a pre-processor ends in, "iso2emco.MK4"; none where it ends in no machine's.
std::optional<MachineModel> MachineOfPreProcessor(std::string_view name);

// Turns a file of ISO code into a program of a machine. It leaves FILE.~pp, the program, with FILE.~ppINFO where there
// is something to know, and gives true; or FILE.~ppERR, why there is none. A workbench of its own, on a platform that
// nobody sees, checks the result, so that the limits of a machine stand in one place. writeNew writes a file that is new
// under its name; a failure of the last one passes through.
bool ConvertIsoFile(Services& aside, const std::string& file, MachineModel machine,
                    const std::function<void(const std::string& path, const std::string& content)>& writeNew);

}  // namespace kvt
