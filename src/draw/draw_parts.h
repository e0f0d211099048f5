#pragma once

#include <array>
#include <functional>

#include "draw/draw_controls.h"
#include "files/file_controls.h"
#include "interpreter/interpreter_controls.h"
#include "platform/services.h"
#include "program/machine_controls.h"
#include "program/program_store.h"
#include "program/texts.h"

namespace kvt {

// What the drawing window keeps between its handlers. Program units are 1/100 mm or 1/1000 inch.
struct DrawState {
    bool Walking = false;  // a walk stands on the stack
    float DrawScale = 1;   // twips a program unit
    double ZeroX = 0, ZeroY = 0;
    float ToolWidth = 1;  // pixels, at least 1
    // The last zero point mark, on which the grid aligns itself.
    float MarkerX = 0, MarkerY = 0;
    std::int16_t GridStep = 100;
    float PocketX1 = 0, PocketY1 = 0, PocketX2 = 0, PocketY2 = 0;

    // The walk's own modes.
    bool DrawAbsolute = false;
    bool DrawRadius = false;
    bool NoRadiusLine = false;
    bool ForceRadiusLine = false;

    bool StopRequested = false;
    bool StepMode = false;
    int Interval = 0;  // wait of the walk after each line, in milliseconds
    // The walk goes on without a wait to its end.
    bool Released = false;
    bool StepPressed = false;
    bool WaitingForClick = false;
    bool Drawing = false;
    bool ScaleUpdating = false;
    std::int16_t TimerTicks = 0;

    bool AutoFitPending = false;
    // The next drawing is fitted: it is of another program, or nothing of it was in sight.
    bool FitNext = false;
    // The number of the drawing's first stroke behind ground, grid and zero point, in all the field's life.
    long long FirstStroke = 0;
    // The window is being brought up; a Redraw is wanted when it is there.
    bool DrawPending = false;
    bool RedrawRequested = false;
    // Measuring: the clicks so far (0 to 2), where they were (X1, Y1, X2, Y2 in twips), and the place of the last
    // mark in program units.
    std::int16_t MeasureClicks = 0;
    std::array<float, 4> MeasureMarks{};
    float MeasureX = 0, MeasureY = 0;
    // A field that is typed into has the focus: letters are no commands then.
    bool MeasureFieldFocus = false;

    // The walk is to end at once and draw nothing more: its window or the program has gone, or nothing can
    // end a wait any more.
    bool LeaveWalk = false;
    // Turns of the walk that stands, in its lines and in its pockets and threads.
    long long Turns = 0;
};

// What the pieces of the drawing window work on.
struct DrawParts {
    DrawControls& Controls;
    DrawState& State;
    ProgramStore& Store;
    MachineControls& Machine;
    InterpreterControls& Results;
    FileControls& File;
    Texts& Language;
    Services& Platform;
    // Draws the program anew.
    std::function<void()> Redraw;
    // Lets a walk that stands go on to its end without a wait, then does something; at once where none stands.
    std::function<void(std::function<void()>)> AfterWalk;
    // Withdraws the measurement.
    std::function<void()> ClearMeasure;
};

}  // namespace kvt
