#pragma once

#include <array>
#include <cstdint>

namespace kvt {

// Program units are 1/100 mm or 1/1000 inch.

// What ties program values to the field.
struct ViewState {
    float DrawScale = 1;  // twips per program unit
    double ZeroX = 0, ZeroY = 0;
    // The last zero point mark, on which the grid aligns itself.
    float MarkerX = 0, MarkerY = 0;
    std::int16_t GridStep = 100;
    // UpDown is being written, which asks for no drawing.
    bool ScaleUpdating = false;
    bool AutoFitPending = false;
    // The next drawing is fitted: it is of another program, or nothing of it was in sight.
    bool FitNext = false;
    // Scale or place are the user's own choice since the last fit.
    bool OwnView = false;
    // The zero point was moved, wherever to; otherwise one at 0 or left of it stands for none.
    bool ZeroMoved = false;
    // The number of the drawing's first stroke behind background, grid and zero point, in all the field's life.
    long long FirstStroke = 0;
};

// The life of the drawing window:
//
//   Closed    takes settings and sizes on when it is shown next
//   Opening   is being shown and not activated yet: what asks for it now is served by that
//   DrawDue   activated; the program is still to be drawn, behind the fit, whose drawing may wait
//   Open      was drawn
//
// They follow in this order; Closed comes behind each of them.
enum class WindowPhase { Closed, Opening, DrawDue, Open };

// From one Redraw to the end of its drawing, in one or two passes:
//
//   Idle      no walk is on the stack
//   Paced     waits as the program and mnuSim say: not at all, by Interval, by StepMode, for a click
//   Released  goes on to its end without a wait (a print is wanted)
//   Leaving   draws nothing more and ends at once: the window or the program has gone, or nothing can end a wait
//
// Idle -> Paced -> Released -> Leaving, none of them twice, and from each back to Idle. An Abort (StopRequested) leaves
// the phase: it ends the pass behind its line.
enum class WalkPhase { Idle, Paced, Released, Leaving };

// What a walk waits for that only the user can give.
enum class UserWait { None, Step, Click };

struct WalkState {
    WalkPhase Phase = WalkPhase::Idle;
    UserWait Wait = UserWait::None;

    bool Walking() const { return Phase != WalkPhase::Idle; }
    bool Leaving() const { return Phase == WalkPhase::Leaving; }
    // Whether waits are made at all; also by what is drawn outside of a walk.
    bool MayWait() const { return Phase == WalkPhase::Idle || Phase == WalkPhase::Paced; }
    bool WaitingForClick() const { return Wait == UserWait::Click; }

    void Release() {
        if (Phase == WalkPhase::Paced) Phase = WalkPhase::Released;
    }
    void Leave() {
        if (Walking()) Phase = WalkPhase::Leaving;
    }
    void EndClickWait() {
        if (Wait == UserWait::Click) Wait = UserWait::None;
    }
    void PressStep() {
        StepPressed = true;
        if (Wait == UserWait::Step) Wait = UserWait::None;
    }

    // Counts the waits of a drawing, over its passes. One that is drawn anew in another view leaves out those that have
    // been made, and goes on in the one that stood.
    bool LeavesOutWait() { return Waits++ < WaitsLeftOut; }
    bool CatchesUp() const { return Waits < WaitsLeftOut; }
    int Waits = 0, WaitsLeftOut = 0;
    int WaitsToLeaveOut = 0;  // by the next drawing
    bool InTimedWait = false;

    bool StopRequested = false;
    bool StepMode = false;
    // Also between two waits, for an aborted walk.
    bool StepPressed = false;
    int Interval = 0;  // wait after each line, in milliseconds; 0 and 1 are none
    std::int16_t TimerTicks = 0;
    // A pass is under way, or was ended by a fault: clicks do not measure.
    bool Drawing = false;
    // Turns of the walk's loops over lines, pocket rows and threads.
    long long Turns = 0;

    // Modes that lines set.
    bool DrawAbsolute = false;
    bool DrawRadius = false;
    bool NoRadiusLine = false;
    bool ForceRadiusLine = false;
    float ToolWidth = 1;  // pixels, at least 1
    // Feed moves of the last drawing are no wider than the line of the tool's centre, which is white over them.
    bool ThinToolHidden = false;
    float PocketX1 = 0, PocketY1 = 0, PocketX2 = 0, PocketY2 = 0;
};

// Measuring goes through its clicks: 0 nothing is fixed, 1 the start, 2 start and end.
struct MeasureState {
    std::int16_t MeasureClicks = 0;
    std::array<float, 4> MeasureMarks{};  // X1, Y1, X2, Y2 in twips
    float MeasureX = 0, MeasureY = 0;     // the last mark in program units
    // A field that is typed into has the focus: letters are no commands then.
    bool MeasureFieldFocus = false;
};

// What the drawing window keeps between its handlers.
struct DrawState : ViewState, WalkState, MeasureState {
    WindowPhase Window = WindowPhase::Closed;
    bool Opening() const { return Window == WindowPhase::Opening; }
};

}  // namespace kvt
