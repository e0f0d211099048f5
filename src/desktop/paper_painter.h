#pragma once

#include <QImage>
#include <QPainter>
#include <vector>

#include "platform/picture_box.h"

namespace kvt {

// A part of a drawing on its way to paper, as it stood when it was taken.
struct PaperDrawing {
    std::vector<DrawOperation> Operations;
    FieldArea Area;
    // What a Picture operation stands for, and the size of the field that it covers, in twips.
    QImage Kept;
    QSizeF Field;
};

PaperDrawing TakenFrom(const PictureBox& field, const FieldArea& area);

// Paints it into a rectangle of the same shape, as strokes, so that it can be enlarged. What inverts the screen is black.
void PaintOnPaper(QPainter& painter, const PaperDrawing& drawing, const QRectF& place);

}  // namespace kvt
