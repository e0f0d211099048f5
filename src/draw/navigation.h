#pragma once

#include "draw/measuring.h"
#include "draw/stroke_guide.h"

namespace kvt {

// The mouse on the field: the wheel zooms at the pointer, the middle button drags, a double click fits; at
// a stroke it tells of the line, and a press with Ctrl opens that. What is pressed
// while a walk or a measurement waits for a press is theirs.
class Navigation {
public:
    Navigation(DrawParts& parts, Viewport& view, Measuring& measure, StrokeGuide& strokes);

    // Twips on the field; buttons and keys as in MouseHandler.
    void pbxDrawField_MouseMove(int button, float x, float y);
    void pbxDrawField_MouseDown(int button, int shift, float x, float y);
    void pbxDrawField_DblClick(int button, float x, float y);
    void pbxDrawField_MouseWheel(const WheelTurn& turn);

private:
    bool MayMoveView() const;
    void ZoomAt(double x, double y, int steps);
    void Pan(double right, double down);
    void PutZero(double left, double top);

    DrawControls& controls_;
    DrawState& state_;
    Viewport& view_;
    Measuring& measure_;
    StrokeGuide& strokes_;
    // Where the middle button holds the field.
    float dragX_ = 0, dragY_ = 0;
    // Parts of a notch that the wheel has been turned.
    double turned_ = 0;
    // The press before was one of a measurement or a walk.
    bool pressTaken_ = false;
};

}  // namespace kvt
