#include "draw/hole_marks.h"

#include <algorithm>

namespace kvt {

namespace {

// Twips, whatever the scale.
constexpr float leastRadius = 75;
constexpr float crossArm = 45;

}  // namespace

void DrawHoleMark(PictureBox& field, const HoleMark& mark) {
    const auto [x, y] = std::pair(mark.X, mark.Y);
    field.DrawWidth = 1;
    if (mark.What == HoleMark::Kind::Hole) {
        const int fillBefore = std::exchange(field.FillStyle, fill_style::Transparent);
        field.Circle(x, y, std::max(mark.Radius, leastRadius));
        field.FillStyle = fillBefore;
        field.Line(x - crossArm, y, x + crossArm, y);
        field.Line(x, y - crossArm, x, y + crossArm);
    } else {
        field.Line(x - crossArm, y - crossArm, x + crossArm, y + crossArm);
        field.Line(x - crossArm, y + crossArm, x + crossArm, y - crossArm);
    }
    field.MoveTo(x, y);
}

}  // namespace kvt
