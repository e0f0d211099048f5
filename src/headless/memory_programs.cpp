#include "headless/memory_programs.h"

#include <algorithm>
#include <thread>

namespace kvt {

namespace {

constexpr std::chrono::milliseconds lookInterval{5};

}  // namespace

bool MemoryPrograms::HasEnded(int program) {
    if (waitedFor_ == program) return real_.HasEnded(program);
    waitedFor_ = program;
    const auto end = std::chrono::steady_clock::now() + GiveUpAfter;
    while (!real_.HasEnded(program)) {
        if (std::chrono::steady_clock::now() >= end) return false;
        std::this_thread::sleep_for(lookInterval);
    }
    return true;
}

bool MemoryPrograms::Launch(std::string_view name) {
    if (std::find(OnDesktop.begin(), OnDesktop.end(), name) == OnDesktop.end()) return false;
    Launched.emplace_back(name);
    return true;
}

}  // namespace kvt
