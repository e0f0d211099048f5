#include "draw/stroke_guide.h"

#include <cmath>

#include "basic/number.h"
#include "basic/text.h"
#include "draw/palette.h"
#include "platform/pointed_operation.h"
#include "program/code_key.h"

namespace kvt {

namespace {

// How near the mouse has to come, in twips: four pixels.
constexpr double nearEnough = 60;

bool IsArc(const ListRow& row) {
    const CodeKey key = KeyOf(row[column::Code]);
    return key == code::G02 || key == code::G03;
}

bool IsArcCentre(const ListRow& row) { return KeyOf(row[column::Code]) == code::M99; }

// A code as it is spoken of: "G01", "M30".
std::string CodeText(std::string_view cell) {
    const std::string_view code = Trim(cell);
    return (code.empty() || UpperChar(code[0]) == 'M' ? "" : "G") + std::string(code);
}

// Positions come in halves at the most: a diameter can be odd.
double Halves(double value) { return std::round(value * 2) / 2; }

std::string AxisText(const char* axis, double value) { return axis + (" " + PlainNumber(ToSingle(value))); }

}  // namespace

StrokeGuide::StrokeGuide(DrawParts& parts) : parts_(parts) {
    parts_.Store.lvCncProgram.OnSelection = [this] { LightSelected(); };
}

void StrokeGuide::BeginDrawing() {
    drawnRows_ = parts_.Store.lvCncProgram.Count();
    PictureBox& field = parts_.Controls.pbxDrawField;
    field.ToolTip = "";
    field.LitColor = InkOf(Ink::Lit, parts_.Controls);
    LightSelected();
}

// A line with the centre of an arc is one with that before it, whose stroke it is.
void StrokeGuide::LightSelected() {
    const ListView& list = parts_.Store.lvCncProgram;
    const int row = list.SelectedRow();
    SourceRange lit;
    if (IsOfDrawing() && row > 0) lit = {row, row};
    const bool behindArc = row > 1 && IsArc(list.Row(row - 1));
    if (lit.First > 0 && behindArc && IsArcCentre(list.Row(row))) --lit.First;
    parts_.Controls.pbxDrawField.Lit = lit;
}

const SourceRun* StrokeGuide::RunAt(float x, float y) const {
    if (!IsOfDrawing()) return nullptr;
    const PictureBox& field = parts_.Controls.pbxDrawField;
    const auto operation = OperationAt(field, x, y, nearEnough);
    return operation ? field.Sources().RunOf(*operation) : nullptr;
}

// While a second point is looked for, the tip would lie over what is measured.
void StrokeGuide::Point(float x, float y) {
    const SourceRun* const run = parts_.State.MeasureClicks == 1 ? nullptr : RunAt(x, y);
    parts_.Controls.pbxDrawField.ToolTip = run ? TextOf(*run) : std::string();
}

bool StrokeGuide::Press(float x, float y) {
    const DrawState& state = parts_.State;
    if (state.Walking() || state.Drawing || state.MeasureClicks != 0) return false;
    const SourceRun* const run = RunAt(x, y);
    if (run && OpenRow) OpenRow(run->Source);
    return true;
}

std::string StrokeGuide::TextOf(const SourceRun& run) const {
    const ListRow& row = parts_.Store.lvCncProgram.Row(run.Source);
    return Filled(parts_.Language.DrawErrorTexts(text::StrokeOfLine),
                  {std::string(Trim(row[column::Number])), CodeText(row[column::Code]), EndText(run)});
}

// Where the stroke ends, as the columns of the tool position tell it. They know the Z of the mill only where they speak of
// the same end: a subroutine can pass its lines at several depths and places.
std::string StrokeGuide::EndText(const SourceRun& run) const {
    const DrawState& state = parts_.State;
    const FieldPlace end = parts_.Controls.pbxDrawField.EndOf(run);
    const double across = Halves((end.X - state.ZeroX) / state.DrawScale);
    const double down = Halves((end.Y - state.ZeroY) / state.DrawScale);
    if (!parts_.Store.IsF1()) {
        return AxisText("X", down) + " (\xD8 " + PlainNumber(ToSingle(std::abs(down) * 2)) + "), " +
               AxisText("Z", across);
    }
    const ListRow& row = parts_.Store.lvCncProgram.Row(run.Source);
    std::string text = AxisText("X", across) + ", " + AxisText("Y", -down);
    if (Val(row[column::ToolX]) == across && Val(row[column::ToolY]) == -down)
        text += ", " + AxisText("Z", Val(row[column::ToolZ]));
    return text;
}

}  // namespace kvt
