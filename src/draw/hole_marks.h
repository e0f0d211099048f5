#pragma once

#include "platform/picture_box.h"

namespace kvt {

// A place where the mill's tool goes straight down.
struct HoleMark {
    enum class Kind { Hole, Plunge };
    Kind What = Kind::Plunge;
    int Row = 0;  // of the program
    float X = 0, Y = 0;
    float Radius = 0;  // of the tool, twips
};

// A hole is a circle of the tool's width, at least as large as can be seen, with an upright cross; a plunge a small
// diagonal cross. Drawn in the field's ForeColor; the pen ends in its middle.
void DrawHoleMark(PictureBox& field, const HoleMark& mark);

}  // namespace kvt
