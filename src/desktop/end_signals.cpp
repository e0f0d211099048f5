#include "desktop/end_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace kvt {

namespace {

constexpr int endSignals[] = {SIGTERM, SIGINT, SIGHUP};

volatile std::sig_atomic_t writeEnd = -1;

// Does nothing but wake the event loop.
void Wake(int) {
    const int savedError = errno;
    const char byte = 0;
    [[maybe_unused]] const auto written = write(writeEnd, &byte, 1);
    errno = savedError;
}

void Handle(int signal, void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

}  // namespace

EndSignals::EndSignals(std::function<void()> onSignal) : onSignal_(std::move(onSignal)) {
    if (pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    writeEnd = pipe_[1];
    arrival_ = std::make_unique<QSocketNotifier>(pipe_[0], QSocketNotifier::Read);
    QObject::connect(arrival_.get(), &QSocketNotifier::activated, arrival_.get(), [this] {
        char bytes[16];
        while (read(pipe_[0], bytes, sizeof bytes) > 0) continue;
        onSignal_();
    });
    for (const int signal : endSignals) Handle(signal, Wake);
}

EndSignals::~EndSignals() {
    for (const int signal : endSignals) Handle(signal, SIG_DFL);
    arrival_.reset();
    for (const int end : pipe_) {
        if (end >= 0) close(end);
    }
}

}  // namespace kvt
