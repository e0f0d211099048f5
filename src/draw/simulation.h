#pragma once

#include "draw/draw_parts.h"

namespace kvt {

// The wait behind a line of an entry of mnuSim, in milliseconds.
int IntervalOfSim(int index);

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
    // The same as the menu; a walk under way goes on from where it is at the new speed, or in steps.
    void SwitchTo(int index);
    // Ends a walk with the wait that it stands in.
    void EndWalk();
    // Lets a walk that stands in a wait go on to its end without one; ends one that is drawing already.
    void DrawRest();

    // Waits for the next tick of the walk's interval; 0 and 1 are no wait.
    void WaitTimer();
    // Waits until the user has given what is waited for, or the walk may not wait any more.
    void WaitFor(UserWait wait);
    // One more turn of a walk, a thread or a pocket: lets the system deliver events now and then, also
    // at full speed.
    void ServeEvents();

private:
    void MarkTool();
    // Ends the wait that a walk stands in, and those that would follow.
    void LeaveWaits();

    DrawParts& parts_;
    DrawControls& controls_;
    DrawState& state_;
};

}  // namespace kvt
