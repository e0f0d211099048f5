#include "draw/simulation.h"

#include <limits>

#include "basic/stack_guard.h"
#include "program/workbench_calls.h"

namespace kvt {

namespace {

constexpr int mostTicks = 1000;
constexpr int turnsPerWait = 20;
constexpr int intervals[SimulationCount] = {0, 0, 500, 200, 50};

}  // namespace

int IntervalOfSim(int index) { return intervals[index]; }

Simulation::Simulation(DrawParts& parts) : parts_(parts), controls_(parts.Controls), state_(parts.State) {
    for (const auto& entry : controls_.mnuSim) {
        const int index = entry->Index();
        entry->OnClick = [this, index] { mnuSim_Click(index); };
    }
    controls_.cmdStep.OnClick = [this] { cmdStep_Click(); };
    controls_.cmdStop.OnClick = [this] { cmdStop_Click(); };
    controls_.cmdRun.OnClick = [this] { cmdRun_Click(); };
    controls_.Timer1.OnTimer = [this] { Timer1_Timer(); };
}

int Simulation::CheckedSim() const {
    for (const auto& entry : controls_.mnuSim) {
        if (entry->Checked) return entry->Index();
    }
    return simulation::Run;
}

void Simulation::SelectSim(int index) {
    for (const auto& entry : controls_.mnuSim) entry->Checked = entry->Index() == index;
    Run(parts_.StateChanged);
}

void Simulation::EnableControls(bool flag) {
    controls_.mnuFile.Enabled = flag;
    controls_.mnuView.Enabled = flag;
    controls_.mnuSettings.Enabled = flag;
    controls_.cmdAutoFit.Enabled = flag;
    controls_.cmdRedraw.Enabled = !(controls_.mnuRedraw.Checked && !flag);
    controls_.UpDown.Enabled = flag;
    Run(parts_.StateChanged);
}

void Simulation::mnuSim_Click(int index) {
    EnableControls(index == simulation::Run);
    controls_.cmdStep.Enabled = false;
    // A walk under way keeps its Abort button.
    controls_.frStepControls.Visible = index != simulation::Run || state_.Walking();
    // A walk that a fault has ended leaves it set.
    if (!state_.Walking()) state_.Drawing = false;
    SelectSim(index);
    // cmdStep is disabled now, so that a walk which waits for it must go on.
    if (index != simulation::Step) state_.StepMode = false;
    state_.PressStep();
    // Ends the waits until a later line asks for an interval.
    if (index == simulation::Run) state_.Interval = 0;
    // The keys that give a step act in the drawing.
    if (index == simulation::Step) parts_.Platform.Focus.SetFocus(controls_.pbxDrawField);
    if (controls_.mnuAutoRedraw.Checked) parts_.Redraw();
}

void Simulation::cmdStep_Click() {
    state_.PressStep();
    controls_.cmdStep.Enabled = false;
    Run(parts_.StateChanged);
}

void Simulation::cmdStop_Click() {
    state_.StopRequested = true;
    SelectSim(simulation::Run);
    EnableControls(true);
    controls_.frStepControls.Visible = false;
    if (state_.Walking()) return;
    // Nothing to abort: resets what a walk ended by a fault has left set.
    state_.Drawing = false;
    state_.StopRequested = false;
}

void Simulation::SwitchTo(int index) {
    if (!state_.Walking() || index == simulation::Run) return mnuSim_Click(index);
    EnableControls(false);
    SelectSim(index);
    state_.StepMode = index == simulation::Step;
    state_.Interval = IntervalOfSim(index);
    if (state_.Interval > 1) controls_.Timer1.Interval = state_.Interval;
    controls_.Timer1.Enabled = state_.Interval > 1;
    if (!state_.StepMode) state_.PressStep();
}

void Simulation::EndWalk() {
    cmdStop_Click();
    LeaveWaits();
}

void Simulation::LeaveWaits() {
    state_.PressStep();
    state_.EndClickWait();
    controls_.Timer1.Enabled = false;
    // A drawing that was requested meanwhile is not to begin the waits again.
    state_.WaitsToLeaveOut = std::numeric_limits<int>::max();
}

void Simulation::DrawRest() {
    const bool waits = state_.InTimedWait || state_.Wait != UserWait::None;
    if (!waits || state_.Phase != WalkPhase::Paced) return EndWalk();
    SelectSim(simulation::Run);
    state_.Release();
    state_.StepMode = false;
    state_.Interval = 0;
    LeaveWaits();
}

void Simulation::cmdRun_Click() { mnuSim_Click(simulation::Run); }

void Simulation::Timer1_Timer() {
    state_.TimerTicks = static_cast<std::int16_t>(state_.TimerTicks >= mostTicks ? 1 : state_.TimerTicks + 1);
}

void Simulation::WaitTimer() {
    const int interval = state_.Interval;
    if (interval <= 1 || !state_.MayWait() || state_.LeavesOutWait()) return;
    const StackGuard guard(state_.InTimedWait);
    Run(parts_.StateChanged);
    controls_.Timer1.Interval = interval;
    // An endless program that waits is given up after fewer lines than one that does not.
    state_.Turns += turnsPerWait;
    MarkTool();
    const std::int16_t before = state_.TimerTicks;
    const auto left = [&]() -> double {
        const bool ticked = state_.TimerTicks != before || !controls_.Timer1.Enabled;
        return ticked || !state_.MayWait() ? 0 : interval;
    };
    if (!parts_.Platform.System.WaitUntil(left)) state_.Leave();
}

void Simulation::WaitFor(UserWait wait) {
    MarkTool();
    state_.Wait = wait;
    Run(parts_.StateChanged);
    while (state_.Wait == wait && state_.MayWait()) {
        if (parts_.Platform.System.DoEvents()) continue;
        state_.Leave();
        break;
    }
    state_.Wait = UserWait::None;
    Run(parts_.StateChanged);
}

// Shows where the pen is.
void Simulation::MarkTool() {
    PictureBox& field = controls_.pbxDrawField;
    field.Cross = FieldPlace{true, field.CurrentX, field.CurrentY};
}

// An aborted walk ends by itself; no event is needed.
void Simulation::ServeEvents() {
    if (state_.StopRequested) return;
    if (!parts_.Platform.System.ServeEvents(++state_.Turns)) state_.Leave();
}

}  // namespace kvt
