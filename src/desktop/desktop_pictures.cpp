#include "desktop/desktop_pictures.h"

#include <QBuffer>

#include "basic/run_time_error.h"
#include "desktop/colors.h"
#include "desktop/picture_box_view.h"

namespace kvt {

QImage ImageOf(const Pixels& picture) {
    QImage image(picture.Width, picture.Height, QImage::Format_RGB32);
    std::size_t at = 0;
    for (int y = 0; y < picture.Height; ++y) {
        for (int x = 0; x < picture.Width; ++x) image.setPixelColor(x, y, ColorOf(picture.Points[at++]));
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
        for (int x = 0; x < image.width(); ++x) picture.Points.push_back(NumberOf(image.pixelColor(x, y)));
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
