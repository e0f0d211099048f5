#include <algorithm>
#include <cmath>
#include <utility>

#include "basic/stack_guard.h"
#include "basic/text.h"
#include "headless/key_names.h"
#include "headless/memory_platform.h"
#include "headless/text_editing.h"
#include "platform/keys.h"
#include "platform/list_view.h"
#include "platform/tab_order.h"

namespace kvt {

namespace {

// Signs of the main block that are keys by number.
constexpr std::pair<char, int> signKeys[] = {{'+', 187}, {'=', 187}, {',', 188},
                                             {'-', 189}, {'.', 190}, {'/', 191}};

bool IsClipboardKey(const KeyStroke& stroke) {
    return stroke.Held == key::CtrlHeld && (stroke.Key == 'C' || stroke.Key == 'X' || stroke.Key == 'V');
}

// The entry that a key chooses: one of the form's menus that is in sight and enabled.
Menu* EntryOfKey(const Form& form, const KeyStroke& stroke) {
    for (Control* control : form.Controls()) {
        auto* entry = dynamic_cast<Menu*>(control);
        if (!entry || entry->Shortcut.empty() || KeyNamed(entry->Shortcut) != stroke) continue;
        if (entry->ReallyVisible() && entry->ReallyEnabled()) return entry;
    }
    return nullptr;
}

// Moves the selection of a list of texts, which counts as a click.
void MoveInList(ListBox& list, int pressed) {
    if (list.Count() == 0) return;
    int index = list.ListIndex;
    if (pressed == key::Up) --index;
    if (pressed == key::Down) ++index;
    if (pressed == key::Home) index = 0;
    if (pressed == key::End) index = list.Count() - 1;
    if (index == list.ListIndex) return;
    index = std::clamp(index, 0, list.Count() - 1);
    if (index == list.ListIndex) return;
    list.ListIndex = index;
    list.Click();
}

// What a key does to a control by itself, when its handlers have let it pass.
void OwnKey(Control& control, int pressed) {
    if (auto* box = dynamic_cast<TextBox*>(&control)) return EditByKey(*box, pressed);
    if (auto* box = dynamic_cast<ListBox*>(&control)) return MoveInList(*box, pressed);
    if (auto* list = dynamic_cast<ListView*>(&control)) {
        const bool moves =
            pressed == key::Up || pressed == key::Down || pressed == key::Home || pressed == key::End;
        if (list->Count() == 0 || !moves) return;
        int row = list->SelectedRow();
        if (pressed == key::Up) --row;
        if (pressed == key::Down) ++row;
        if (pressed == key::Home) row = 1;
        if (pressed == key::End) row = list->Count();
        row = std::clamp(row, 1, list->Count());
        list->Select(row);
        list->EnsureVisible(row);
    }
}

// Keys arrive inside a wait too, also inside one that a key has begun.
class OpenedForKeys {
public:
    explicit OpenedForKeys(bool& delivering) : delivering_(delivering) {}
    ~OpenedForKeys() { delivering_ = before_; }
    OpenedForKeys(const OpenedForKeys&) = delete;
    OpenedForKeys& operator=(const OpenedForKeys&) = delete;

private:
    bool& delivering_;
    bool before_ = std::exchange(delivering_, false);
};

// Counts a handler for as long as it runs.
class Deeper {
public:
    explicit Deeper(int& depth) : depth_(depth) { ++depth_; }
    ~Deeper() { --depth_; }
    Deeper(const Deeper&) = delete;
    Deeper& operator=(const Deeper&) = delete;

private:
    int& depth_;
};

}  // namespace

bool MemorySystem::DoEvents() {
    if (Ended) return false;
    const OpenedForKeys opened(delivering_);
    bool served = false;
    Run([&] { served = ServeWaiting() || (NextEvent && NextEvent()); });
    return served && !Ended;
}

bool MemorySystem::WaitUntil(const std::function<double()>& left) {
    if (Ended) return false;
    const OpenedForKeys opened(delivering_);
    Run([&] {
        ServeWaiting();
        if (NextInTimedWait) NextInTimedWait();
    });
    for (double more = left(); more > 0 && !Ended; more = left())
        Advance(static_cast<int>(NextTick(Clock + static_cast<long long>(std::ceil(more))) - Clock));
    return !Ended;
}

// The keys that wait, or one of the events; false where there is neither.
bool MemorySystem::ServeWaiting() {
    if (!keys_.empty()) {
        DeliverWaiting();
        return true;
    }
    if (Events.empty()) return false;
    const std::function<void()> event = std::move(Events.front());
    Events.pop_front();
    event();
    return true;
}

std::tm MemorySystem::Now() {
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    localtime_r(&now, &local);
    return local;
}

void MemorySystem::PressKey(int pressed) { Press(pressed); }

void MemorySystem::Later(std::function<void()> call) {
    deferred_.push_back({std::move(call), std::max(depth_, 1)});
}

// One that stands below on the stack is not through yet: what it has deferred stays for its own end.
void MemorySystem::Run(const std::function<void()>& handler) {
    {
        const Deeper deeper(depth_);
        handler();
    }
    const auto due = [this] {
        return std::find_if(deferred_.begin(), deferred_.end(),
                            [this](const DeferredCall& one) { return one.Depth > depth_; });
    };
    for (auto next = due(); next != deferred_.end() && !Ended; next = due()) {
        const std::function<void()> call = std::move(next->Call);
        deferred_.erase(next);
        const Deeper deeper(depth_);
        call();
    }
}

void MemorySystem::Press(int pressed, int held) {
    int character = 0;
    if ((held & key::CtrlHeld) != 0 && pressed >= 'A' && pressed <= 'Z') {
        character = pressed - 'A' + 1;
    } else if (pressed == key::Enter || pressed == key::Escape || pressed == key::Backspace ||
               pressed == key::Tab || pressed == key::Space) {
        character = pressed;
    }
    Deliver({pressed, held, character});
}

// Letters and digits are keys too, by their upper case, and some signs.
void MemorySystem::Type(char character) {
    const char upper = UpperChar(character);
    const bool isKey = (upper >= 'A' && upper <= 'Z') || (upper >= '0' && upper <= '9') || upper == ' ';
    const int held = character >= 'A' && character <= 'Z' ? key::ShiftHeld : 0;
    int pressed = isKey ? upper : 0;
    for (const auto& [sign, number] : signKeys) {
        if (sign == character) pressed = number;
    }
    Deliver({pressed, held, static_cast<unsigned char>(character)});
}

// A key that a handler presses arrives when the handler has ended.
void MemorySystem::Deliver(KeyPress press) {
    keys_.push_back(press);
    DeliverWaiting();
}

void MemorySystem::DeliverWaiting() {
    const StackGuard guard(delivering_);
    if (!guard.Entered()) return;
    Run([this] {
        while (!keys_.empty() && !Ended) {
            const KeyPress next = keys_.front();
            keys_.pop_front();
            DeliverOne(next);
        }
        keys_.clear();
    });
}

void MemorySystem::DeliverOne(const KeyPress& press) {
    Control* const control = focus_.Focused();
    if (!control) return;
    if (press.Key == key::Escape && ShownPopup) {
        ShownPopup = nullptr;
        return;
    }
    Form& form = control->OwningForm();
    const KeyStroke stroke{press.Key, press.Held};
    const bool keepsKey = control->Kind() == ControlKind::TextBox && IsClipboardKey(stroke);
    if (press.Key != 0 && !keepsKey) {
        if (Menu* entry = EntryOfKey(form, stroke)) return entry->Click();
    }
    if (press.Key == key::Tab) {
        Control* const next = NextInTabOrder(*control, (press.Held & key::ShiftHeld) != 0);
        if (next) focus_.SetFocus(*next);
        return;
    }
    if (press.Key != 0) {
        if (form.OnKeyDown) form.OnKeyDown(press.Key, press.Held);
        if (Ended || focus_.Focused() != control) return;
        if (control->OnKeyDown) control->OnKeyDown(press.Key, press.Held);
        if (Ended || focus_.Focused() != control) return;
    }
    int character = press.Character;
    if (character != 0) {
        if (control->OnKeyPress) control->OnKeyPress(character);
        if (Ended || focus_.Focused() != control) return;
        const bool button = control->Kind() == ControlKind::CommandButton ||
                            control->Kind() == ControlKind::CheckBox ||
                            control->Kind() == ControlKind::OptionButton;
        if (button && (character == key::Space ||
                       (character == key::Enter && control->Kind() == ControlKind::CommandButton))) {
            ClickByHand(*control, focus_);
            return;
        }
        if (auto* list = dynamic_cast<ListBox*>(control)) {
            const bool chooses = character == key::Enter || character == key::Space;
            if (chooses && list->ListIndex >= 0) list->Click();
            return;
        }
        if (auto* box = dynamic_cast<TextBox*>(control)) {
            const bool byClipboard =
                character == key::CtrlC || character == key::CtrlX || character == key::CtrlV;
            if (byClipboard && clipboard_) return EditByClipboard(*box, character, *clipboard_);
            return EditByCharacter(*box, character);
        }
        return;
    }
    OwnKey(*control, press.Key);
}

void MemorySystem::BeginRun() {
    keys_.clear();
    timers_.clear();
    deferred_.clear();
    ShownPopup = nullptr;
    Ended = false;
}

bool MemorySystem::ServeEvents(long long turn) {
    if (Ended) return false;
    if (Events.empty() && turn < GiveUpAfter) return true;
    return DoEvents();
}

MemorySystem::TimerPhase::TimerPhase(MemorySystem& system, Timer& timer)
    : Subject(timer), system_(system), start_(system.Clock) {
    timer.View = this;
}

void MemorySystem::TimerPhase::PropertyChanged(Control&, PropertyId id) {
    if (id == PropertyId::Enabled || id == PropertyId::Value) start_ = system_.Clock;
}

long long MemorySystem::TimerPhase::NextTick() const {
    return start_ + ((system_.Clock - start_) / Subject.Interval + 1) * Subject.Interval;
}

void MemorySystem::Watch(Form& form) {
    for (Control* control : form.Controls()) {
        if (control->Kind() == ControlKind::Timer)
            timers_.push_back(std::make_unique<TimerPhase>(*this, static_cast<Timer&>(*control)));
    }
}

// When the next timer is due, at the latest end.
long long MemorySystem::NextTick(long long end) const {
    for (const auto& timer : timers_) {
        if (timer->Runs()) end = std::min(end, timer->NextTick());
    }
    return end;
}

void MemorySystem::Advance(int milliseconds) {
    const long long end = Clock + milliseconds;
    while (Clock < end && !Ended) {
        const long long next = NextTick(end);
        std::vector<Timer*> due;
        for (const auto& timer : timers_) {
            if (timer->Runs() && timer->NextTick() == next) due.push_back(&timer->Subject);
        }
        Clock = next;
        if (OnClock) OnClock();
        for (Timer* timer : due) {
            if (timer->Enabled && timer->OnTimer) Run(timer->OnTimer);
        }
    }
}

}  // namespace kvt
