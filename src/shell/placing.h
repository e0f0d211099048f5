#pragma once

#include <initializer_list>

#include "platform/controls.h"

namespace kvt {

// Where a control lies in what contains it, in twips.
struct Box {
    Control& Of;
    int Left, Top, Width, Height;
};

inline void Place(std::initializer_list<Box> boxes) {
    for (const Box& box : boxes) {
        box.Of.Left = box.Left;
        box.Of.Top = box.Top;
        box.Of.Width = box.Width;
        box.Of.Height = box.Height;
    }
}

}  // namespace kvt
