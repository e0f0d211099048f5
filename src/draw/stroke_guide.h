#pragma once

#include <functional>
#include <string>

#include "draw/draw_parts.h"

namespace kvt {

// What ties the strokes of the drawing to the lines of the program: the strokes of the line that is selected in the
// editor's list are lit, the mouse over a stroke tells its line, and with Ctrl a click opens it.
class StrokeGuide {
public:
    explicit StrokeGuide(DrawParts& parts);

    // A full drawing begins: it is of the program as it is now.
    void BeginDrawing();
    // Lights the strokes of the selected line, none where the drawing is of a program with other lines.
    void LightSelected();
    // The mouse is there, in twips on the field: the field's tool tip tells about the stroke.
    void Point(float x, float y);
    // A press with Ctrl there. False where it is a press like any other: while a walk is under way, or measuring.
    bool Press(float x, float y);

    // Opens a row of the list as a click on it does.
    std::function<void(int row)> OpenRow;

private:
    // Whether the rows still are those that were drawn.
    bool IsOfDrawing() const { return parts_.Store.lvCncProgram.Count() == drawnRows_; }
    // The run of operations of a stroke near a place; null where there is none.
    const SourceRun* RunAt(float x, float y) const;
    std::string TextOf(const SourceRun& run) const;
    std::string EndText(const SourceRun& run) const;

    DrawParts& parts_;
    int drawnRows_ = 0;
};

}  // namespace kvt
