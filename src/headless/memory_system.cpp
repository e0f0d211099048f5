#include <algorithm>

#include "basic/stack_guard.h"
#include "headless/memory_platform.h"
#include "headless/text_editing.h"
#include "platform/keys.h"
#include "platform/list_view.h"

namespace kvt {

namespace {

bool TakesTab(const Control& control) {
    switch (control.Kind()) {
        case ControlKind::TextBox:
        case ControlKind::CheckBox:
        case ControlKind::OptionButton:
        case ControlKind::CommandButton:
        case ControlKind::ListBox:
        case ControlKind::ListView:
        case ControlKind::TabStrip:
            return control.TabIndex >= 0 && control.ReallyVisible() && control.ReallyEnabled();
        default: return false;
    }
}

// What a key does to a control by itself, when its handlers have let it pass.
void OwnKey(Control& control, int pressed) {
    if (auto* box = dynamic_cast<TextBox*>(&control)) return EditByKey(*box, pressed);
    if (auto* list = dynamic_cast<ListView*>(&control)) {
        if (list->Count() == 0) return;
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

}  // namespace

bool MemorySystem::DoEvents() {
    if (Ended) return false;
    if (Events.empty()) return NextEvent && NextEvent();
    const std::function<void()> event = std::move(Events.front());
    Events.pop_front();
    event();
    return !Ended;
}

std::tm MemorySystem::Now() {
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    localtime_r(&now, &local);
    return local;
}

void MemorySystem::PressKey(int pressed) { Press(pressed); }

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

void MemorySystem::Type(char character) { Deliver({0, 0, static_cast<unsigned char>(character)}); }

// A key that a handler presses arrives when the handler has ended.
void MemorySystem::Deliver(KeyPress press) {
    keys_.push_back(press);
    const StackGuard guard(delivering_);
    if (!guard.Entered()) return;
    while (!keys_.empty() && !Ended) {
        const KeyPress next = keys_.front();
        keys_.pop_front();
        DeliverOne(next);
    }
    keys_.clear();
}

void MemorySystem::DeliverOne(const KeyPress& press) {
    Control* const control = focus_.Focused();
    if (!control) return;
    if (press.Key == key::Tab) return MoveFocus((press.Held & key::ShiftHeld) != 0);
    Form& form = control->OwningForm();
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
        if (auto* box = dynamic_cast<TextBox*>(control)) return EditByCharacter(*box, character);
        return;
    }
    OwnKey(*control, press.Key);
}

// To the next control of the tab order, round its end.
void MemorySystem::MoveFocus(bool backwards) {
    Control* const from = focus_.Focused();
    std::vector<Control*> stops;
    for (Control* control : from->OwningForm().Controls()) {
        if (control == from || TakesTab(*control)) stops.push_back(control);
    }
    std::stable_sort(stops.begin(), stops.end(), [](const Control* a, const Control* b) {
        return a->TabIndex.Get() < b->TabIndex.Get();
    });
    if (backwards) std::reverse(stops.begin(), stops.end());
    const auto at = std::find(stops.begin(), stops.end(), from);
    const auto next = std::next(at) == stops.end() ? stops.begin() : std::next(at);
    if (*next != from) focus_.SetFocus(**next);
}

void MemorySystem::Advance(int milliseconds) {
    for (int passed = 0; passed < milliseconds && !Ended; ++passed) {
        ++Clock;
        for (Form* form : forms_) {
            for (Control* control : form->Controls()) {
                auto* timer = dynamic_cast<Timer*>(control);
                if (!timer || !timer->Enabled || timer->Interval <= 0 || Clock % timer->Interval != 0)
                    continue;
                if (timer->OnTimer) timer->OnTimer();
            }
        }
    }
}

}  // namespace kvt
