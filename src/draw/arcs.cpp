#include "draw/arcs.h"

#include <cmath>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "draw/geometry.h"

namespace kvt {

namespace {

constexpr const char* makeArcName = "MakeArc";

struct Shape {
    double EndX, EndY, CentreX, CentreY;
    double AngleEnd, AngleStart;
};

// A full quadrant by its sense and directions: end point and centre in radii from the pen, angles in pi.
struct Quadrant {
    bool IsG03, NegativeV, NegativeH;
    int EndX, EndY, CentreX, CentreY;
    double AngleEnd, AngleStart;
};

constexpr Quadrant quadrants[] = {
    {true, true, true, -1, -1, 0, -1, 1, 1.5},  {true, true, false, 1, -1, 1, 0, 0.5, 1},
    {true, false, true, -1, 1, -1, 0, 1.5, 2},  {true, false, false, 1, 1, 0, 1, 0, 0.5},
    {false, true, true, -1, -1, -1, 0, 0.5, 2}, {false, true, false, 1, -1, 0, -1, 2, 1.5},
    {false, false, true, -1, 1, 0, 1, 1, 0.5},  {false, false, false, 1, 1, 1, 0, 1.5, 1},
};

Shape QuadrantShape(const ArcCall& arc, float penX, float penY) {
    const double r = std::abs(double{arc.Radius});
    for (const Quadrant& row : quadrants) {
        if (row.IsG03 != arc.IsG03 || row.NegativeV != (arc.DirV < 0) || row.NegativeH != (arc.DirH < 0)) {
            continue;
        }
        return {penX + row.EndX * r,    penY + row.EndY * r, penX + row.CentreX * r,
                penY + row.CentreY * r, row.AngleEnd * Pi,   row.AngleStart * Pi};
    }
    return {};
}

// The signs of the centre's offsets, by where the end lies. A later row that applies wins over an earlier one.
struct CentreRow {
    int SignHOfG03, SignVOfG03, SignHOfG02, SignVOfG02;
    int CentreX, CentreY;
};

constexpr CentreRow centreRows[] = {
    {1, -1, -1, 1, 1, 1},
    {-1, -1, 1, 1, 1, -1},
    {1, 1, -1, -1, -1, 1},
    {-1, 1, 1, -1, -1, -1},
};

bool HasSign(float value, int sign) { return sign > 0 ? value > 0 : value < 0; }

// What the end and the centre of a partial arc put in place of the quadrant's.
void ApplyPartial(Shape& shape, const ArcCall& arc, float penX, float penY) {
    shape.EndX = double{penX} + arc.EndH;
    shape.EndY = double{penY} + arc.EndV;
    for (const CentreRow& row : centreRows) {
        const int signH = arc.IsG03 ? row.SignHOfG03 : row.SignHOfG02;
        const int signV = arc.IsG03 ? row.SignVOfG03 : row.SignVOfG02;
        if (!HasSign(arc.EndH, signH) || !HasSign(arc.EndV, signV)) continue;
        shape.CentreX = penX + double{1} * row.CentreX * arc.CentreH;
        shape.CentreY = penY + double{1} * row.CentreY * arc.CentreV;
    }
    // Y of the field grows downwards, the angle upwards.
    shape.AngleEnd = Atan2(shape.EndX - shape.CentreX, shape.CentreY - shape.EndY);
    shape.AngleStart = Atan2(penX - shape.CentreX, shape.CentreY - penY);
}

}  // namespace

void MakeArc(DrawParts& parts, ArcCall arc, int pass) {
    PictureBox& field = parts.Controls.pbxDrawField;
    const DrawState& state = parts.State;
    const float penX = field.CurrentX;
    const float penY = field.CurrentY;
    // A partial arc without a move along one axis keeps the quadrant's centre: the rows of centres tell nothing then.
    Shape shape{};
    if (arc.EndV == 0 || arc.EndH == 0) {
        shape = QuadrantShape(arc, penX, penY);
        arc.Radius = std::abs(arc.Radius);
    }
    if (arc.EndV != 0 || arc.EndH != 0) ApplyPartial(shape, arc, penX, penY);
    // Counter-clockwise from the first angle to the second.
    Attempt(makeArcName, [&] {
        if (arc.IsG03) {
            field.Circle(shape.CentreX, shape.CentreY, arc.Radius, shape.AngleEnd, shape.AngleStart);
        } else {
            field.Circle(shape.CentreX, shape.CentreY, arc.Radius, shape.AngleStart, shape.AngleEnd);
        }
    });
    // The radii; the pen stays one pixel wide behind them.
    const bool byMenu = parts.Controls.mnuRadiiArcs.Checked && !state.NoRadiusLine;
    if (pass == 1 && (byMenu || state.ForceRadiusLine)) {
        field.DrawWidth = 1;
        field.DrawStyle = draw_style::Dotted;
        Attempt(makeArcName, [&] { field.Line(shape.EndX, shape.EndY, shape.CentreX, shape.CentreY); });
        Attempt(makeArcName, [&] { field.LineTo(penX, penY); });
        field.DrawStyle = draw_style::Solid;
    }
    // An arc leaves the pen at its centre.
    Attempt(makeArcName, [&] { field.MoveTo(shape.EndX, shape.EndY); });
}

}  // namespace kvt
