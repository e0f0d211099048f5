#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kvt {

// A rectangle of a field, twips.
struct FieldArea {
    double Left = 0, Top = 0, Width = 0, Height = 0;
};

// A picture of points, row by row from the top. Colours have red in the low byte.
struct Pixels {
    int Width = 0;
    int Height = 0;
    std::vector<std::uint32_t> Points;
};

// The file of a Windows bitmap with 24 bits a point.
std::string BmpOf(const Pixels& picture);
// The file of a PNG with 24 bits a point; error 75 where it cannot be made.
std::string PngOf(const Pixels& picture);

}  // namespace kvt
