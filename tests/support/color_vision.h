#pragma once

#include <span>

#include "platform/controls.h"

namespace kvt::test {

// How eyes see: what of the linear red, green and blue of a screen comes through.
struct Vision {
    const char* Name;
    double Matrix[3][3];
};
// Usual eyes, those that see no red, and those that see no green (after Machado and others, 2009, complete).
std::span<const Vision> Visions();

// How much two colours differ for somebody, in steps of CIELAB; 2.3 can just be noticed.
double Difference(Color one, Color other, const Vision& vision);
// From 1 to 21, as accessibility guidelines have it.
double Contrast(Color one, Color other);

}  // namespace kvt::test
