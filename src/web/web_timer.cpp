#include "web/web_timer.h"

#include <cmath>

#include "basic/stack_guard.h"
#include "web/web_system.h"

namespace kvt {

WebTimer::WebTimer(WebSystem& system, Timer& timer) : system_(system), timer_(timer) {
    timer.View = this;
    system_.Watch(*this);
    Set();
}

WebTimer::~WebTimer() {
    timer_.View = nullptr;
    system_.Forget(*this);
}

void WebTimer::PropertyChanged(Control&, PropertyId id) {
    if (id == PropertyId::Enabled || id == PropertyId::Value) Set();
}

void WebTimer::Set() { due_ = system_.Milliseconds() + timer_.Interval; }

bool WebTimer::Serve(double now) {
    if (now < Due()) return false;
    due_ += timer_.Interval * (std::floor((now - due_) / timer_.Interval) + 1);
    const StackGuard guard(ticking_);
    if (timer_.OnTimer) system_.Run(timer_, "Timer", [this] { timer_.OnTimer(); });
    return true;
}

}  // namespace kvt
