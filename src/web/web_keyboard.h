#pragma once

#include "platform/keyboard.h"
#include "web/web_clipboard.h"
#include "web/web_focus.h"
#include "web/web_system.h"

namespace kvt {

// The keyboard of the page, which brings it the keys of whatever window they were pressed in.
class WebKeyboard : private KeyboardHost {
public:
    WebKeyboard(WebPage& page, WebFocus& focus, WebSystem& system, WebClipboard& clipboard);

    // A key with its text, or text alone, as the page tells it; it is told whether anything had a use for the key.
    void TakeKey(Form& form, const PageEvent& event);
    void TakeText(Form& form, const PageEvent& event);
    // Text that the page has taken from the clipboard by itself, to be pasted.
    void TakePaste(Form& form, const PageEvent& event);
    // A key that a handler has pressed.
    void PressByCode(int key);

private:
    bool Press(Form& form, const KeyPress& press);
    void Type(Form& form, std::string_view text);
    void Run(const Control& control, const char* event, const std::function<void()>& act) override;
    bool HasEnded() const override { return system_.Ended(); }
    void OpenList(ComboBox& box) override;
    bool EditInWidget(TextBox& box, const TextEdit& edit) override;

    WebPage& page_;
    WebFocus& focus_;
    WebSystem& system_;
    WebClipboard& clipboard_;
    Keyboard keyboard_;
    bool leftToPage_ = false;  // the key that is pressed just now
};

// The presses of a key as the page tells it: its number, what is held, and the text that it writes.
std::vector<KeyPress> PressesOf(const PageEvent& event);

}  // namespace kvt
