#pragma once

#include <functional>

#include "system/offscreen_system.h"
#include "system/posix_port.h"

namespace kvt {

// The system of a console that works with real ports: its clock is that of the wall.
class PosixSystem : public OffscreenSystem {
public:
    explicit PosixSystem(PosixPort& port) : port_(port) {}

    bool WaitUntil(const std::function<double()>& left) override;

    // Looked at all through a wait.
    std::function<void()> OnLook;

private:
    PosixPort& port_;
};

}  // namespace kvt
