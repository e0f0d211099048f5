#include "platform/pictures.h"

#include <png.h>

#include "basic/run_time_error.h"

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

std::string PngOf(const Pixels& picture) {
    std::vector<std::uint8_t> rows;
    rows.reserve(picture.Points.size() * 3);
    for (const std::uint32_t color : picture.Points) {
        for (const int shift : {0, 8, 16}) rows.push_back(static_cast<std::uint8_t>(color >> shift));
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.Width);
    image.height = static_cast<png_uint_32>(picture.Height);
    image.format = PNG_FORMAT_RGB;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::string out(size, '\0');
    if (png_image_write_to_memory(&image, out.data(), &size, 0, rows.data(), 0, nullptr) == 0)
        throw RunTimeError(fault::PathFileAccess);
    out.resize(size);
    return out;
}

}  // namespace kvt
