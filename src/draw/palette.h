#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "draw/draw_controls.h"

namespace kvt {

// What a colour of the drawing stands for.
enum class Ink : std::uint8_t {
    Ground,
    Pen,  // zero point mark, marks of measuring and of holes, the pen before a line has chosen
    Grid,
    Axis,
    Rapid,
    Feed,
    ArcG02,
    ArcG03,
    Cycle,  // turning and facing cycles, and the outline of a pocket
    Drilling,
    Thread,
    PocketRow,  // of the tool's width
    ToolCentre,
    Lit,  // around the strokes of the selected line
};

// The colours of one meaning: the usual ones, and those that are told apart without seeing red and green; each on a
// black and on a white ground.
struct InkRow {
    Ink Of;
    Color OnBlack, OnWhite;
    Color DistinctOnBlack, DistinctOnWhite;
};
std::span<const InkRow> InkRows();

Color InkOf(Ink ink, bool white, bool distinct);
// As the View menu has it.
Color InkOf(Ink ink, const DrawControls& controls);
// A colour by its word in a comment, any case; black for an unknown one. Among the distinct colours it is the one that
// comes nearest.
Color ColorNamed(std::string_view name, const DrawControls& controls);

}  // namespace kvt
