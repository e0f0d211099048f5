#pragma once

#include <string>

#include "console/commands.h"

namespace kvt {

// Checks each file of a folder as it is saved, a line for each, until Ctrl+C.
int Watch(const std::string& folder, const ConsoleOptions& options);

// The line about a file, without its end: its name and what is to be said of the program. It steers no terminal.
std::string WatchLine(const std::string& folder, const std::string& name, const ConsoleOptions& options);

}  // namespace kvt
