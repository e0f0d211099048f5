#pragma once

#include <functional>

#include "headless/memory_platform.h"
#include "system/posix_port.h"

namespace kvt {

// The system of a console that works with real ports: its clock is that of the wall.
class PosixSystem : public MemorySystem {
public:
    PosixSystem(FocusKeeper& focus, PosixPort& port) : MemorySystem(focus), port_(port) {}

    bool WaitUntil(const std::function<double()>& left) override;

    // Looked at all through a wait.
    std::function<void()> OnLook;

private:
    PosixPort& port_;
};

}  // namespace kvt
