#pragma once

#include "draw/draw_parts.h"

namespace kvt {

// The listing of the program beside the drawing, which follows the walk.
class ProgramWindow {
public:
    explicit ProgramWindow(DrawParts& parts);

    Form frmProgramWindow;
    Label lblN, lblG, lblX, lblY, lblZ, lblF, lblH, lblToolX, lblToolY, lblToolZ, lblComment;
    ListBox lstCncLines;

    // At the start of a walk: shows the window with a row for each program line, or hides it.
    void Begin();
    // Selects the row of a line, 1 for the first one; the open line has none. A line with an error gets a row that
    // tells it, and true. A line below the first one, or that the program does not have, is error 9.
    bool Follow(int lineIndex, int itemCount);
    // Takes on its first size and heads, once.
    void Load() {
        if (!loaded_) Form_Load();
    }
    void Hide() { frmProgramWindow.Visible = false; }
    // Hides it; it takes on size and heads again when it is next loaded.
    void Unload() {
        Hide();
        loaded_ = false;
    }

private:
    void Form_Load();
    void Form_Resize();
    void ArrangeHeads();
    void FillRows();

    DrawParts& parts_;
    bool loaded_ = false;
};

}  // namespace kvt
