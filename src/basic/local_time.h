#pragma once

#include <ctime>

namespace kvt {

// What the clock of the machine shows now, in local time.
std::tm LocalNow();

}  // namespace kvt
