#pragma once

#include <QSocketNotifier>
#include <array>
#include <functional>
#include <memory>

namespace kvt {

// Brings the signals that ask the program to end (SIGTERM, SIGINT) into the event loop. Only one may exist at a time.
class EndSignals {
public:
    explicit EndSignals(std::function<void()> onSignal);
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    std::function<void()> onSignal_;
    std::array<int, 2> pipe_ = {-1, -1};
    std::unique_ptr<QSocketNotifier> arrival_;
};

}  // namespace kvt
