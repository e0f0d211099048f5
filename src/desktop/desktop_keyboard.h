#pragma once

#include "desktop/desktop_clipboard.h"
#include "desktop/desktop_system.h"
#include "platform/keyboard.h"

namespace kvt {

// The keyboard of the windows. Views bring it the keys of their widgets, and do what widgets do better.
class DesktopKeyboard : private KeyboardHost {
public:
    DesktopKeyboard(DesktopFocus& focus, DesktopSystem& system);

    // A key in the window of a form, with the keys that its handlers have pressed. False where nothing has a use for
    // it.
    bool Press(Form& form, const KeyPress& press);
    // A character that comes by itself, for the control that has the focus now; the form where none has.
    void Type(Form& form, int character);

private:
    // A field takes the characters of the code page alone.
    class FieldClipboard : public DesktopClipboard {
    public:
        std::string GetText() override;
    };

    void Run(const Control& control, const char* event, const std::function<void()>& act) override;
    bool HasEnded() const override { return system_.Ended(); }
    void OpenList(ComboBox& box) override;
    bool EditInWidget(TextBox& box, const TextEdit& edit) override;

    DesktopFocus& focus_;
    DesktopSystem& system_;
    FieldClipboard clipboard_;
    Keyboard keyboard_;
};

}  // namespace kvt
