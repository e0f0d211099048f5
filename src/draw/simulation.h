#pragma once

#include "draw/draw_parts.h"

namespace kvt {

// How fast the drawing runs: mnuSim, the buttons of a run, the timer, and the waits of the walk.
class Simulation {
public:
    explicit Simulation(DrawParts& parts);

    // The checked entry of mnuSim; and checks one alone.
    int CheckedSim() const;
    void SelectSim(int index);
    void EnableControls(bool flag);

    void mnuSim_Click(int index);
    void cmdStep_Click();
    void cmdStop_Click();
    void cmdRun_Click();
    void Timer1_Timer();

    // Lets the walk that stands go on to its end without a wait.
    void Release();

    // Waits for the next tick of the walk's interval; 0 and 1 are no wait.
    void WaitTimer();
    // Waits until a flag has changed to a value, or the walk is let go.
    void WaitUntil(const bool& flag, bool value);
    // One more turn of a walk, a thread or a pocket: lets the system deliver what has come up now and then, also
    // at full speed.
    void ServeEvents();

private:
    void MarkTool();

    DrawParts& parts_;
    DrawControls& controls_;
    DrawState& state_;
};

}  // namespace kvt
