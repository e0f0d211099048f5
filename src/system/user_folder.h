#pragma once

#include <string>

namespace kvt {

// The user's folder for local application data, as a name of the program without a separator at its end: the same
// that the window has. Empty for a user without a home.
std::string UserDataFolder();

}  // namespace kvt
