#pragma once

#include <QImage>

#include "platform/pictures.h"

namespace kvt {

QImage ImageOf(const Pixels& picture);

// Drawings as the views of their fields paint them, in pixels of the screen.
class DesktopPictures : public PictureService {
public:
    // A field that no window shows is error 91.
    Pixels Paint(const PictureBox& field, const FieldArea& area) override;
    std::string PngOf(const Pixels& picture) override;
};

}  // namespace kvt
