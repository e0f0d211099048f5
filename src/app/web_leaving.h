#pragma once

#include <functional>

#include "web/web_platform.h"

namespace kvt {

// Tells the page whether its user is to be asked before he leaves it: what a window would ask when it is closed, a
// page can leave to its browser alone.
class WebLeaving : private WebClock {
public:
    // asks tells whether something would be lost; it is called at every turn.
    WebLeaving(WebSystem& system, std::function<bool()> asks);
    ~WebLeaving() override { system_.Forget(*this); }
    WebLeaving(const WebLeaving&) = delete;
    WebLeaving& operator=(const WebLeaving&) = delete;

private:
    double Due() const override { return Never; }
    bool Serve(double now) override;

    WebSystem& system_;
    std::function<bool()> asks_;
    bool told_ = false;
};

}  // namespace kvt
