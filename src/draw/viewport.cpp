#include "draw/viewport.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "basic/number.h"
#include "draw/in_sight.h"
#include "draw/palette.h"

namespace kvt {

namespace {

// Exponents of two that the fitting tries, and what the view window keeps free.
constexpr int largestExponent = 4;
constexpr int smallestExponent = -7;
constexpr int freeHeight = 1500;
constexpr int freeWidth = 500;

constexpr int crossArm = 100;  // twips
constexpr int ringRadius = 150;

struct Extents {
    double VTravel, HTravel, VLimit, HLimit;
};

struct FittedScale {
    int Index;
    double Scale;
};

// The largest scale at which a travel in program units fits a length of the view window in twips.
FittedScale FitOf(double length, double travel) {
    int n = largestExponent;
    while (n >= smallestExponent && !(std::ldexp(length, n) < travel)) --n;
    return {2 - n, std::ldexp(1.0, -1 - n)};
}

}  // namespace

Viewport::Viewport(DrawParts& parts) : parts_(parts), controls_(parts.Controls), state_(parts.State) {
    for (const auto& entry : controls_.mnuScale) {
        const int index = entry->Index();
        entry->OnClick = [this, index] { mnuScale_Click(index); };
    }
    controls_.UpDown.OnChange = [this] { UpDown_Change(); };
    controls_.hsbViewWindow.OnChange = [this] {
        controls_.pbxDrawField.Left = -controls_.hsbViewWindow.Value * 10;
    };
    controls_.vsbViewWindow.OnChange = [this] {
        controls_.pbxDrawField.Top = -controls_.vsbViewWindow.Value * 10;
    };
}

void Viewport::ScaleFromIndex(int index) {
    // A scale that the user chooses stays.
    state_.FitNext = false;
    state_.OwnView = true;
    state_.DrawScale = index >= 0 && index < ScaleCount ? std::ldexp(1.0F, index - IndexOfScale1) : 1;
}

void Viewport::SetScaleIndex(int index) {
    const int held = std::clamp(index, 0, ScaleCount - 1);
    for (const auto& entry : controls_.mnuScale) {
        entry->Checked = entry->Index() == held;
        if (entry->Checked) controls_.UpDown.ToolTip = entry->Caption;
    }
}

int Viewport::CheckedScaleIndex() const {
    for (const auto& entry : controls_.mnuScale) {
        if (entry->Checked) return entry->Index();
    }
    return 0;
}

void Viewport::Autofit() {
    if (!state_.AutoFitPending) return;
    Fit();
    // A walk under way would go on in the new scale from where the old one has led it.
    state_.Walking() && state_.MayWait() ? DrawAgain() : parts_.Redraw();
}

void Viewport::DrawAgain() {
    const bool waits = state_.InTimedWait || state_.Wait != UserWait::None;
    const bool walks = state_.Walking();
    state_.WaitsToLeaveOut = !walks  ? std::numeric_limits<int>::max()
                             : waits ? state_.Waits - 1
                                     : state_.Waits;
    parts_.Redraw();
    if (walks) state_.Leave();
}

bool Viewport::Fit() {
    const InterpreterControls& axes = parts_.Results;
    const auto number = [](const Label& label) { return Val(label.Caption); };
    const bool mill = parts_.Store.IsF1();
    Extents extents{};
    if (mill && !parts_.Store.Horizontal) {
        extents = {number(axes.lblYAxisTravel), number(axes.lblXAxisTravel), number(axes.lblYAxisMax),
                   number(axes.lblXAxisMin)};
    } else {
        extents = {number(axes.lblXAxisTravel), number(axes.lblZAxisTravel),
                   number(mill ? axes.lblXAxisMax : axes.lblXAxisMin), number(axes.lblZAxisMin)};
    }
    const FittedScale vertical = FitOf(controls_.pbxViewWindow.Height - freeHeight, extents.VTravel);
    const FittedScale horizontal = FitOf(controls_.pbxViewWindow.Width - freeWidth, extents.HTravel);
    // The menu holds the index; the scale may be smaller than its smallest.
    const FittedScale& fit = vertical.Index > horizontal.Index ? horizontal : vertical;
    SetScaleIndex(fit.Index);
    state_.DrawScale = static_cast<float>(fit.Scale);
    // The path lies in the middle of the field.
    const double scale = state_.DrawScale;
    const PictureBox& field = controls_.pbxDrawField;
    state_.ZeroX = (field.ScaleWidth() - extents.HTravel * scale) / 2 + std::abs(extents.HLimit * scale);
    state_.ZeroY = (field.ScaleHeight() - extents.VTravel * scale) / 2 + std::abs(extents.VLimit * scale);
    // So does the view.
    for (ScrollBar* bar : {&controls_.hsbViewWindow, &controls_.vsbViewWindow}) {
        bar->SetValue(ToLong((double{1} * bar->Max - bar->Min) / 2));
    }
    state_.AutoFitPending = false;
    state_.OwnView = false;
    state_.ZeroMoved = false;
    return extents.VTravel > 0 || extents.HTravel > 0;
}

bool Viewport::ShowsStroke() const {
    const PictureBox& field = controls_.pbxDrawField;
    const PictureBox& window = controls_.pbxViewWindow;
    const FieldArea area{-1.0 * field.Left, -1.0 * field.Top, 1.0 * window.Width, 1.0 * window.Height};
    const std::vector<DrawOperation>& all = field.Operations();
    // So many strokes that the first ones were exchanged for a picture: one of them will be in it.
    if (state_.FirstStroke < field.OperationsBefore()) return true;
    const long long first = state_.FirstStroke - field.OperationsBefore();
    for (auto i = static_cast<std::size_t>(first); i < all.size(); ++i) {
        if (all[i].Mode == draw_mode::Copy && IsInSight(all[i], area)) return true;
    }
    return false;
}

void Viewport::MakeZeroPoint() {
    PictureBox& field = controls_.pbxDrawField;
    state_.MarkerX = field.CurrentX;
    state_.MarkerY = field.CurrentY;
    const double x = state_.MarkerX;
    const double y = state_.MarkerY;
    field.DrawWidth = 1;
    // The axes, right across the field.
    field.ForeColor = InkOf(Ink::Axis, controls_);
    field.Line(0, y, field.ScaleWidth(), y);
    field.Line(x, 0, x, field.ScaleHeight());
    // The mark itself has the same size at every scale.
    field.ForeColor = InkOf(Ink::Pen, controls_);
    field.Line(x - crossArm, y, x + crossArm, y);
    field.Line(x, y - crossArm, x, y + crossArm);
    const int fillBefore = field.FillStyle;
    field.FillStyle = fill_style::Transparent;
    field.Circle(x, y, ringRadius);
    field.FillStyle = fillBefore;
    field.MoveTo(x, y);
}

void Viewport::MakeGrid() {
    PictureBox& field = controls_.pbxDrawField;
    const float scale = state_.DrawScale;
    state_.GridStep = scale < 1 ? 1000 : scale > 16 ? 10 : 100;
    const double step = state_.GridStep * double{scale};
    const std::int32_t columns = ToLong(field.ScaleWidth() / step);
    const std::int32_t rows = ToLong(field.ScaleHeight() / step);
    const float penX = field.CurrentX;
    const float penY = field.CurrentY;
    field.DrawWidth = 1;
    field.ForeColor = InkOf(Ink::Grid, controls_);
    // The phases put the lines on the zero point mark; the pen is at 0, 0 when the field has just been cleared.
    const auto phase = [&](float marker) { return Remainder(WholePart(marker), WholePart(step)); };
    const double phaseX = phase(state_.MarkerX);
    const double phaseY = phase(state_.MarkerY);
    for (std::int32_t i = 0; i <= rows; ++i) {
        const double y = penY + step * i + phaseY;
        field.Line(0, y, field.ScaleWidth(), y);
    }
    for (std::int32_t i = 0; i <= columns; ++i) {
        const double x = penX + step * i + phaseX;
        field.Line(x, 0, x, field.ScaleHeight());
    }
    field.MoveTo(penX, penY);
    ShowGridSize();
}

void Viewport::ShowGridSize() {
    const bool metric = parts_.Store.Metric;
    const MachineControls& machine = parts_.Machine;
    controls_.txtGrid.Text =
        PlainNumber(std::int32_t{state_.GridStep}) + (metric ? " x 0.01 " : " x 0.001 ") +
        (metric ? machine.optSettingsMm.Caption.Get() : machine.optSettingsInch.Caption.Get());
}

void Viewport::mnuScale_Click(int index) {
    ScaleFromIndex(index);
    SetScaleIndex(index);
    if (controls_.mnuAutoRedraw.Checked) parts_.Redraw();
}

void Viewport::UpDown_Change() {
    if (state_.ScaleUpdating) return;
    ScaleFromIndex(controls_.UpDown.Value);
    SetScaleIndex(controls_.UpDown.Value);
    parts_.Redraw();
}

void Viewport::Zoom(int step) { controls_.UpDown.SetValue(controls_.UpDown.Value + step); }

void Viewport::ScrollBy(double right, double down) {
    controls_.hsbViewWindow.SetValue(ToLong(controls_.hsbViewWindow.Value + right / 10));
    controls_.vsbViewWindow.SetValue(ToLong(controls_.vsbViewWindow.Value + down / 10));
}

}  // namespace kvt
