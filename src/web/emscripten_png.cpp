#include <emscripten.h>

#include <cstdlib>

#include "basic/run_time_error.h"
#include "platform/pictures.h"

// The browser's canvas makes the file; it is given back with its length in front, null where there is no page.
// clang-format off
EM_JS(unsigned char*, kvt_canvas_png, (const unsigned char* points, int width, int height), {
    if (typeof document === 'undefined') return 0;
    const canvas = document.createElement('canvas');
    canvas.width = width;
    canvas.height = height;
    const picture = new ImageData(new Uint8ClampedArray(HEAPU8.subarray(points, points + 4 * width * height)), width);
    canvas.getContext('2d').putImageData(picture, 0, 0);
    const address = canvas.toDataURL('image/png');
    if (!address.startsWith('data:image/png;base64,')) return 0;
    const file = atob(address.substring(22));
    const kept = _malloc(4 + file.length);
    if (!kept) return 0;
    HEAP32[kept >> 2] = file.length;
    for (let i = 0; i < file.length; ++i) HEAPU8[kept + 4 + i] = file.charCodeAt(i);
    return kept;
})
// clang-format on

namespace kvt {

std::string PngOf(const Pixels& picture) {
    std::vector<unsigned char> points;
    points.reserve(picture.Points.size() * 4);
    for (const std::uint32_t color : picture.Points) {
        for (const int shift : {0, 8, 16})
            points.push_back(static_cast<unsigned char>(color >> shift & 0xFF));
        points.push_back(0xFF);
    }
    unsigned char* const kept = kvt_canvas_png(points.data(), picture.Width, picture.Height);
    if (!kept) throw RunTimeError(fault::PathFileAccess);
    const std::int32_t length = *reinterpret_cast<const std::int32_t*>(kept);
    std::string file(reinterpret_cast<const char*>(kept) + sizeof length, static_cast<std::size_t>(length));
    std::free(kept);
    return file;
}

}  // namespace kvt
