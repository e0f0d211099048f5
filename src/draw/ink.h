#pragma once

#include "platform/picture_box.h"

namespace kvt {

// The drawing's colours.
namespace ink {
inline constexpr Color Black = 0x000000, White = 0xFFFFFF, Grey = 0xC0C0C0, DarkGrey = 0x404040,
                       Red = 0x0000FF, Green = 0x00FF00, Blue = 0xFF0000, Cyan = 0xFFFF00, Magenta = 0xFF00FF,
                       Yellow = 0x00FFFF;
}  // namespace ink

}  // namespace kvt
