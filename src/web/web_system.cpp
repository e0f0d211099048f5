#include "web/web_system.h"

#include <algorithm>

#include "web/web_view.h"

namespace kvt {

namespace {

// Milliseconds. A caller that is back so soon does nothing but wait.
constexpr double idle = 1;
constexpr double longestSleep = 20;
constexpr double longestTurn = 30;
// So many events at once, so that work goes on however fast they come.
constexpr int mostAtOnce = 100;

// What goes on below a question to the user; what else comes was meant for nobody.
constexpr std::string_view goingOn[] = {"port", "ports", "screen", "resize", "sight", "hidden", "unload"};

bool GoesOn(const PageEvent& event) {
    return std::find(std::begin(goingOn), std::end(goingOn), event.Name()) != std::end(goingOn);
}

}  // namespace

bool WebSystem::DoEvents() {
    if (ended_) return false;
    const bool waits = Milliseconds() - eventsAt_ < idle;
    Turn(waits ? longestSleep : 0);
    eventsAt_ = Milliseconds();
    return !ended_;
}

bool WebSystem::ServeEvents(long long turn) {
    if (turn == 1) turnAt_ = Milliseconds();
    if (!ended_ && Milliseconds() - turnAt_ >= longestTurn) {
        for (int i = 0; i < mostAtOnce && !ended_ && Turn(0);) ++i;
        turnAt_ = Milliseconds();
    }
    return !ended_;
}

bool WebSystem::WaitUntil(const std::function<double()>& left) {
    if (ended_) return false;
    for (int i = 0; i < mostAtOnce && !ended_ && Turn(0);) ++i;
    for (double more = left(); more > 0 && !ended_; more = left()) Turn(std::min(more, longestSleep));
    return !ended_;
}

void WebSystem::PressKey(int key) { keys_.push_back({key, std::max<std::size_t>(running_.size(), 1)}); }

void WebSystem::SendKeys() {
    while (!ended_ && !keys_.empty() && keys_.front().Depth > running_.size()) {
        const int key = keys_.front().Key;
        keys_.pop_front();
        if (OnKey) OnKey(key);
    }
}

void WebSystem::Later(std::function<void()> call) {
    deferred_.Add(std::move(call), running_.size(), Running());
}

void WebSystem::RunDeferred() {
    while (!ended_) {
        const std::optional<DeferredCalls::Deferred> one = deferred_.TakeDue(running_.size());
        if (!one) return;
        RunGuarded("Later", one->Asker, one->Call);
    }
}

void WebSystem::UseLanguage(std::string_view code) {
    Message message("language");
    message.Text("code", code);
    if (AddTexts) AddTexts(message);
    page_.Send(message);
}

void WebSystem::ShowPopupMenu(Menu& menu) {
    if (const WebView* const view = WebView::Of(menu)) page_.Send(Message("popup").Add("id", view->Number()));
}

void WebSystem::EndProgram() {
    ended_ = true;
    page_.Send(Message("end"));
}

double WebSystem::UntilTick(double milliseconds) const {
    const double now = Milliseconds();
    for (const WebClock* clock : clocks_) milliseconds = std::min(milliseconds, clock->Due() - now);
    return std::max(0.0, milliseconds);
}

PageEvent WebSystem::NextEvent(double milliseconds) {
    if (!kept_.empty()) {
        PageEvent event = std::move(kept_.front());
        kept_.pop_front();
        return event;
    }
    page_.TellChanges();
    return PageEvent(page_.Link().Next(milliseconds));
}

bool WebSystem::Turn(double milliseconds) {
    const bool delivered = Deliver(NextEvent(UntilTick(milliseconds)));
    const bool ticked = ServeClocks();
    Settle();
    return delivered || ticked;
}

// False for an event that is none.
bool WebSystem::Deliver(const PageEvent& event) {
    if (event.Name().empty()) return false;
    if (event.Is("reply")) {
        const int ask = event.Number("ask");
        if (open_.count(ask) > 0) replies_.insert_or_assign(ask, event);
    } else if (OnEvent && !ended_) {
        OnEvent(event);
    }
    return true;
}

bool WebSystem::ServeClocks() {
    bool served = false;
    const double now = Milliseconds();
    const std::vector<WebClock*> clocks = clocks_;
    for (WebClock* clock : clocks) {
        if (!ended_) served |= clock->Serve(now);
    }
    return served;
}

void WebSystem::Settle() {
    SendKeys();
    RunDeferred();
}

PageEvent WebSystem::Ask(Message& message, Meanwhile meanwhile) {
    const int ask = ++asked_;
    if (meanwhile == Meanwhile::Timers) ++questions_;
    open_.insert(ask);
    page_.Send(message.Add("ask", ask));
    while (replies_.count(ask) == 0) {
        const bool timers = meanwhile == Meanwhile::Timers;
        PageEvent event(page_.Link().Next(timers ? UntilTick(longestSleep) : longestSleep));
        if (event.Is("reply") || (timers && GoesOn(event))) {
            Deliver(event);
        } else if (!timers && !event.Name().empty()) {
            kept_.push_back(std::move(event));
        }
        if (!timers) continue;
        ServeClocks();
        Settle();
        page_.TellChanges();
    }
    open_.erase(ask);
    return std::move(replies_.extract(ask).mapped());
}

}  // namespace kvt
