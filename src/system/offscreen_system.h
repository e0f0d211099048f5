#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "basic/local_time.h"
#include "platform/deferred_calls.h"
#include "platform/services.h"

namespace kvt {

// The system without a display. Time is virtual and starts at 0. What a wait takes next comes from NextEvent.
class OffscreenSystem : public SystemService {
public:
    bool DoEvents() override;
    // Serves nothing until GiveUpAfter turns have passed; from then on what the user does next comes, as in a wait.
    bool ServeEvents(long long turn) override;
    // Lets the clock run on, from tick to tick.
    bool WaitUntil(const std::function<double()>& left) override;
    std::tm Now() override { return LocalNow(); }
    std::string LocalDataFolder() override { return {}; }
    std::string DocumentsFolder() override { return {}; }
    void PressKey(int) override {}
    void Later(std::function<void()> call) override;
    void Beep() override {}
    void UseLanguage(std::string_view) override {}
    void ShowPopupMenu(Menu&) override {}
    void EndProgram() override { Ended = true; }

    // Does what the user does next; where it gives false nothing can come any more.
    std::function<bool()> NextEvent;
    // After how many turns of endless work it takes events as a wait does.
    long long GiveUpAfter = 2'000'000;
    // Runs whenever the clock has moved on.
    std::function<void()> OnClock;

    // Runs a function as the handler of a user's action, then what it has deferred.
    void Run(const std::function<void()>& handler);
    // Lets the virtual clock run on, with the timers of the forms that are given to it.
    void Advance(int milliseconds);
    void Watch(Form& form);
    // Forgets the forms of a run that has ended; the clock runs on.
    void BeginRun();

    long long Clock = 0;  // milliseconds
    bool Ended = false;

protected:
    // What waits to be served before NextEvent is asked: whether there is anything that ends work which goes on, and
    // serving one of it, false where nothing waits.
    virtual bool InterruptsWork() const { return false; }
    virtual bool ServeWaiting() { return false; }
    // At the beginning of a wait that ends by itself.
    virtual void ServeTimedWait() {}

private:
    // A timer of a form, and when it was set going: it ticks from there on.
    class TimerPhase : public ControlView {
    public:
        TimerPhase(OffscreenSystem& system, Timer& timer);
        void PropertyChanged(Control&, PropertyId id) override;
        bool Runs() const { return Subject.Enabled && Subject.Interval > 0; }
        long long NextTick() const;

        Timer& Subject;

    private:
        OffscreenSystem& system_;
        long long start_;
    };
    long long NextTick(long long end) const;

    std::vector<std::unique_ptr<TimerPhase>> timers_;
    DeferredCalls deferred_;
    std::size_t depth_ = 0;  // of handlers
};

}  // namespace kvt
