// Rules that matter on the mill. They stand on every machine; a lathe never moves in Y.

#include <cmath>

#include "interpreter/check_pass.h"

namespace kvt {

void CheckPass::No3d() {
    if (key_ != code::G00 && key_ != code::G01 && key_ != code::G02 && key_ != code::G03) return;
    if (dX_ != 0 && dY_ != 0 && dZ_ != 0) ReportFinding(texts_.ErrorTexts(text::No3d));
}

void CheckPass::MustFollowToolChange() {
    if (!toolFound_) ReportFinding(texts_.ProgramErrorTexts(text::MustFollowM06));
}

CheckPass::Next CheckPass::Pocket() {
    MustFollowToolChange();
    if (!PocketHoldsTool()) return EndWith(text::PocketTooSmall);
    ApplyMove();
    return Next::GoOn;
}

// Both moves of the plane must leave room for the tool.
bool CheckPass::PocketHoldsTool() const {
    const double radius = toolRadius_;
    const auto fits = [radius](float move) { return 2 * radius <= std::abs(double(move)) + radius; };
    switch (plane_) {
        case Plane::XY: return fits(dX_) && fits(dY_);
        case Plane::XZ: return fits(dX_) && fits(dZ_);
        case Plane::YZ: return fits(dY_) && fits(dZ_);
        case Plane::None: break;
    }
    return true;
}

}  // namespace kvt
