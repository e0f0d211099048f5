#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kvt {

// The file that a name of the program means. A name that the code page holds is coded for the system; one that it
// does not hold is the system's own bytes, as NameFromSystem left it. Both "\" and "/" separate folders, but where
// a file or folder has a name with a "\" in it, that one is meant.
std::filesystem::path SystemPath(std::string_view name);
// The same as a text.
std::string NameForSystem(std::string_view name);

// Where a path leads when every link on its way, the last one too, has been followed and ".." taken. What is not
// there yet stays as it is named. Links that lead in a circle are error 75.
std::filesystem::path ResolvedPath(const std::filesystem::path& path);

// The number of this program's own open file that a path refers to, as /dev/stdout does; -1 for none.
int OwnOpenFile(std::filesystem::path path);

// Whether a path lies in a folder or is that folder; both resolved.
bool IsWithin(const std::filesystem::path& path, const std::filesystem::path& folder);

}  // namespace kvt
