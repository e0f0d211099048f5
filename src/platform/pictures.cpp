#include "platform/pictures.h"

namespace kvt {

namespace {

constexpr std::uint32_t headSize = 14;
constexpr std::uint32_t infoSize = 40;
constexpr std::uint32_t pointsAMetre = 3780;  // 96 an inch

// Numbers stand with their low byte first.
void Put(std::string& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) out += static_cast<char>(value >> (8 * i) & 0xFF);
}

}  // namespace

std::string BmpOf(const Pixels& picture) {
    const auto width = static_cast<std::uint32_t>(picture.Width);
    const auto height = static_cast<std::uint32_t>(picture.Height);
    const std::uint32_t rowBytes = (width * 3 + 3) / 4 * 4;
    std::string out = "BM";
    out.reserve(headSize + infoSize + rowBytes * height);
    Put(out, headSize + infoSize + rowBytes * height, 4);
    Put(out, 0, 4);
    Put(out, headSize + infoSize, 4);
    Put(out, infoSize, 4);
    Put(out, width, 4);
    Put(out, height, 4);
    Put(out, 1, 2);   // planes
    Put(out, 24, 2);  // bits a point
    Put(out, 0, 4);   // not compressed
    Put(out, rowBytes * height, 4);
    Put(out, pointsAMetre, 4);
    Put(out, pointsAMetre, 4);
    Put(out, 0, 4);
    Put(out, 0, 4);
    // The lowest row comes first, each point with its blue first.
    for (std::size_t row = height; row-- > 0;) {
        for (std::size_t x = 0; x < width; ++x) {
            const std::uint32_t color = picture.Points[row * width + x];
            for (const int shift : {16, 8, 0}) out += static_cast<char>(color >> shift & 0xFF);
        }
        out.append(rowBytes - width * 3, '\0');
    }
    return out;
}

}  // namespace kvt
