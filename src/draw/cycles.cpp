#include "draw/cycles.h"

#include <cmath>

#include "basic/number.h"

namespace kvt {

void DrawThread(DrawParts& parts, Simulation& waits, float length, float pitch, std::string_view code) {
    PictureBox& field = parts.Controls.pbxDrawField;
    const float startX = field.CurrentX;
    const float startY = field.CurrentY;
    const float endX = ToSingle(double{startX} + length);
    const bool forward = length > 0;
    // What is left behind the last whole pitch is not drawn.
    const std::int32_t wholePitch = ToLong(pitch);
    const std::int32_t count = wholePitch == 0 ? 0 : ToLong(std::abs(length)) / wholePitch;
    // A tooth is as high as it is wide at its foot on either side, whatever the scale.
    const double half = double{pitch} / 2;
    const double along = forward ? half : -half;
    for (std::int32_t turn = 1; turn <= count; ++turn) {
        field.LineTo(field.CurrentX + along, field.CurrentY - half);
        field.LineTo(field.CurrentX + along, field.CurrentY + half);
        waits.ServeEvents();
        if (parts.State.StopRequested || parts.State.Leaving()) return;
    }
    // The way home is drawn as a tick at the thread's start, as long in twips as there are turns: users count on it.
    field.Line(startX, startY + (forward ? count : -count), startX, startY);
    if (code == "G33") field.CurrentX = endX;
}

void DrawBoxOutAndBack(PictureBox& field, double cornerX, double cornerY) {
    const float startX = field.CurrentX;
    const float startY = field.CurrentY;
    field.BoxTo(cornerX, cornerY);
    field.BoxTo(startX, startY);
}

// The field's own fill colour stays black, whatever the form's is said to be.
void SetFillStyle(DrawControls& controls) {
    if (!controls.mnuFillCycles.Checked) {
        controls.pbxDrawField.FillStyle = fill_style::Transparent;
    } else if (controls.mnuGrid.Checked) {
        controls.pbxDrawField.FillStyle = fill_style::DownwardDiagonal;
    } else {
        controls.pbxDrawField.FillStyle = fill_style::Solid;
    }
}

}  // namespace kvt
