#include <algorithm>
#include <cmath>

#include "basic/number.h"
#include "files/iso/converter.h"

// The moves of the tool.
namespace kvt::iso {

namespace {

// In units of the program as it comes out.
constexpr double centerTolerance = 5;
constexpr double shortestPiece = 1;
// An arc that is nowhere farther from its chord than this is a straight line for the machine.
constexpr double flatRise = 0.75;
// The control works the centre out from rounded ends, and allows an arc in -X to pass a limit of its quadrant by no
// more than 1 when it began more than 80 before it. Such an arc is parted in front of the limit.
constexpr double farStart = 80;
constexpr double allowedOvershoot = 1;
constexpr double splitDistance = 40;

}  // namespace

bool Converter::FindTarget(const Block& block) {
    bool any = false;
    for (Axis& axis : axes_) {
        axis.Target = axis.At;
        const char changeLetter = axis.Letter == 'X' ? 'U' : 'W';
        const Word* const place = FindWord(block, axis.Letter);
        const Word* const change = Lathe() ? FindWord(block, changeLetter) : nullptr;
        if (!place && !change) continue;
        any = true;
        if (place && absolute_) {
            axis.Target = ToProgramUnits(place->Value);
            axis.Known = true;
            continue;
        }
        if (!axis.Known) Refuse(std::string("where the tool stands in ") + axis.Letter + " is not known yet");
        axis.Target += ToProgramUnits(place ? place->Value : change->Value);
    }
    return any;
}

void Converter::SetPosition() {
    for (Axis& axis : axes_) axis.At = axis.Target;
    if (!std::all_of(axes_.begin(), axes_.end(), [](const Axis& axis) { return axis.Known; }))
        Refuse("the position must be set in all axes at once");
    begun_ = true;
    AddPosition("92", false);
}

// The first place that is known in all axes is where the program begins.
void Converter::AddStartPosition() {
    for (Axis& axis : axes_) axis.At = axis.Target;
    const bool known = std::all_of(axes_.begin(), axes_.end(), [](const Axis& axis) { return axis.Known; });
    if (motion_ > 0) Refuse("the tool is to cut before its place is known in all axes");
    if (!known) return;
    begun_ = true;
    std::string place;
    for (const Axis& axis : axes_) {
        const double length = ToWhole(axis.At) / (program_.Metric ? 100.0 : 1000.0);
        place += std::string(" ") + axis.Letter + PlainNumber(static_cast<float>(length));
    }
    Remark("Before the start the tool must stand at" + place + ".");
    AddPosition("92", false);
    // Ahead of all else, so that the control knows where it is.
    std::rotate(program_.Rows.begin(), program_.Rows.end() - 1, program_.Rows.end());
}

void Converter::Move(const Block& block) {
    const bool names = FindTarget(block);
    if (setsPosition_) {
        if (!names) return;
        if (FindWord(block, 'F')) Refuse("the thread cycle G92 is not converted; have it written out");
        return SetPosition();
    }
    const bool round = motion_ >= 2 && (FindWord(block, 'I') || FindWord(block, 'J') || FindWord(block, 'K'));
    if (!names && !round) return;
    if (motion_ < 0) Refuse("no G00 to G03 says how to move");
    if (!begun_) return AddStartPosition();
    motion_ >= 2 ? MoveOnArc(block) : MoveStraight(motion_ == 0);
}

void Converter::MoveStraight(bool rapid) {
    std::vector<bool> moves;
    for (const Axis& axis : axes_) moves.push_back(ToWhole(axis.Target) != ToWhole(axis.At));
    const auto count = std::count(moves.begin(), moves.end(), true);
    const char* const code = rapid ? "00" : "01";
    if (count == 3) {
        if (!rapid) Refuse("the machine moves two axes at once, not three");
        // Up first, or down last.
        Axis& height = axes_.back();
        const double last = height.Target;
        if (height.Target < height.At) height.Target = height.At;
        if (height.Target > height.At) {
            height.At = height.Target;
        } else {
            for (Axis& axis : axes_) axis.At = axis.Target;
        }
        AddPosition(code, false);
        height.Target = last;
    }
    for (Axis& axis : axes_) axis.At = axis.Target;
    if (count > 0) AddPosition(code, !rapid);
}

Point Converter::PointOf(double x, double other) const {
    return Lathe() ? Point{other, x / 2} : Point{x, other};
}

Point Converter::WholePoint(Point point) const {
    if (!Lathe()) return {static_cast<double>(ToWhole(point.A)), static_cast<double>(ToWhole(point.B))};
    return {static_cast<double>(ToWhole(point.A)), ToWhole(point.B * 2) / 2.0};
}

void Converter::GoTo(Point point) {
    axes_[0].At = Lathe() ? point.B * 2 : point.A;
    axes_[1].At = Lathe() ? point.A : point.B;
}

bool Converter::FindCenter(const Block& block, Arc& arc) const {
    if (const Word* radius = FindWord(block, 'R'))
        return CenterFromRadius(arc.Start, arc.End, ToProgramUnits(radius->Value), arc.Clockwise, arc.Center);
    const Word* const across = FindWord(block, 'I');
    const Word* const along = FindWord(block, Lathe() ? 'K' : 'J');
    if (!across && !along) return false;
    const double x = across ? ToProgramUnits(across->Value) : 0;
    const double other = along ? ToProgramUnits(along->Value) : 0;
    // I is a radius, also on a lathe.
    arc.Center =
        Lathe() ? Point{arc.Start.A + other, arc.Start.B + x} : Point{arc.Start.A + x, arc.Start.B + other};
    return true;
}

void Converter::MoveOnArc(const Block& block) {
    if (!Lathe() && ToWhole(axes_[2].Target) != ToWhole(axes_[2].At))
        Refuse("the machine makes no arc while it moves in Z");
    Arc arc;
    arc.Start = PointOf(axes_[0].At, axes_[1].At);
    arc.End = PointOf(axes_[0].Target, axes_[1].Target);
    arc.Clockwise = motion_ == 2;
    if (!FindCenter(block, arc)) Refuse("the arc has no centre: neither I, J, K nor a radius R that reaches");
    const double radius = Distance(arc.Start, arc.Center);
    if (std::abs(radius - Distance(arc.End, arc.Center)) > centerTolerance || radius < shortestPiece)
        Refuse("the centre of the arc is not equally far from both ends");
    for (const Point end : SplitAtQuadrants(arc, shortestPiece)) AddArcPiece(end, arc);
    GoTo(arc.End);
}

bool Converter::PassesQuadrantLimit(Point start, Point stop, double radius, bool clockwise) const {
    for (Point* point : {&start, &stop}) point->B = std::trunc(point->B);
    Point center;
    if (!CenterFromRadius(start, stop, radius, clockwise, center)) return false;
    const double across = std::trunc(AcrossOf(center));
    return AcrossOf(start) - across > farStart && across - AcrossOf(stop) > allowedOvershoot;
}

// The point of an arc that lies in front of the limit where a piece of it stops.
Point Converter::SplitPoint(const Arc& arc, Point stop, double radius) const {
    const double rest = std::sqrt(std::fmax(0, radius * radius - splitDistance * splitDistance));
    Point part = arc.Center;
    (Lathe() ? part.B : part.A) += splitDistance;
    double& along = Lathe() ? part.A : part.B;
    const double stopsAt = Lathe() ? stop.A : stop.B;
    along += stopsAt < along ? -rest : rest;
    return part;
}

// A quarter of a circle is a line of its own, a smaller piece has its centre in a line behind it.
void Converter::AddArcPiece(Point end, const Arc& arc, bool maySplit) {
    const Point from = PointOf(axes_[0].At, axes_[1].At);
    const Point start = WholePoint(from);
    const Point stop = WholePoint(end);
    GoTo(end);
    const double a = std::abs(stop.A - start.A);
    const double b = std::abs(stop.B - start.B);
    const double chord = Distance(start, stop);
    if (chord == 0) return;
    const double radius = Distance(stop, arc.Center);
    const double rise = radius - std::sqrt(std::fmax(0, radius * radius - chord * chord / 4));
    if (rise < flatRise || a == 0 || b == 0) return AddPosition("01", true);

    const bool quarter = a == b && std::abs(a - radius) <= 1 &&
                         std::abs(std::trunc(AcrossOf(start)) - std::trunc(AcrossOf(stop))) >= a;
    if (program_.Machine == MachineModel::MK2 && !(quarter && stop.A == -std::abs(start.A - b)))
        Refuse("the MK2 turns whole quarter circles towards the chuck, and no other arc");
    int alongA = std::abs(ToWhole(arc.Center.A - start.A));
    int alongB = std::abs(ToWhole(arc.Center.B - start.B));
    // Rounded, the radius must still reach from end to end.
    while (std::hypot(alongA, alongB) < std::max(a, b)) ++(alongA > alongB ? alongA : alongB);
    if (!quarter && maySplit && PassesQuadrantLimit(start, stop, std::hypot(alongA, alongB), arc.Clockwise)) {
        GoTo(from);
        AddArcPiece(SplitPoint(arc, stop, radius), arc, false);
        return AddArcPiece(end, arc, false);
    }
    AddPosition(arc.Clockwise ? "02" : "03", true);
    if (quarter) return;
    Row& center = AddRow("M99");
    if (Lathe()) {
        center.Parameters = {alongB, std::nullopt, alongA, std::nullopt};
    } else {
        center.Parameters = {alongA, alongB, 0, std::nullopt};
    }
}

}  // namespace kvt::iso
