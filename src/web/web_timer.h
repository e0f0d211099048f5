#pragma once

#include <limits>

#include "platform/controls.h"
#include "web/web_context.h"

namespace kvt {

// What is to happen at a time of the page's clock.
class WebClock {
public:
    virtual ~WebClock() = default;
    // When it is due next, in milliseconds; Never where it is not.
    virtual double Due() const = 0;
    // Does what is due by now; false where nothing was.
    virtual bool Serve(double now) = 0;

    static constexpr double Never = std::numeric_limits<double>::infinity();
};

// Lets a timer tick by the page's clock, from when it was set going.
class WebTimer : public ControlView, public WebClock {
public:
    WebTimer(WebSystem& system, Timer& timer);
    ~WebTimer() override;
    WebTimer(const WebTimer&) = delete;
    WebTimer& operator=(const WebTimer&) = delete;

    void PropertyChanged(Control& control, PropertyId id) override;
    // Not while it is just ticking. Ticks that were missed do not come again.
    double Due() const override { return Runs() ? due_ : Never; }
    bool Serve(double now) override;

private:
    bool Runs() const { return timer_.Enabled && timer_.Interval > 0 && !ticking_; }
    void Set();

    WebSystem& system_;
    Timer& timer_;
    double due_ = 0;
    bool ticking_ = false;
};

}  // namespace kvt
