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

}  // namespace

bool MemorySystem::DoEvents() {
    const OpenedForKeys opened(delivering_);
    return OffscreenSystem::DoEvents();
}

bool MemorySystem::WaitUntil(const std::function<double()>& left) {
    const OpenedForKeys opened(delivering_);
    return OffscreenSystem::WaitUntil(left);
}

void MemorySystem::ServeTimedWait() {
    ServeWaiting();
    if (NextInTimedWait) NextInTimedWait();
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
    OffscreenSystem::BeginRun();
    keys_.clear();
    ShownPopup = nullptr;
}

}  // namespace kvt
