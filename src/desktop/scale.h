#pragma once

#include <QRect>
#include <cmath>

#include "platform/twips.h"

namespace kvt {

// Lengths of the controls (twips) on the screen: 15 twips are a pixel at factor 1.
class Scale {
public:
    explicit Scale(double factor) : factor_(factor) {}

    double Factor() const { return factor_; }

    double Exact(double twips) const { return twips * factor_ / TwipsPerPixel; }
    int Pixels(double twips) const { return static_cast<int>(std::lround(twips * factor_ / TwipsPerPixel)); }
    // Rounded up, so that a window is never smaller than it was asked to be.
    int PixelsUp(int twips) const {
        return static_cast<int>(std::ceil(twips * factor_ / TwipsPerPixel - 1e-6));
    }
    int Twips(int pixels) const { return static_cast<int>(std::lround(pixels * TwipsPerPixel / factor_)); }
    // Edges are rounded, not lengths: what touches in twips touches on the screen.
    QRect Rectangle(int left, int top, int width, int height) const {
        const int x = Pixels(left);
        const int y = Pixels(top);
        return {x, y, Pixels(double{1} * left + width) - x, Pixels(double{1} * top + height) - y};
    }

private:
    double factor_;
};

}  // namespace kvt
