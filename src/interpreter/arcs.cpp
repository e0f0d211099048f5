// G02, G03, M99 and M99R. All tests are in program units; the points are truncated to whole numbers.

#include <algorithm>
#include <cmath>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "interpreter/check_pass.h"
#include "program/word.h"

namespace kvt {

namespace {

constexpr double tolerance = 80;

float Truncated(float value) { return static_cast<float>(WholePart(value)); }

double Length(double u, double v) { return std::sqrt(u * u + v * v); }

}  // namespace

void CheckPass::InPlane(float x, float y, float z, float& u, float& v) const {
    if (plane_ == Plane::XY) {
        u = x;
        v = y;
    } else if (plane_ == Plane::XZ) {
        u = x;
        v = z;
    } else if (plane_ == Plane::YZ) {
        u = y;
        v = z;
    }
}

CheckPass::Next CheckPass::Arc() {
    if (mk2_) DeriveMK2ArcZ();
    InPlane(Truncated(xBefore_), Truncated(yBefore_), Truncated(zBefore_), store_.ArcStartU,
            store_.ArcStartV);
    ApplyMove();
    InPlane(Truncated(x_), Truncated(y_), Truncated(z_), store_.ArcEndU, store_.ArcEndV);
    if (store_.ArcStartU == store_.ArcEndU && store_.ArcStartV == store_.ArcEndV) {
        return EndWith(text::StartAndEndSame);
    }

    ReadNextLine();
    if (const Next next = FindRadius(); next != Next::GoOn) return next;
    (*item_)[column::Radius] = FieldOfSix(radius_);
    // These two moves whatever the plane: the third axis of a mill is not looked at.
    if (std::abs(dX_) > radius_ || std::abs(dZ_) > radius_) return EndWith(text::RadiusTooSmall);

    // On the mill the senses of the two codes change places.
    const bool direction = (key_ == code::G02) != mill_;
    store_.ArcCenterU = 0;
    store_.ArcCenterV = 0;
    Attempt(interpreterName, [&] {
        FindCenter(store_.ArcStartU, store_.ArcStartV, store_.ArcEndU, store_.ArcEndV, radius_, direction,
                   store_.ArcCenterU, store_.ArcCenterV);
    });
    WriteArcCenter();

    // The angle is that between the positions themselves, not between the truncated points.
    float startU = 0, startV = 0, endU = 0, endV = 0;
    InPlane(xBefore_, yBefore_, zBefore_, startU, startV);
    InPlane(x_, y_, z_, endU, endV);
    Attempt(interpreterName, [&] {
        WriteArcAngle(Divide(Length(double(endU) - startU, double(endV) - startV) / 2, radius_));
    });
    return Next::GoOn;
}

// An M99 behind the arc gives its centre or radius. On the last row the flags keep their values from the arc before.
void CheckPass::ReadNextLine() {
    if (store_.LineCount() <= itemRow_) return;
    const ListRow& next = list_.Row(itemRow_ + 1);
    const CodeKey nextKey = KeyOf(next[column::Code]);
    nextIsM99_ = nextKey == code::M99;
    nextIsM99R_ = nextKey == code::M99R;
    if (!nextIsM99_) return;
    Attempt(interpreterName, [&] {
        i_ = ReadWord(next[column::X]).Value;
        j_ = ReadWord(next[column::Y]).Value;
        k_ = ReadWord(next[column::Z]).Value;
    });
}

// That control derives the Z of an arc from its X; what was typed is replaced.
void CheckPass::DeriveMK2ArcZ() {
    ListRow& item = *item_;
    const double x = xNumber_;
    double derived = std::abs(x);
    if (store_.AbsoluteMode) {
        double previousX = 0;
        double previousZ = 0;
        Attempt(interpreterName, [&] { previousX = Val(list_.Row(itemRow_ - 1)[column::ToolX]); });
        Attempt(interpreterName, [&] { previousZ = Val(list_.Row(itemRow_ - 1)[column::ToolZ]); });
        const double d = std::abs(previousX - (store_.RadiusMode ? x : x / 2));
        derived = ToLong(std::abs(previousZ - d));
    }
    item[column::Z] = "-" + RightPad(Format(derived, "###00"), 5);
    zTarget_ = static_cast<float>(Val(item[column::Z]));
    if (store_.AbsoluteMode) dZ_ = zTarget_ - zBefore_;
}

CheckPass::Next CheckPass::FindRadius() {
    if (nextIsM99_) return RadiusFromNextLine();
    if (nextIsM99R_) {
        radius_ = store_.M99Radius;
        return Next::GoOn;
    }
    return RadiusOfQuadrant();
}

CheckPass::Next CheckPass::RadiusFromNextLine() {
    double u = 0;
    double v = 0;
    if (plane_ == Plane::XY) {
        u = i_;
        v = j_;
    } else if (plane_ == Plane::XZ) {
        u = i_;
        v = k_;
    } else if (plane_ == Plane::YZ) {
        u = j_;
        v = k_;
    }
    radius_ = static_cast<float>(Length(u, v));
    // An arc without a radius ends the run, and no finding tells it.
    if (radius_ == 0) return Next::EndRun;
    (*item_)[column::Radius] = FieldOfSix(radius_);
    WriteArcAngle(Length(double(x_) - xBefore_, double(z_) - zBefore_) / 2 / radius_);
    return Next::GoOn;
}

// Without an M99 an arc is a whole quadrant, whose two moves are equal; the MK2 makes them so itself.
CheckPass::Next CheckPass::RadiusOfQuadrant() {
    if (!mk2_) {
        float first = 0;
        float second = 0;
        if (dX_ == 0) {
            first = dY_;
            second = dZ_;
        } else if (dY_ == 0) {
            first = dX_;
            second = dZ_;
        } else if (dZ_ == 0) {
            first = dX_;
            second = dY_;
        }
        if (std::abs(first) != std::abs(second)) return EndWith(text::NotFullQuadrant);
    }
    radius_ = std::abs(store_.ArcStartU - store_.ArcEndU);
    return Next::GoOn;
}

void CheckPass::WriteArcCenter() {
    ListRow& item = *item_;
    const std::string u = Format(store_.ArcCenterU, "0");
    const std::string v = Format(store_.ArcCenterV, "0");
    if (plane_ == Plane::XY) {
        item[column::CenterX] = u;
        item[column::CenterY] = v;
        item[column::CenterZ] = Format(z_, "0");
    } else if (plane_ == Plane::XZ) {
        item[column::CenterX] = u;
        item[column::CenterZ] = v;
        item[column::CenterY] = Format(y_, "0");
    } else if (plane_ == Plane::YZ) {
        item[column::CenterY] = u;
        item[column::CenterZ] = v;
        item[column::CenterX] = Format(x_, "0");
    }
}

void CheckPass::WriteArcAngle(double half) {
    const double square = 1 - half * half;
    if (square <= 0) return;
    const auto angle = static_cast<float>(std::atan(half / std::sqrt(square)) * 360 / Pi);
    (*item_)[column::Angle] = Format(angle, "0.0");
}

bool CheckPass::FollowsArc() const {
    const CodeKey previous = KeyOf(list_.Row(itemRow_ - 1)[column::Code]);
    return previous == code::G02 || previous == code::G03;
}

// M99 checks the arc in front of it by the centre that was found for it. On the first line there is none.
CheckPass::Next CheckPass::ArcCenterLine() {
    if (itemRow_ == 1) return Next::GoOn;
    if (!FollowsArc()) return EndWith(text::MustFollowArc);
    quadrantFlag_ = OverQuadrantLimit();
    const double toStart =
        ArcDistance(store_.ArcCenterU, store_.ArcCenterV, store_.ArcStartU, store_.ArcStartV);
    const double toEnd = ArcDistance(store_.ArcCenterU, store_.ArcCenterV, store_.ArcEndU, store_.ArcEndV);
    invalidArcFlag_ = std::abs(toStart - toEnd) > tolerance;
    return Next::GoOn;
}

// The radius form: a centre made from a radius is as far from both ends.
CheckPass::Next CheckPass::ArcRadiusLine() {
    if (itemRow_ == 1) return Next::GoOn;
    if (!FollowsArc()) return EndWith(text::MustFollowArc);
    quadrantFlag_ = OverQuadrantLimit();
    RewriteRadiusLine();
    return Next::GoOn;
}

// Whether start and end lie on different sides of the centre by more than the tolerance. In the first of the four cases
// more than one unit behind the centre is too much already.
bool CheckPass::OverQuadrantLimit() const {
    const double startU = store_.ArcStartU, endU = store_.ArcEndU, centerU = store_.ArcCenterU;
    const double startV = store_.ArcStartV, endV = store_.ArcEndV, centerV = store_.ArcCenterV;
    return (startU - centerU > tolerance && centerU - endU > 1) ||
           (centerU - startU > tolerance && endU - centerU > tolerance) ||
           (startV - centerV > tolerance && centerV - endV > tolerance) ||
           (centerV - startV > tolerance && endV - centerV > tolerance);
}

// Turns the radius line into an ordinary M99 for good.
void CheckPass::RewriteRadiusLine() {
    ListRow& item = *item_;
    const double u = WholePart(std::abs(double(store_.ArcStartU) - store_.ArcCenterU));
    const double v = WholePart(std::abs(double(store_.ArcStartV) - store_.ArcCenterV));
    const auto cell = [](char letter, double value, std::string_view pattern, std::size_t width) {
        return letter + RightPad(Format(value, pattern), width);
    };
    item[column::Code] = "M99 ";
    if (!mill_) {
        item[column::X] = cell('I', u, "##00", 4);
        item[column::Z] = cell('K', v, "###00", 5);
        return;
    }
    double i = 0, j = 0, k = 0;
    if (plane_ == Plane::XY) {
        i = u;
        j = v;
    } else if (plane_ == Plane::XZ) {
        i = u;
        k = v;
    } else if (plane_ == Plane::YZ) {
        j = u;
        k = v;
    }
    item[column::X] = cell('I', i, "##00", 5);
    item[column::Y] = cell('J', j, "##00", 4);
    item[column::Z] = cell('K', k, "###00", 5);
}

double ArcDistance(double aU, double aV, double bU, double bV) { return WholePart(Length(bU - aU, bV - aV)); }

void FindCenter(float startU, float startV, float endU, float endV, float radius, bool direction,
                float& centerU, float& centerV) {
    if (radius == 0) return;
    const double dU = double(endU) - startU;
    const double dV = double(endV) - startV;
    const double d = Length(dU, dV);
    const double s = SquareRoot(double(radius) * radius - (d / 2) * (d / 2));
    const double offsetU = Divide(s * -dV, d);
    const double offsetV = Divide(s * dU, d);
    const double middleU = (double(startU) + endU) / 2;
    const double middleV = (double(startV) + endV) / 2;
    const auto aU = static_cast<float>(middleU + offsetU), aV = static_cast<float>(middleV + offsetV);
    const auto bU = static_cast<float>(middleU - offsetU), bV = static_cast<float>(middleV - offsetV);

    const bool endAboveStart = endV > startV;
    const bool takesLargerU = direction != endAboveStart;
    const bool takesA = takesLargerU ? aU >= bU : aU < bU;
    centerU = Truncated(takesA ? aU : bU);
    centerV = Truncated(takesA ? aV : bV);
}

}  // namespace kvt
