#pragma once

#include "draw/svg.h"

namespace kvt {

// The operations as a PDF of one page, cut to what was drawn: 15 twips are one pixel of 96 an inch. Strokes stay
// strokes, so that it can be enlarged.
std::string PdfOf(std::span<const DrawOperation> operations, const SvgHead& head);

}  // namespace kvt
