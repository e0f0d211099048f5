#pragma once

#include <string_view>

namespace kvt {

// How lines end in texts, files and on the serial line.
inline constexpr std::string_view LineEnd = "\r\n";

}  // namespace kvt
