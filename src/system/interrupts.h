#pragma once

#include <csignal>
#include <initializer_list>

namespace kvt {

// While one exists, Ctrl+C, a request to end, a hang-up of the terminal and the limit of file size are noted and do
// nothing by themselves. A hang-up that was to be ignored from the beginning (nohup) is none.
class Interrupts {
public:
    Interrupts() {
        sigemptyset(&signals_);
        for (const int signal : {SIGINT, SIGTERM, SIGXFSZ}) sigaddset(&signals_, signal);
        struct sigaction atHangUp = {};
        sigaction(SIGHUP, nullptr, &atHangUp);
        if (atHangUp.sa_handler != SIG_IGN) sigaddset(&signals_, SIGHUP);
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
