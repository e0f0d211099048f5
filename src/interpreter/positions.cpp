// Tool position, axes and machine time. On a lathe the position is kept as a radius, and the factor of X
// bridges it to the diameters of absolute mode.

#include <algorithm>
#include <cmath>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "interpreter/check_pass.h"

namespace kvt {

namespace {

// Times are worked out for 1/100 mm.
constexpr double hundredthsPerThousandth = 2.54;

constexpr CodeKey planeKeys[] = {code::G00, code::G01, code::G02, code::G03, code::G72};

}  // namespace

void CheckPass::WorkOutMove() {
    xBefore_ = x_;
    yBefore_ = y_;
    zBefore_ = z_;
    if (store_.AbsoluteMode) {
        dX_ = xTarget_ - x_;
        dY_ = yTarget_ - y_;
        dZ_ = zTarget_ - z_;
    } else {
        dX_ = static_cast<float>(raw_.X);
        dY_ = static_cast<float>(raw_.Y);
        dZ_ = static_cast<float>(raw_.Z);
    }
    No3d();
    ChoosePlane();
}

void CheckPass::ChoosePlane() {
    if (!mill_) {
        SetPlane(Plane::XZ);
    } else if (IsOneOf(key_, planeKeys)) {
        if (dZ_ == 0) {
            SetPlane(Plane::XY);
        } else if (dY_ == 0) {
            SetPlane(Plane::XZ);
        } else if (dX_ == 0) {
            SetPlane(Plane::YZ);
        }
    }
}

void CheckPass::SetPlane(Plane plane) {
    if (plane == plane_) return;
    plane_ = plane;
    store_.ActivePlane = plane == Plane::XY ? "XY" : plane == Plane::XZ ? "XZ" : "YZ";
}

void CheckPass::ApplyMove() {
    if (store_.AbsoluteMode) {
        x_ = xTarget_;
        y_ = yTarget_;
        z_ = zTarget_;
    } else {
        x_ += xTarget_;
        y_ += yTarget_;
        z_ += zTarget_;
    }
}

// A thread has a fixed X move in both modes.
void CheckPass::ThreadMove() {
    x_ += xTarget_;
    z_ = store_.AbsoluteMode ? zTarget_ : z_ + zTarget_;
}

// The angle of a sloping line, with the side that it leans to.
void CheckPass::LineAngle() {
    if (dX_ == 0 || dZ_ == 0) return;
    const auto angle = static_cast<float>(90 - std::abs(std::atan(double(dZ_) / dX_) * 180 / Pi));
    const bool sameSign = (dX_ > 0) == (dZ_ > 0);
    std::string cell(texts_.MessageTexts(sameSign ? text::LeftAngle : text::RightAngle));
    cell += Format(angle, "0.0");
    (*item_)[column::Angle] = cell;
}

void CheckPass::SetRegister() {
    store_.AbsoluteMode = true;
    if (mill_) {
        xFactor_ = diameterFactor;
        store_.RadiusMode = true;
        x_ = xTarget_;
        y_ = yTarget_;
        z_ = zTarget_;
    } else if (store_.RadiusMode) {
        xFactor_ = 1;
        x_ = xTarget_;
        z_ = zTarget_;
    } else {
        xFactor_ = diameterFactor;
        x_ = xTarget_ / 2;
        z_ = zTarget_;
    }
}

bool CheckPass::Range::Include(float value) {
    if (value >= Min && value <= Max) return false;
    Min = std::min(Min, value);
    Max = std::max(Max, value);
    return true;
}

// The position before any cycle restore counts, so that a cycle's far end does.
void CheckPass::UpdateAxes() {
    const bool x = xRange_.Include(x_);
    const bool y = yRange_.Include(y_);
    const bool z = zRange_.Include(z_);
    axesStale_ = axesStale_ || x || y || z;
    axesKnown_ = true;
}

void CheckPass::WriteToolCells() {
    ListRow& item = *item_;
    item[column::ToolX] = FieldOfSix(x_);
    item[column::ToolY] = FieldOfSix(y_);
    item[column::ToolZ] = FieldOfSix(z_);
}

// Seconds, at the feed of the row and the rapid rates and pauses of the machines.
double CheckPass::TimeOfLine() {
    const double feed = std::max(raw_.F, 1);
    switch (key_) {
        case code::G00:
        case code::G01: return MoveTime(feed);
        case code::G02:
        case code::G03: return ArcTime(feed);
        case code::G04: return raw_.X / 100.0;
        case code::G73: return repeats_ * (1 / feed * 100 + 0.5);
        case code::G84: {
            const double infeed = std::abs(raw_.X / 500.0) * 3 / 100;
            const double cutting = std::abs(repeats_ * double(raw_.Z) / feed / 100);
            const double back = std::abs(repeats_ * double(raw_.Z) / 500 / 100);
            const double facing = std::abs(raw_.X / 100.0 / feed);
            const double reversing = repeats_ * 0.004;
            return (infeed + cutting + back + facing + reversing) * 60;
        }
        default: return 0;
    }
}

double CheckPass::MoveTime(double feed) {
    const double unit = store_.Metric ? 1 : hundredthsPerThousandth;
    float a = 0;
    float b = 0;
    InPlane(std::abs(x_ - xBefore_), std::abs(y_ - yBefore_), std::abs(z_ - zBefore_), a, b);
    // Along one axis, the length of the move is that of the axis.
    const bool sloping = a != 0 && b != 0;
    const double length = sloping ? std::sqrt(double(a) * a + double(b) * b) : b == 0 ? a : b;
    if (key_ == code::G00) return length / 1000 * (sloping ? 1.3 : 1.1) * unit + 0.45;
    const double time = length * 0.006 * (100 / feed);
    return (sloping ? time * 1.1 : time) * unit;
}

// An arc whose angle cell has stayed empty takes the length of the arc before.
double CheckPass::ArcTime(double feed) {
    const double angle = Val((*item_)[column::Angle]);
    if (angle != 0) arcLength_ = (2 * Pi * Val((*item_)[column::Radius])) / (360 / angle);
    return arcLength_ / 78.55 * (50 / feed);
}

}  // namespace kvt
