#include <algorithm>
#include <cmath>
#include <utility>

#include "basic/stack_guard.h"
#include "headless/memory_platform.h"

namespace kvt {

namespace {

// Keys arrive inside a wait too, also inside one that a key has begun.
class OpenedForKeys {
public:
    explicit OpenedForKeys(bool& delivering) : delivering_(delivering) {}
    ~OpenedForKeys() { delivering_ = before_; }
    OpenedForKeys(const OpenedForKeys&) = delete;
    OpenedForKeys& operator=(const OpenedForKeys&) = delete;

private:
    bool& delivering_;
    bool before_ = std::exchange(delivering_, false);
};

// Counts a handler for as long as it runs.
class Deeper {
public:
    explicit Deeper(int& depth) : depth_(depth) { ++depth_; }
    ~Deeper() { --depth_; }
    Deeper(const Deeper&) = delete;
    Deeper& operator=(const Deeper&) = delete;

private:
    int& depth_;
};

}  // namespace

bool MemorySystem::DoEvents() {
    if (Ended) return false;
    const OpenedForKeys opened(delivering_);
    bool served = false;
    Run([&] { served = ServeWaiting() || (NextEvent && NextEvent()); });
    return served && !Ended;
}

bool MemorySystem::WaitUntil(const std::function<double()>& left) {
    if (Ended) return false;
    const OpenedForKeys opened(delivering_);
    Run([&] {
        ServeWaiting();
        if (NextInTimedWait) NextInTimedWait();
    });
    for (double more = left(); more > 0 && !Ended; more = left())
        Advance(static_cast<int>(NextTick(Clock + static_cast<long long>(std::ceil(more))) - Clock));
    return !Ended;
}

// The keys that wait, or one of the events; false where there is neither.
bool MemorySystem::ServeWaiting() {
    if (!keys_.empty()) {
        DeliverWaiting();
        return true;
    }
    if (Events.empty()) return false;
    const std::function<void()> event = std::move(Events.front());
    Events.pop_front();
    event();
    return true;
}

std::tm MemorySystem::Now() {
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    localtime_r(&now, &local);
    return local;
}

void MemorySystem::Later(std::function<void()> call) {
    deferred_.push_back({std::move(call), std::max(depth_, 1)});
}

// One that stands below on the stack is not through yet: what it has deferred stays for its own end.
void MemorySystem::Run(const std::function<void()>& handler) {
    {
        const Deeper deeper(depth_);
        handler();
    }
    const auto due = [this] {
        return std::find_if(deferred_.begin(), deferred_.end(),
                            [this](const DeferredCall& one) { return one.Depth > depth_; });
    };
    for (auto next = due(); next != deferred_.end() && !Ended; next = due()) {
        const std::function<void()> call = std::move(next->Call);
        deferred_.erase(next);
        const Deeper deeper(depth_);
        call();
    }
    if (OnHandled && !Ended) OnHandled();
}

// A key that a handler presses arrives when the handler has ended.
void MemorySystem::Deliver(KeyPress press) {
    press.Time = Clock;
    keys_.push_back(press);
    DeliverWaiting();
}

void MemorySystem::DeliverWaiting() {
    const StackGuard guard(delivering_);
    if (!guard.Entered()) return;
    Run([this] {
        while (!keys_.empty() && !Ended) {
            const KeyPress next = keys_.front();
            keys_.pop_front();
            if (const Control* const focused = focus_.Focused()) keyboard_.Press(focused->OwningForm(), next);
        }
        keys_.clear();
    });
}

void MemorySystem::BeginRun() {
    keys_.clear();
    timers_.clear();
    deferred_.clear();
    ShownPopup = nullptr;
    Ended = false;
}

bool MemorySystem::ServeEvents(long long turn) {
    if (Ended) return false;
    if (Events.empty() && turn < GiveUpAfter) return true;
    return DoEvents();
}

MemorySystem::TimerPhase::TimerPhase(MemorySystem& system, Timer& timer)
    : Subject(timer), system_(system), start_(system.Clock) {
    timer.View = this;
}

void MemorySystem::TimerPhase::PropertyChanged(Control&, PropertyId id) {
    if (id == PropertyId::Enabled || id == PropertyId::Value) start_ = system_.Clock;
}

long long MemorySystem::TimerPhase::NextTick() const {
    return start_ + ((system_.Clock - start_) / Subject.Interval + 1) * Subject.Interval;
}

void MemorySystem::Watch(Form& form) {
    for (Control* control : form.Controls()) {
        if (control->Kind() == ControlKind::Timer)
            timers_.push_back(std::make_unique<TimerPhase>(*this, static_cast<Timer&>(*control)));
    }
}

// When the next timer is due, at the latest end.
long long MemorySystem::NextTick(long long end) const {
    for (const auto& timer : timers_) {
        if (timer->Runs()) end = std::min(end, timer->NextTick());
    }
    return end;
}

void MemorySystem::Advance(int milliseconds) {
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
