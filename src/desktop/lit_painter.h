#pragma once

#include <vector>

#include "desktop/operation_painter.h"

namespace kvt {

// Paints operations over what an image shows (RGB32) so that they are the first to be seen: each with its own
// stroke on top of a broader one in a colour.
void PaintLit(QImage& image, const FieldPiece& piece, std::vector<DrawOperation> operations, Color color);

}  // namespace kvt
