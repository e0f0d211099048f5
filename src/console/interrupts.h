#pragma once

#include <csignal>

namespace kvt {

// While one stands, Ctrl+C and a request to end are noted and do nothing by themselves.
class Interrupts {
public:
    Interrupts() {
        sigemptyset(&signals_);
        sigaddset(&signals_, SIGINT);
        sigaddset(&signals_, SIGTERM);
        pthread_sigmask(SIG_BLOCK, &signals_, &before_);
    }
    ~Interrupts() {
        // Those that came while the first one was being obeyed mean the same.
        while (Take()) {
        }
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }
    Interrupts(const Interrupts&) = delete;
    Interrupts& operator=(const Interrupts&) = delete;

    // Whether one has come up to now.
    bool Came() {
        came_ = Take() || came_;
        return came_;
    }

private:
    bool Take() const {
        const timespec noTime = {};
        return sigtimedwait(&signals_, nullptr, &noTime) > 0;
    }

    sigset_t signals_ = {};
    sigset_t before_ = {};
    bool came_ = false;
};

}  // namespace kvt
