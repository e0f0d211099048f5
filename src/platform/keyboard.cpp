#include "platform/keyboard.h"

#include <array>
#include <utility>

#include "platform/keys.h"
#include "platform/tab_order.h"

namespace kvt {

namespace {

// The other strokes of copying, cutting, pasting and doing again are taken for one of each.
KeyPress WithOneEditingStroke(const KeyPress& press) {
    constexpr std::pair<KeyStroke, KeyStroke> strokes[] = {
        {{key::Insert, key::CtrlHeld}, {'C', key::CtrlHeld}},
        {{key::Delete, key::ShiftHeld}, {'X', key::CtrlHeld}},
        {{key::Insert, key::ShiftHeld}, {'V', key::CtrlHeld}},
        {{'Y', key::CtrlHeld}, {'Z', key::CtrlHeld | key::ShiftHeld}}};
    for (const auto& [other, usual] : strokes) {
        if (press.Stroke == other) return PressOf(usual);
    }
    return press;
}

// The entry that a stroke chooses: one of the form's menus that is in sight and enabled, or one that is disabled.
Menu* EntryOf(const Form& form, KeyStroke stroke, bool enabled) {
    for (Control* control : form.Controls()) {
        auto* const entry = dynamic_cast<Menu*>(control);
        if (!entry || entry->Shortcut.empty() || KeyNamed(entry->Shortcut) != stroke) continue;
        if (entry->EffectivelyVisible() && entry->EffectivelyEnabled() == enabled) return entry;
    }
    return nullptr;
}

}  // namespace

Control* Keyboard::Target(const Form& form) const {
    Control* const focused = focus_.Focused();
    const bool reached = focused && &focused->OwningForm() == &form && focused->EffectivelyVisible() &&
                         focused->EffectivelyEnabled();
    return reached ? focused : nullptr;
}

bool Keyboard::StillAt(const Control* target) const {
    if (host_.HasEnded()) return false;
    return !target || Target(target->OwningForm()) == target;
}

bool Keyboard::Press(Form& form, KeyPress press) {
    if (host_.HasEnded()) return true;
    if (host_.MenuIsOpen()) {
        if (press.Stroke.Key == key::Escape) host_.CloseMenu();
        return true;
    }
    press = WithOneEditingStroke(press);
    if (press.Character <= key::Space) typed_.clear();
    Control* const target = Target(form);
    if ((press.Stroke.Held & key::AltHeld) != 0) {
        // The rest of these is the window's own.
        auto* const box = dynamic_cast<ComboBox*>(target);
        return box && press.Character == 0 && MoveInCombo(*box, press);
    }
    if (UndoInField(target, press.Stroke) || ChooseMenu(form, target, press.Stroke)) return true;
    if (press.Stroke.Key == key::Tab) {
        MoveOn(form, press.Stroke);
        return true;
    }
    if (!Offer(form, target, press)) return true;
    return target && Act(*target, press);
}

// What has been in a field before passes its handlers again.
bool Keyboard::UndoInField(Control* target, KeyStroke stroke) {
    auto* const box = dynamic_cast<TextBox*>(target);
    const std::optional<TextAction> action = box ? UndoingOf(*box, stroke) : std::nullopt;
    if (!action) return false;
    host_.Run(*box, "Change", [&] { EditText(*box, {*action}, clipboard_); });
    return true;
}

bool Keyboard::ChooseMenu(const Form& form, const Control* target, KeyStroke stroke) {
    if (stroke.Key == 0) return false;
    if (target && target->Kind() == ControlKind::TextBox && IsEditingShortcut(stroke)) return false;
    Menu* const entry = EntryOf(form, stroke, true);
    if (entry) host_.Run(*entry, "Click", [&] { entry->Click(); });
    if (entry) return true;
    // What is disabled leaves the key to others.
    Menu* const disabled = EntryOf(form, stroke, false);
    if (disabled && disabled->OnRefused) host_.Run(*disabled, "Refused", [&] { disabled->OnRefused(); });
    return false;
}

// Offers a press to the handlers. False where one of them has used it up.
bool Keyboard::Offer(Form& form, Control* target, KeyPress& press) {
    const Control* const focused = focus_.Focused();
    const auto goesOn = [&] {
        return !host_.HasEnded() && focus_.Focused() == focused && (!target || StillAt(target));
    };
    const std::array<Control*, 2> receivers = {&form, target};
    for (Control* receiver : receivers) {
        if (press.Stroke.Key == 0 || !receiver || !receiver->OnKeyDown) continue;
        host_.Run(*receiver, "KeyDown", [&] { receiver->OnKeyDown(press.Stroke.Key, press.Stroke.Held); });
        if (!goesOn()) return false;
    }
    for (Control* receiver : receivers) {
        if (press.Character == 0 || !receiver || !receiver->OnKeyPress) continue;
        host_.Run(*receiver, "KeyPress", [&] { receiver->OnKeyPress(press.Character); });
        if (press.Character == 0 || !goesOn()) return false;
    }
    return true;
}

// Ctrl with Tab goes to the next page of the tabs that the focus lies in, Tab alone to the next stop.
void Keyboard::MoveOn(Form& form, KeyStroke stroke) {
    const bool backwards = (stroke.Held & key::ShiftHeld) != 0;
    Control* const focused = focus_.Focused();
    Control* const from = focused && &focused->OwningForm() == &form ? focused : nullptr;
    if (from && (stroke.Held & key::CtrlHeld) != 0 && TurnPage(*from, backwards)) return;
    Control* const next = from ? NextInTabOrder(*from, backwards) : FirstInTabOrder(form);
    if (next) host_.Run(from ? *from : form, "LostFocus", [&] { focus_.SetFocus(*next); });
}

bool Keyboard::TurnPage(Control& target, bool backwards) {
    Control* around = &target;
    while (around && around->Kind() != ControlKind::TabStrip) around = around->Container;
    auto* const tabs = dynamic_cast<TabStrip*>(around);
    if (!tabs || !tabs->EffectivelyVisible() || !tabs->EffectivelyEnabled()) return false;
    const int pages = static_cast<int>(tabs->Captions.size());
    if (pages < 2) return true;
    ShowPage(*tabs, (tabs->Value + (backwards ? pages - 1 : 1)) % pages);
    // The page that had the focus is out of sight.
    if (host_.HasEnded() || focus_.Focused() != &target || target.EffectivelyVisible()) return true;
    Control* const next = AcceptsTab(*tabs) ? tabs : FirstInTabOrder(*tabs);
    if (next) host_.Run(target, "LostFocus", [&] { focus_.SetFocus(*next); });
    return true;
}

}  // namespace kvt
