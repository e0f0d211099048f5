#pragma once

#include <deque>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "basic/caught_failure.h"
#include "basic/local_time.h"
#include "platform/deferred_calls.h"
#include "platform/services.h"
#include "web/page_event.h"
#include "web/web_page.h"
#include "web/web_timer.h"

namespace kvt {

// The events of the page, and the handlers that run in them. The page queues what happens; it is taken here, inside the
// wait that asks for it, so that there is one stack.
class WebSystem : public SystemService {
public:
    explicit WebSystem(WebPage& page) : page_(page) {}

    // Where it is called over and over and nothing comes up, it waits a little: a wait takes no processor.
    bool DoEvents() override;
    bool ServeEvents(long long turn) override;
    bool WaitUntil(const std::function<double()>& left) override;
    std::tm Now() override { return LocalNow(); }
    std::string LocalDataFolder() override { return "/data"; }
    std::string DocumentsFolder() override { return {}; }
    void PressKey(int key) override;
    void Later(std::function<void()> call) override;
    void Beep() override { page_.Send(Message("beep")); }
    void UseLanguage(std::string_view code) override;
    void ShowPopupMenu(Menu& menu) override;
    void EndProgram() override;

    bool Ended() const { return ended_; }
    double Milliseconds() const { return page_.Link().Now(); }

    // Waits for the next event or tick, so many milliseconds at the most, and serves it with all that comes of it.
    // False where nothing came.
    bool Turn(double milliseconds);

    // What a question leaves to go on while its answer is awaited: nothing but time itself, or the timers and the port.
    enum class Meanwhile : std::uint8_t { Nothing, Timers };
    // Tells the page something that is no control's.
    void Tell(Message&& message) { page_.Send(message); }
    // Asks the page and waits for its answer. What users do meanwhile is kept for later, or dropped where the question
    // lies over all windows.
    PageEvent Ask(Message& message, Meanwhile meanwhile);
    PageEvent Ask(Message&& message, Meanwhile meanwhile) { return Ask(message, meanwhile); }
    // How many questions the user has been asked.
    int Questions() const { return questions_; }

    // Runs a handler of a control. A failure that comes out of it, of whatever kind, is reported under the control's
    // name and the event's.
    template <class Handler>
    void Run(const Control& control, const char* event, Handler&& handler) {
        RunGuarded((control.Name() + "_" + event).c_str(), &control.OwningForm(),
                   std::forward<Handler>(handler));
    }
    // The same for what is no control's.
    template <class Handler>
    void Run(const char* name, Handler&& handler) {
        RunGuarded(name, Running(), std::forward<Handler>(handler));
    }
    // What a handler may have changed is shown.
    void TellHandled() {
        if (OnHandled && !ended_) OnHandled();
    }
    // Delivers the pressed keys whose handler has ended.
    void SendKeys();

    void Watch(WebClock& clock) { clocks_.push_back(&clock); }
    void Forget(WebClock& clock) { std::erase(clocks_, &clock); }

    // Adds the page's own texts to what it is told of a language.
    std::function<void(Message& message)> AddTexts;
    // Who takes what the page tells, and a key that a handler has pressed.
    std::function<void(const PageEvent& event)> OnEvent;
    std::function<void(int key)> OnKey;

private:
    struct PressedKey {
        int Key;
        std::size_t Depth;  // of the handler that pressed it
    };

    template <class Handler>
    void RunGuarded(const char* name, const Form* form, Handler&& handler) {
        running_.push_back(form);
        try {
            std::forward<Handler>(handler)();
        } catch (...) {
            TellFailure(name);
        }
        running_.pop_back();
        TellHandled();
    }
    const Form* Running() const { return running_.empty() ? nullptr : running_.back(); }
    PageEvent NextEvent(double milliseconds);
    double UntilTick(double milliseconds) const;
    bool Deliver(const PageEvent& event);
    bool ServeClocks();
    void Settle();
    void RunDeferred();

    WebPage& page_;
    std::deque<PageEvent> kept_;
    std::set<int> open_;
    std::map<int, PageEvent> replies_;
    std::vector<WebClock*> clocks_;
    std::deque<PressedKey> keys_;
    std::vector<const Form*> running_;
    DeferredCalls deferred_;
    double eventsAt_ = 0;
    double turnAt_ = 0;
    int asked_ = 0;
    int questions_ = 0;
    bool ended_ = false;
};

}  // namespace kvt
