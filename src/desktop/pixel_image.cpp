#include "desktop/pixel_image.h"

namespace kvt {

QImage ImageOf(const Pixels& picture) {
    QImage image(picture.Width, picture.Height, QImage::Format_RGB32);
    std::size_t at = 0;
    for (int y = 0; y < image.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const std::uint32_t color = picture.Points[at++];
            // The toolkit has blue in the low byte.
            line[x] = qRgb(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                           static_cast<int>(color >> 16 & 0xFF));
        }
    }
    return image;
}

}  // namespace kvt
