#pragma once

#include <filesystem>

namespace kvt {

// Makes the pages of the help documents: for every "LANGUAGE/NAME.md" below a folder of sources
// "LANGUAGE/NAME.html" below the target, with a drawing "NAME_1.svg" and so on for each of its examples. Ranges and
// code tables come from those of the program, the drawings from its own walk. 0, or 1 and a line on standard error
// for each document with a fault in it.
int MakeHelp(const std::filesystem::path& sources, const std::filesystem::path& target);

}  // namespace kvt
