#include <png.h>

#include "basic/run_time_error.h"
#include "platform/pictures.h"

namespace kvt {

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
