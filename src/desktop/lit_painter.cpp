#include "desktop/lit_painter.h"

namespace kvt {

namespace {

constexpr int rim = 2;  // pixels of a pen, on either side

}  // namespace

void PaintLit(QImage& image, const FieldPiece& piece, std::vector<DrawOperation> operations, Color color) {
    std::vector<DrawOperation> around = operations;
    for (DrawOperation& one : around) {
        one.Ink = color;
        one.Width += 2 * rim;
        one.Style = draw_style::Solid;
        one.Fill = fill_style::Transparent;
    }
    // What lies in a filled box stays to be seen.
    for (DrawOperation& one : operations) one.Fill = fill_style::Transparent;
    PaintOperations(image, piece, image.rect(), around, {});
    PaintOperations(image, piece, image.rect(), operations, {});
}

}  // namespace kvt
