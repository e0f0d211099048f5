#pragma once

#include <functional>

#include "draw/draw_controls.h"
#include "draw/draw_state.h"
#include "files/file_controls.h"
#include "interpreter/interpreter_controls.h"
#include "platform/services.h"
#include "program/machine_controls.h"
#include "program/program_store.h"
#include "program/texts.h"

namespace kvt {

// What the parts of the drawing window work on.
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
    // Lets a walk under way go on to its end without a wait, then does something; at once without one.
    std::function<void(std::function<void()>)> AfterWalk;
    // Withdraws the measurement.
    std::function<void()> ClearMeasure;
    // Shows in the quiet line of the editor what has happened.
    std::function<void(std::string_view what)> Tell;
    // Tells the line under way, from 1; 0 for none.
    std::function<void(int row)> ShowLine;
    // A walk, one of its waits or a measurement has begun or ended.
    std::function<void()> StateChanged;
};

}  // namespace kvt
