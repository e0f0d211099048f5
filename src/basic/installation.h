#pragma once

#include <string>

namespace kvt {

// What the build knows and the program asks at run time.

// The version, "1.0.0", which the project has in one place, and its digits alone, "100".
std::string VersionText();
std::string VersionDigits();

// Where an installation has what all users share, and the pre-processors: from the folder of the programs, with a
// separator at the end, so that an installation can be moved whole.
std::string SharedFolderFromPrograms();
std::string PreProcessorsFromPrograms();

}  // namespace kvt
