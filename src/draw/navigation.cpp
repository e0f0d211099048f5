#include "draw/navigation.h"

#include <algorithm>
#include <cmath>

#include "basic/number.h"
#include "program/workbench_calls.h"

namespace kvt {

namespace {

// How far a notch of a wheel that goes sideways moves the field, in twips.
constexpr double twipsPerNotch = 900;
constexpr int twipsPerStep = 10;  // of a scroll bar

// The entry of the scale menu that a scale is; below 0 for one that is smaller than all of them.
int IndexOf(double scale) { return ToLong(std::log2(scale)) + IndexOfScale1; }

bool Holds(const ScrollBar& bar, double value) { return value >= bar.Lowest() && value <= bar.Highest(); }

}  // namespace

Navigation::Navigation(DrawParts& parts, Viewport& view, Measuring& measure, StrokeGuide& strokes)
    : controls_(parts.Controls), state_(parts.State), view_(view), measure_(measure), strokes_(strokes) {
    PictureBox& field = controls_.pbxDrawField;
    field.OnMouseMove = [this](int button, int, float x, float y) { pbxDrawField_MouseMove(button, x, y); };
    field.OnMouseDown = [this](int button, int shift, float x, float y) {
        pbxDrawField_MouseDown(button, shift, x, y);
    };
    field.OnDoubleClick = [this](int button, int, float x, float y) { pbxDrawField_DblClick(button, x, y); };
    field.OnMouseWheel = [this](const WheelTurn& turn) { pbxDrawField_MouseWheel(turn); };
}

// Not while a walk goes on to its end for a print.
bool Navigation::MayMoveView() const { return state_.MayWait(); }

void Navigation::pbxDrawField_MouseMove(int button, float x, float y) {
    if ((button & mouse::Middle) != 0) Pan(double{dragX_} - x, double{dragY_} - y);
    measure_.pbxDrawField_MouseMove(x, y);
    strokes_.Point(x, y);
}

void Navigation::pbxDrawField_MouseDown(int button, int shift, float x, float y) {
    if (button == mouse::Middle) {
        dragX_ = x;
        dragY_ = y;
        return;
    }
    const bool withCtrl = button == mouse::Left && (shift & mouse::CtrlHeld) != 0;
    if (withCtrl && strokes_.Press(x, y)) {
        pressTaken_ = true;
        return;
    }
    pressTaken_ = state_.MeasureClicks != 0 || state_.Walking();
    measure_.pbxDrawField_MouseDown(x, y);
}

// Its first press has begun a measurement, which is withdrawn.
void Navigation::pbxDrawField_DblClick(int button, float x, float y) {
    if (pressTaken_ || state_.Walking()) return pbxDrawField_MouseDown(button, 0, x, y);
    if (state_.MeasureClicks != 0) measure_.End();
    view_.Fit();
    view_.DrawAgain();
}

void Navigation::pbxDrawField_MouseWheel(const WheelTurn& turn) {
    if (turn.Sideways) return Pan(-turn.Notches * twipsPerNotch, 0);
    if (turned_ * turn.Notches < 0) turned_ = 0;
    turned_ += turn.Notches;
    const int steps = ToLong(WholePart(turned_));
    turned_ -= steps;
    if (steps != 0 && MayMoveView()) ZoomAt(turn.X, turn.Y, steps);
}

// What is at the pointer stays there.
void Navigation::ZoomAt(double x, double y, int steps) {
    const int before = IndexOf(state_.DrawScale);
    const int index = std::clamp(before + steps, std::min(before, 0), ScaleCount - 1);
    if (index == before || (index < 0 && steps < 0)) return;
    const PictureBox& field = controls_.pbxDrawField;
    const Measuring::Marks marks = measure_.TakeMarks();
    const double scaleBefore = state_.DrawScale;
    view_.ScaleFromIndex(std::max(index, 0));
    view_.SetScaleIndex(index);
    const double growth = state_.DrawScale / scaleBefore;
    PutZero(field.Left + x + (state_.ZeroX - x) * growth, field.Top + y + (state_.ZeroY - y) * growth);
    view_.DrawAgain();
    measure_.PutBack(marks);
}

// Beyond the ends of the scroll bars the drawing moves on the field. Marks of a measurement would be wiped by that.
void Navigation::Pan(double right, double down) {
    const PictureBox& field = controls_.pbxDrawField;
    const bool within =
        Holds(controls_.hsbViewWindow, controls_.hsbViewWindow.Value + right / twipsPerStep) &&
        Holds(controls_.vsbViewWindow, controls_.vsbViewWindow.Value + down / twipsPerStep);
    state_.OwnView = true;
    if (within || !MayMoveView()) return view_.ScrollBy(right, down);
    const Measuring::Marks marks = measure_.TakeMarks();
    const double zeroX = state_.ZeroX;
    const double zeroY = state_.ZeroY;
    PutZero(field.Left + zeroX - right, field.Top + zeroY - down);
    dragX_ += ToSingle(state_.ZeroX - zeroX);
    dragY_ += ToSingle(state_.ZeroY - zeroY);
    view_.DrawAgain();
    measure_.PutBack(marks);
}

// The zero point comes to a place of the view window, in whose middle the field is put: there is most room around it.
// The grid, which follows the last mark of the zero point, is in step at once.
void Navigation::PutZero(double left, double top) {
    for (ScrollBar* bar : {&controls_.hsbViewWindow, &controls_.vsbViewWindow})
        bar->SetValue(ToLong((double{1} * bar->Max - bar->Min) / 2));
    state_.ZeroX = std::round(left - controls_.pbxDrawField.Left);
    state_.ZeroY = std::round(top - controls_.pbxDrawField.Top);
    state_.MarkerX = ToSingle(state_.ZeroX);
    state_.MarkerY = ToSingle(state_.ZeroY);
    state_.ZeroMoved = true;
}

}  // namespace kvt
