// Rules that matter on the mill. They stand on every machine; a lathe never moves in Y.

#include <cmath>

#include "interpreter/check_pass.h"

namespace kvt {

void CheckPass::No3d() {
    if (key_ != code::G00 && key_ != code::G01 && key_ != code::G02 && key_ != code::G03) return;
    if (dX_ != 0 && dY_ != 0 && dZ_ != 0) Find(texts_.ErrorTexts(text::No3d));
}

void CheckPass::MustFollowToolChange() {
    if (!toolFound_) Find(texts_.ProgramErrorTexts(text::MustFollowM06));
}

// Both moves of the plane must leave room for the tool. True ends the run.
bool CheckPass::PocketTooSmall() {
    const double radius = toolRadius_;
    const auto fits = [radius](float move) { return 2 * radius <= std::abs(double(move)) + radius; };
    bool room = true;
    if (plane_ == Plane::XY) {
        room = fits(dX_) && fits(dY_);
    } else if (plane_ == Plane::XZ) {
        room = fits(dX_) && fits(dZ_);
    } else if (plane_ == Plane::YZ) {
        room = fits(dY_) && fits(dZ_);
    }
    return room ? false : EndWith(text::PocketTooSmall);
}

}  // namespace kvt
