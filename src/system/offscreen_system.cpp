#include "system/offscreen_system.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kvt {

namespace {

// Counts a handler for as long as it runs.
class Deeper {
public:
    explicit Deeper(std::size_t& depth) : depth_(depth) { ++depth_; }
    ~Deeper() { --depth_; }
    Deeper(const Deeper&) = delete;
    Deeper& operator=(const Deeper&) = delete;

private:
    std::size_t& depth_;
};

}  // namespace

bool OffscreenSystem::DoEvents() {
    if (Ended) return false;
    bool served = false;
    Run([&] { served = ServeWaiting() || (NextEvent && NextEvent()); });
    return served && !Ended;
}

bool OffscreenSystem::ServeEvents(long long turn) {
    if (Ended) return false;
    if (!InterruptsWork() && turn < GiveUpAfter) return true;
    return DoEvents();
}

bool OffscreenSystem::WaitUntil(const std::function<double()>& left) {
    if (Ended) return false;
    Run([this] { ServeTimedWait(); });
    for (double more = left(); more > 0 && !Ended; more = left())
        Advance(static_cast<int>(NextTick(Clock + static_cast<long long>(std::ceil(more))) - Clock));
    return !Ended;
}

void OffscreenSystem::Later(std::function<void()> call) { deferred_.Add(std::move(call), depth_); }

void OffscreenSystem::Run(const std::function<void()>& handler) {
    {
        const Deeper deeper(depth_);
        handler();
    }
    while (!Ended) {
        const std::optional<DeferredCalls::Deferred> due = deferred_.TakeDue(depth_);
        if (!due) break;
        const Deeper deeper(depth_);
        due->Call();
    }
    if (OnHandled && !Ended) OnHandled();
}

void OffscreenSystem::BeginRun() {
    timers_.clear();
    deferred_ = {};
    Ended = false;
}

OffscreenSystem::TimerPhase::TimerPhase(OffscreenSystem& system, Timer& timer)
    : Subject(timer), system_(system), start_(system.Clock) {
    timer.View = this;
}

void OffscreenSystem::TimerPhase::PropertyChanged(Control&, PropertyId id) {
    if (id == PropertyId::Enabled || id == PropertyId::Value) start_ = system_.Clock;
}

long long OffscreenSystem::TimerPhase::NextTick() const {
    return start_ + ((system_.Clock - start_) / Subject.Interval + 1) * Subject.Interval;
}

void OffscreenSystem::Watch(Form& form) {
    for (Control* control : form.Controls()) {
        if (control->Kind() == ControlKind::Timer)
            timers_.push_back(std::make_unique<TimerPhase>(*this, static_cast<Timer&>(*control)));
    }
}

// When the next timer is due, at the latest end.
long long OffscreenSystem::NextTick(long long end) const {
    for (const auto& timer : timers_) {
        if (timer->Runs()) end = std::min(end, timer->NextTick());
    }
    return end;
}

void OffscreenSystem::Advance(int milliseconds) {
    const long long end = Clock + milliseconds;
    while (Clock < end && !Ended) {
        const long long next = NextTick(end);
        std::vector<Timer*> due;
        for (const auto& timer : timers_) {
            if (timer->Runs() && timer->NextTick() == next) due.push_back(&timer->Subject);
        }
        Clock = next;
        if (OnClock) OnClock();
        for (Timer* timer : due) {
            if (timer->Enabled && timer->OnTimer) Run(timer->OnTimer);
        }
    }
}

}  // namespace kvt
