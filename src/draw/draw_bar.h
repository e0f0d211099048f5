#pragma once

#include "draw/simulation.h"

namespace kvt {

// The bar below the drawing: the simulation's buttons and choice, the line under way, and what the drawing waits for.
class DrawBar {
public:
    DrawBar(DrawParts& parts, Simulation& sim);

    Frame frBar;
    CommandButton cmdBarRun, cmdBarStep, cmdBarStop;
    ComboBox cboBarSim;
    TextBox txtBarLine;
    Label lblBarHint;

    // In a window of the form's size, below its scroll bar.
    void Place();
    // Takes on the words of the simulation menu.
    void ShowCaptions();
    // Which buttons can be used, the simulation in force, and the hint.
    void ShowState();
    // The cells of a program line, from 1; nothing for 0.
    void ShowLine(int row);

private:
    DrawErrorText Hint() const;
    DrawErrorText AtRest() const;
    std::string HintText() const;

    DrawParts& parts_;
    DrawControls& controls_;
    DrawState& state_;
    Simulation& sim_;
};

}  // namespace kvt
