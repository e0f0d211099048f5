#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTranslator>
#include <deque>
#include <memory>
#include <utility>
#include <vector>

#include "basic/caught_failure.h"
#include "basic/local_time.h"
#include "desktop/desktop_focus.h"
#include "platform/deferred_calls.h"
#include "platform/services.h"

namespace kvt {

// The event loop, and the handlers that run in it.
class DesktopSystem : public SystemService {
public:
    explicit DesktopSystem(DesktopFocus& focus) : focus_(focus) {}

    // Where it is called over and over and nothing comes up, it waits a little: a wait takes no processor.
    bool DoEvents() override;
    bool ServeEvents(long long turn) override;
    bool WaitUntil(const std::function<double()>& left) override;
    std::tm Now() override { return LocalNow(); }
    std::string LocalDataFolder() override;
    std::string DocumentsFolder() override;
    void PressKey(int key) override;
    void Later(std::function<void()> call) override;
    void Beep() override;
    void UseLanguage(std::string_view code) override;
    void ShowPopupMenu(Menu& menu) override;
    void EndProgram() override;

    bool Ended() const { return ended_; }

    // Runs a handler of a control. A failure that comes out of it, of whatever kind, is reported under the control's
    // name and the event's.
    template <class Handler>
    void Run(const Control& control, const char* event, Handler&& handler) {
        running_.push_back(&control.OwningForm());
        try {
            std::forward<Handler>(handler)();
        } catch (...) {
            TellFailure((control.Name() + "_" + event).c_str());
        }
        running_.pop_back();
        if (!keys_.empty()) SendKeysSoon();
        if (!deferred_.IsEmpty()) RunDeferredSoon();
        TellHandled();
    }
    // What a handler may have changed is shown.
    void TellHandled() {
        if (OnHandled && !ended_) OnHandled();
    }

    // The form whose handler is at work, the innermost one; null where none is.
    const Form* Running() const { return running_.empty() ? nullptr : running_.back(); }

    // Delivers the pressed keys whose handler has ended.
    void SendKeys();

private:
    struct PressedKey {
        int Key;
        std::size_t Depth;  // of the handler that pressed it
    };
    void SendKeysSoon();
    void RunDeferredSoon();
    void RunDeferred();

    DesktopFocus& focus_;
    QObject later_;
    std::unique_ptr<QTranslator> translator_;
    QElapsedTimer sinceEvents_;
    QElapsedTimer sinceTurn_;
    std::deque<PressedKey> keys_;
    std::vector<const Form*> running_;
    DeferredCalls deferred_;
    bool ended_ = false;
};

}  // namespace kvt
