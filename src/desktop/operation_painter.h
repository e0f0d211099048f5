#pragma once

#include <QImage>
#include <span>

#include "platform/picture_box.h"
#include "platform/twips.h"

namespace kvt {

// Where a piece of a field lies in an image. Lines along the axes fall on whole pixels whatever piece it is.
struct FieldPiece {
    double PixelsATwip = 1.0 / TwipsPerPixel;
    double PenWidth = 1;  // pixels of a pen that is 1 wide
    QPoint Origin;        // the image's upper left corner, in pixels of the field
};

// Paints operations into an image (RGB32), within a part of it. kept is what a Picture operation stands for: the
// whole field, in any size.
void PaintOperations(QImage& image, const FieldPiece& piece, const QRect& part,
                     std::span<const DrawOperation> operations, const QImage& kept);

}  // namespace kvt
