#pragma once

#include <string>
#include <vector>

#include "files/cnc_writer.h"

namespace kvt {

// The program as a table on paper, without line ends: the heads over their columns, the lines with the columns that are
// in sight, and what the units are called. Every column is as wide as its longest text.
std::vector<std::string> PaperTable(const ProgramStore& store, const CncWriter& writer,
                                    std::string_view units);

}  // namespace kvt
