#pragma once

#include <string>

namespace kvt::bench {

// The text of a program of a machine ("MK2", "MK4", "F1") with this many lines, the end code the last: moves,
// lines, arcs and cycles in turn, as a worked part has them.
std::string ProgramText(const std::string& machine, int lines);

}  // namespace kvt::bench
