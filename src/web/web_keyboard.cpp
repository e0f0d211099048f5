#include "web/web_keyboard.h"

#include <utility>

#include "platform/keys.h"
#include "platform/list_view.h"
#include "web/web_view.h"

namespace kvt {

namespace {

// Numbers by which keyboards tell their signs apart, by the place of the key; here a sign has the number of its own.
constexpr int firstSignByPlace = 186;

// A key writes one character, a dead key before it one more.
constexpr std::size_t mostOfKey = 8;

// What is typed: characters, and no keys that control anything.
std::string CharactersOf(std::string_view utf8) {
    std::string characters = KnownCharactersOf(utf8);
    std::erase_if(characters, [](char one) { return static_cast<unsigned char>(one) < key::Space; });
    return characters;
}

std::vector<KeyPress> WithText(KeyStroke stroke, const std::string& characters) {
    std::vector<KeyPress> presses;
    for (const char one : characters)
        presses.push_back({presses.empty() ? stroke : KeyStroke{}, static_cast<unsigned char>(one)});
    return presses;
}

}  // namespace

std::vector<KeyPress> PressesOf(const PageEvent& event) {
    KeyStroke stroke{event.Number("key"), event.Number("held")};
    const std::string text = CharactersOf(event.Raw("char")).substr(0, mostOfKey);
    if (text.size() == 1 && stroke.Key >= firstSignByPlace) stroke.Key = KeyOfCharacter(text[0]);
    const bool ctrl = (stroke.Held & key::CtrlHeld) != 0;
    std::vector<KeyPress> presses;
    // Alt with Ctrl is how some keyboards write their third character.
    if ((stroke.Held & key::AltHeld) != 0) {
        if (ctrl && !text.empty()) {
            presses = WithText({}, text);
        } else if (stroke.Key != 0) {
            presses = {KeyPress{stroke}};
        }
    } else {
        const KeyPress press = PressOf(stroke);
        if (press.Character == 0 && !text.empty() && !ctrl) {
            presses = WithText(stroke, text);
        } else if (stroke.Key != 0) {
            presses = {press};
        }
    }
    for (KeyPress& press : presses) {
        press.Repeats = event.Flag("repeat");
        press.Time = static_cast<long long>(event.Real("time"));
    }
    return presses;
}

WebKeyboard::WebKeyboard(WebPage& page, WebFocus& focus, WebSystem& system, WebClipboard& clipboard)
    : page_(page),
      focus_(focus),
      system_(system),
      clipboard_(clipboard),
      keyboard_(focus, &clipboard, *this) {}

bool WebKeyboard::Press(Form& form, const KeyPress& press) {
    const bool used = keyboard_.Press(form, press);
    system_.SendKeys();
    // A key that moves in a list runs no handler.
    system_.TellHandled();
    return used;
}

void WebKeyboard::TakeKey(Form& form, const PageEvent& event) {
    bool used = false;
    const bool before = std::exchange(leftToPage_, false);
    const std::vector<KeyPress> presses = PressesOf(event);
    for (const KeyPress& press : presses) used |= Press(form, press);
    used &= !std::exchange(leftToPage_, before);
    page_.Send(Message("used").Add("seq", event.Number("seq")).Add("used", used));
}

void WebKeyboard::TakeText(Form& form, const PageEvent& event) {
    Type(form, CharactersOf(event.Raw("text")));
}

// To the control that has the focus by then; each may move it on.
void WebKeyboard::Type(Form& form, std::string_view text) {
    for (const char one : text) {
        const Control* const focused = focus_.Focused();
        Press(focused ? focused->OwningForm() : form, KeyPress{{}, static_cast<unsigned char>(one)});
    }
}

void WebKeyboard::TakePaste(Form& form, const PageEvent& event) {
    clipboard_.Hold(event.Raw("text"));
    Press(form, PressOf(KeyStroke{'V', key::CtrlHeld}));
    clipboard_.LetGo();
}

void WebKeyboard::PressByCode(int key) {
    const Control* const focused = focus_.Focused();
    if (focused) Press(focused->OwningForm(), PressOf(KeyStroke{key, 0}));
}

void WebKeyboard::Run(const Control& control, const char* event, const std::function<void()>& act) {
    system_.Run(control, event, act);
}

void WebKeyboard::OpenList(ComboBox& box) {
    if (const WebView* const view = WebView::Of(box))
        page_.Send(Message("openList").Add("id", view->Number()));
}

// What goes by lines as the page has broken them is done there; it tells where the caret is then.
bool WebKeyboard::EditInWidget(TextBox& box, const TextEdit& edit) {
    switch (edit.Action) {
        case TextAction::Up:
        case TextAction::Down:
        case TextAction::PageUp:
        case TextAction::PageDown:
        case TextAction::Home:
        case TextAction::End: return leftToPage_ = box.MultiLine;
        default: return false;
    }
}

}  // namespace kvt
