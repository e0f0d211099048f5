#pragma once

#include "draw/draw_parts.h"

namespace kvt {

// What ties program values to the field: scale, zero point and its mark, grid, and the fitting of both to the
// program's extents.
class Viewport {
public:
    explicit Viewport(DrawParts& parts);

    // DrawScale of an entry of the scale menu; 1 for an index outside.
    void ScaleFromIndex(int index);
    // Checks an entry of the scale menu alone, the nearest one for an index outside.
    void SetScaleIndex(int index);
    int CheckedScaleIndex() const;

    // Fits scale and zero point to the program's extents and draws anew; does nothing unless it is asked for.
    void Autofit();
    // Draws anew in another scale or place, without the waits that have been made: a drawing that has ended stays so, and
    // a walk returns to the wait it was in.
    void DrawAgain();
    // The fitting alone; false where the program has no travel that it could be fitted to.
    bool Fit();
    // Whether a stroke of the program that was drawn last is in sight.
    bool ShowsStroke() const;
    // The mark of the zero point, where the pen stands.
    void MakeZeroPoint();
    // The grid; it follows the last zero point mark.
    void MakeGrid();
    void ShowGridSize();

    void mnuScale_Click(int index);
    void UpDown_Change();
    // The next larger (1) or smaller (-1) scale of the menu.
    void Zoom(int step);
    // Moves the view window over the field by twips.
    void ScrollBy(double right, double down);

private:
    DrawParts& parts_;
    DrawControls& controls_;
    DrawState& state_;
};

}  // namespace kvt
