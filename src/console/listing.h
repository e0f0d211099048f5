#pragma once

#include <string>
#include <string_view>

#include "shell/workbench.h"

namespace kvt {

// A listing of a checked program for people, in UTF-8: machine and units on top, the columns in sight, each
// finding under its line, at the end lines, time, axes and what is wrong first. file is UTF-8.
std::string Listing(std::string_view file, const Workbench& workbench, bool colour);

// Whether the last run has a finding: an error in a line, or too many lines.
bool HasFinding(const Workbench& workbench);

}  // namespace kvt
