#pragma once

#include <string>
#include <string_view>

#include "draw/simulation.h"
#include "draw/viewport.h"

namespace kvt {

// Reading positions off the drawing: the fields follow the mouse, two clicks fix a start and an end, then the fields
// can be edited.
class Measuring {
public:
    Measuring(DrawParts& parts, Simulation& sim, Viewport& view);

    // Twips on the field.
    void pbxDrawField_MouseMove(float x, float y);
    void pbxDrawField_MouseDown(float x, float y);
    // An inverting cross: drawn a second time it vanishes. Notes the place in program units.
    void DrawMark(float x, float y);
    // Withdraws the measurement; the marks go with the next drawing.
    void ClearMeasure();
    // Withdraws it with its marks, and gives the menus back.
    void End();
    // The marks that stand, in program units from the zero point: they can be put back when a drawing has wiped them.
    struct Marks {
        int Count = 0;
        std::array<double, 4> Places{};
    };
    Marks TakeMarks() const;
    // Nothing where the measurement is another one meanwhile.
    void PutBack(const Marks& marks);
    // Distances without sign, from the four fields. Numbers beyond a 32-bit float leave what they would set.
    void Recalculate();

private:
    void WireFields();
    void Field_KeyPress(std::size_t place, int& character);
    void Field_KeyDown(std::size_t place, int pressed);
    void ShowPointer(int pointer);
    void PutMark(std::size_t pair, float x, float y);
    void WipeMarks(std::size_t count);
    float HorizontalValue(float x) const;
    float VerticalValue(float y) const;

    DrawParts& parts_;
    DrawControls& controls_;
    DrawState& state_;
    Simulation& sim_;
    Viewport& view_;
    // Where the field's list began when each mark was drawn: a drawing since then has wiped it.
    std::array<long long, 2> drawingOfMark_{};
};

// A text as a whole number of a measure field: one "-" in front at the most. A number beyond a 32-bit float is error 6.
std::string CleanUp(std::string_view text);

}  // namespace kvt
