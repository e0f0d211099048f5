#pragma once

#include "draw/draw_parts.h"

namespace kvt {

// An arc from the pen. Lengths are twips, V downwards and H to the right.
struct ArcCall {
    bool IsG03 = false;
    float Radius = 0;
    float EndV = 0, EndH = 0;        // the moves to the end; both 0 for a full quadrant
    float CentreV = 0, CentreH = 0;  // offsets of the centre, without signs
    float DirV = 0, DirH = 0;        // of a full quadrant: their signs tell where it goes
};

// Draws the arc, on pass 1 with its radii where they are wanted, and leaves the pen at its end.
void MakeArc(DrawParts& parts, ArcCall arc, int pass);

}  // namespace kvt
