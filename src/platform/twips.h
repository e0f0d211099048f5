#pragma once

namespace kvt {

// Lengths of controls and drawings are twips, 1440 an inch. A pixel, as wide as a pen of width 1, is one of
// 96 an inch, a point one of 72.
inline constexpr int TwipsPerPixel = 15;
inline constexpr int TwipsPerPoint = 20;

}  // namespace kvt
