#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/picture_box.h"
#include "platform/pictures.h"

namespace kvt {

// What stands in a drawing beside its lines.
struct SvgHead {
    std::string Title;      // code page
    float DrawScale = 1;    // twips a program unit
    const char* Unit = "";  // what a program unit is, "0.01 mm"
    int FieldWidth = 0;     // twips; lines right across the field are grid and axes
    int FieldHeight = 0;
};

// The rectangle around what was drawn on the field, but for the lines right across it, with a margin; twips.
FieldArea AreaOf(std::span<const DrawOperation> operations, int fieldWidth, int fieldHeight);

// The colour of the field's clearing, which comes first.
Color BackgroundOf(std::span<const DrawOperation> operations);

// The operations as an SVG document, cut to what was drawn; UTF-8.
std::string SvgOf(std::span<const DrawOperation> operations, const SvgHead& head);

}  // namespace kvt
