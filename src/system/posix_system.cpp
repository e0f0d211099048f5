#include "system/posix_system.h"

#include <algorithm>

namespace kvt {

namespace {

constexpr double longestRest = 20;  // milliseconds

}  // namespace

bool PosixSystem::WaitUntil(const std::function<double()>& left) {
    port_.Serve(0);
    if (OnLook) OnLook();
    for (double more = left(); more > 0 && !Ended; more = left()) {
        port_.Serve(std::min(more, longestRest));
        if (OnLook) OnLook();
    }
    return !Ended;
}

}  // namespace kvt
