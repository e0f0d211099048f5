#include "draw/measuring.h"

#include <cmath>
#include <limits>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "draw/palette.h"
#include "platform/keys.h"
#include "program/workbench_calls.h"

namespace kvt {

namespace {

constexpr const char* mouseMoveName = "pbxDrawfield_MouseMove";
constexpr const char* mouseDownName = "pbxDrawfield_MouseDown";

constexpr float markArm = 100;  // twips, whatever the scale

// The four fields in the order of their ring, and where the arrow keys go from each.
struct RingField {
    TextBox DrawControls::*Field;
    std::size_t Down, Up, Left, Right;
};
constexpr std::size_t x1 = 0, z1 = 1, x2 = 2, z2 = 3;
constexpr RingField ring[] = {
    {&DrawControls::txtX1, x2, z2, z2, z1},
    {&DrawControls::txtZ1, z2, x2, x1, x2},
    {&DrawControls::txtX2, z1, x1, z1, z2},
    {&DrawControls::txtZ2, x1, z1, x2, x1},
};

double Distance(double a, double b) { return std::sqrt(a * a + b * b); }

// The number in a field; one that is too large for any is infinite.
double NumberIn(std::string_view text) {
    try {
        return Val(text);
    } catch (const RunTimeError&) {
        return std::numeric_limits<double>::infinity();
    }
}

// Whether a field can show a number.
bool FitsField(double value) { return std::abs(value) <= std::numeric_limits<float>::max(); }

std::string Shown(double value) { return PlainNumber(ToSingle(value)); }

// Empty for one that no field can show.
std::string ShownDistance(double value) { return FitsField(value) ? Shown(value) : std::string(); }

}  // namespace

std::string CleanUp(std::string_view text) {
    if (text.empty()) return "0";
    // A sign counts only in front.
    std::string number = Replace(text, "-", "");
    if (text.front() == '-') number = number.empty() ? "0" : "-" + number;
    // What no field can show stays as it was typed.
    const double value = NumberIn(number);
    return FitsField(value) ? Shown(value) : std::string(text);
}

Measuring::Measuring(DrawParts& parts, Simulation& sim, Viewport& view)
    : parts_(parts), controls_(parts.Controls), state_(parts.State), sim_(sim), view_(view) {
    parts_.ClearMeasure = [this] { ClearMeasure(); };
    WireFields();
}

void Measuring::WireFields() {
    for (std::size_t place = 0; place < std::size(ring); ++place) {
        TextBox& field = controls_.*ring[place].Field;
        field.OnGotFocus = [this, &field] {
            state_.MeasureFieldFocus = true;
            field.SelectAll();
            Recalculate();
        };
        field.OnLostFocus = [this, &field] {
            state_.MeasureFieldFocus = false;
            field.Text = CleanUp(field.Text);
            Recalculate();
        };
        field.OnKeyPress = [this, place](int& character) { Field_KeyPress(place, character); };
        field.OnKeyDown = [this, place](int pressed, int) { Field_KeyDown(place, pressed); };
    }
}

// Distance from the zero point in program units; the field's Y grows downwards.
float Measuring::HorizontalValue(float x) const {
    return ToSingle((state_.ZeroX - x) * -1 / state_.DrawScale);
}
float Measuring::VerticalValue(float y) const { return ToSingle((state_.ZeroY - y) * -1 / state_.DrawScale); }

// The fields repaint themselves: the system need not be let run for it.
void Measuring::pbxDrawField_MouseMove(float x, float y) {
    Attempt(mouseMoveName, [&] {
        const bool mill = parts_.Store.IsF1();
        const float h = HorizontalValue(x);
        const float v = VerticalValue(y);
        controls_.txtDiameter.Text = Shown(std::abs(double{v}) * 2);
        // Only behind the first click the mill's Y gets its own sign: before, the field's position is shown as it is.
        if (state_.MeasureClicks == 0) {
            controls_.txtX1.Text = Shown(mill ? h : v);
            controls_.txtZ1.Text = Shown(mill ? v : h);
        }
        if (state_.MeasureClicks == 1) {
            const std::int32_t dh = ToLong(double{h} - state_.MeasureX);
            const std::int32_t dv = ToLong(double{v} - state_.MeasureY);
            controls_.txtX1.Text = Shown(mill ? state_.MeasureX : state_.MeasureY);
            controls_.txtZ1.Text = Shown(mill ? -state_.MeasureY : state_.MeasureX);
            controls_.txtX2.Text = Shown(mill ? h : v);
            controls_.txtZ2.Text = Shown(mill ? -v : h);
            controls_.txtDeltaX.Text = PlainNumber(mill ? dh : dv);
            controls_.txtDeltaZ.Text = PlainNumber(mill ? dv : dh);
            controls_.txtDeltaXZ.Text = Shown(Distance(dh, dv));
        }
    });
}

void Measuring::pbxDrawField_MouseDown(float x, float y) {
    state_.EndClickWait();
    if (parts_.Store.ErrorFlagged || state_.Drawing) return;
    Attempt(mouseDownName, [&] {
        ++state_.MeasureClicks;
        view_.ShowGridSize();
        if (state_.MeasureClicks < 3) {
            PutMark(state_.MeasureClicks == 1 ? 0 : 1, x, y);
            sim_.EnableControls(false);
        } else {
            ClearMeasure();
            WipeMarks(2);
            sim_.EnableControls(true);
        }
    });
    // The third click has counted back to 0.
    ShowPointer(state_.MeasureClicks == 1 ? mouse::CrossPointer : mouse::DefaultPointer);
}

void Measuring::PutMark(std::size_t pair, float x, float y) {
    state_.MeasureMarks[2 * pair] = x;
    state_.MeasureMarks[2 * pair + 1] = y;
    drawingOfMark_[pair] = controls_.pbxDrawField.OperationsBefore();
    DrawMark(x, y);
}

// A mark that a drawing in between has wiped is no more there.
void Measuring::WipeMarks(std::size_t count) {
    for (std::size_t pair = 0; pair < count; ++pair) {
        if (drawingOfMark_[pair] == controls_.pbxDrawField.OperationsBefore())
            DrawMark(state_.MeasureMarks[2 * pair], state_.MeasureMarks[2 * pair + 1]);
    }
}

void Measuring::End() {
    // What leaving a field works out must not stay behind.
    if (state_.MeasureFieldFocus) parts_.Platform.Focus.SetFocus(controls_.pbxDrawField);
    const auto marks = static_cast<std::size_t>(state_.MeasureClicks);
    ClearMeasure();
    WipeMarks(marks);
    // Without marks the scale is free again.
    state_.ScaleUpdating = false;
    if (!state_.Walking()) sim_.EnableControls(true);
}

Measuring::Marks Measuring::TakeMarks() const {
    Marks marks{state_.MeasureClicks, {}};
    for (std::size_t i = 0; i < marks.Places.size(); ++i) {
        const double zero = i % 2 == 0 ? state_.ZeroX : state_.ZeroY;
        marks.Places[i] = (state_.MeasureMarks[i] - zero) / state_.DrawScale;
    }
    return marks;
}

void Measuring::PutBack(const Marks& marks) {
    if (marks.Count == 0 || state_.MeasureClicks != marks.Count) return;
    const double scale = state_.DrawScale;
    for (std::size_t pair = 0; pair < static_cast<std::size_t>(marks.Count); ++pair) {
        PutMark(pair, ToSingle(state_.ZeroX + marks.Places[2 * pair] * scale),
                ToSingle(state_.ZeroY + marks.Places[2 * pair + 1] * scale));
    }
    sim_.EnableControls(false);
}

void Measuring::ShowPointer(int pointer) {
    controls_.frmDraw.MousePointer = pointer;
    controls_.pbxDrawField.MousePointer = pointer;
}

void Measuring::DrawMark(float x, float y) {
    PictureBox& field = controls_.pbxDrawField;
    field.ForeColor = InkOf(Ink::Pen, controls_);
    field.DrawWidth = 1;
    field.DrawMode = draw_mode::Invert;
    field.Line(x - markArm, y, x + markArm, y);
    field.Line(x, y - markArm, x, y + markArm);
    state_.MeasureX = HorizontalValue(x);
    state_.MeasureY = VerticalValue(y);
    field.DrawMode = draw_mode::Copy;
}

void Measuring::ClearMeasure() {
    state_.MeasureClicks = 0;
    for (TextBox* field : {&controls_.txtX2, &controls_.txtZ2, &controls_.txtDeltaX, &controls_.txtDeltaZ,
                           &controls_.txtDeltaXZ}) {
        field->Text = "";
    }
    ShowPointer(mouse::DefaultPointer);
    Run(parts_.StateChanged);
}

void Measuring::Recalculate() {
    // Until the next drawing: a scale that changed now would wipe the measured marks.
    state_.ScaleUpdating = true;
    const auto distance = [](const TextBox& from, const TextBox& to) {
        return std::abs(NumberIn(from.Text.Get()) - NumberIn(to.Text.Get()));
    };
    const double z = distance(controls_.txtZ1, controls_.txtZ2);
    const double x = distance(controls_.txtX1, controls_.txtX2);
    controls_.txtDeltaX.Text = ShownDistance(x);
    controls_.txtDeltaZ.Text = ShownDistance(z);
    controls_.txtDeltaXZ.Text = ShownDistance(Distance(z, x));
}

void Measuring::Field_KeyPress(std::size_t place, int& character) {
    switch (character) {
        case key::CtrlC:
        case key::Backspace:
        case key::CtrlV:
        case key::CtrlX:
        case '-': return;
        case key::Enter:
        case ',':
        case '.':
            character = 0;
            parts_.Platform.Focus.SetFocus(controls_.*ring[(place + 1) % std::size(ring)].Field);
            return;
        default:
            if (character < '0' || character > '9') character = 0;
    }
}

void Measuring::Field_KeyDown(std::size_t place, int pressed) {
    const RingField& from = ring[place];
    const TextBox& field = controls_.*from.Field;
    const TextSelection selection = field.Selection;
    const auto go = [&](std::size_t to) { parts_.Platform.Focus.SetFocus(controls_.*ring[to].Field); };
    switch (pressed) {
        case key::Down: return go(from.Down);
        case key::Up: return go(from.Up);
        case key::Left:
            if (selection.Start == 0) go(from.Left);
            return;
        case key::Right:
            // All selected is a caret at the start, from where the key goes to the end first.
            if (selection.Start == static_cast<int>(field.Text.Get().size())) go(from.Right);
            return;
        default: return;
    }
}

}  // namespace kvt
