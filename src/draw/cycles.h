#pragma once

#include <string_view>

#include "draw/simulation.h"

namespace kvt {

// The saw-tooth of a thread from the pen, along H. Length and pitch are twips; a whole number of pitches is drawn,
// none where the pitch rounds to 0. After "G33" the pen stands at the thread's end, otherwise at its start.
void DrawThread(DrawParts& parts, Simulation& waits, float length, float pitch, std::string_view code);

// A box from the pen to a corner and back: the pen ends where it began.
void DrawBoxOutAndBack(PictureBox& field, double cornerX, double cornerY);

// The fill of the cycles' boxes, by mnuGrid and mnuFillCycles.
void SetFillStyle(DrawControls& controls);

// The clearing path of a pocket and its outline.
struct PocketCall {
    float StartX = 0, StartY = 0;
    double MoveV = 0, MoveH = 0;  // twips
    double SignH = 0, SignV = 0;  // the programmed X and Y, for their signs
    Color Ink = 0;
    double PenWidth = 1;     // pixels, rounded to whole ones
    float ToolDiameter = 1;  // program units
};
void DrawPocket(DrawParts& parts, Simulation& waits, const PocketCall& call);

}  // namespace kvt
