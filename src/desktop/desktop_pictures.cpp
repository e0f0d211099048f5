#include "desktop/desktop_pictures.h"

#include <QBuffer>

#include "basic/run_time_error.h"
#include "desktop/picture_box_view.h"

namespace kvt {

namespace {

// The toolkit has blue in the low byte.
QRgb Swapped(std::uint32_t color) {
    return qRgb(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                static_cast<int>(color >> 16 & 0xFF));
}

}  // namespace

QImage ImageOf(const Pixels& picture) {
    QImage image(picture.Width, picture.Height, QImage::Format_RGB32);
    std::size_t at = 0;
    for (int y = 0; y < picture.Height; ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < picture.Width; ++x) line[x] = Swapped(picture.Points[at++]);
    }
    return image;
}

Pixels DesktopPictures::Paint(const PictureBox& field, const FieldArea& area) {
    const auto* view = dynamic_cast<const PictureBoxView*>(field.View);
    if (!view) throw RunTimeError(fault::ObjectNotSet);
    const QImage image = view->PictureOf(area);
    Pixels picture{image.width(), image.height(), {}};
    picture.Points.reserve(static_cast<std::size_t>(image.sizeInBytes() / 4));
    for (int y = 0; y < image.height(); ++y) {
        const auto* const line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) picture.Points.push_back(Swapped(line[x]) & 0xFFFFFF);
    }
    return picture;
}

std::string DesktopPictures::PngOf(const Pixels& picture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!ImageOf(picture).save(&buffer, "PNG")) throw RunTimeError(fault::PathFileAccess);
    return bytes.toStdString();
}

}  // namespace kvt
