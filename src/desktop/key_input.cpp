#include "desktop/key_input.h"

#include <QKeySequence>
#include <iterator>

#include "desktop/text.h"
#include "platform/keys.h"

namespace kvt {

namespace {

struct NamedKey {
    int Toolkit;
    int Number;
};

constexpr NamedKey namedKeys[] = {
    {Qt::Key_Backspace, key::Backspace},
    {Qt::Key_Tab, key::Tab},
    {Qt::Key_Backtab, key::Tab},
    {Qt::Key_Return, key::Enter},
    {Qt::Key_Enter, key::Enter},
    {Qt::Key_Escape, key::Escape},
    {Qt::Key_Space, key::Space},
    {Qt::Key_PageUp, key::PageUp},
    {Qt::Key_PageDown, key::PageDown},
    {Qt::Key_End, key::End},
    {Qt::Key_Home, key::Home},
    {Qt::Key_Left, key::Left},
    {Qt::Key_Up, key::Up},
    {Qt::Key_Right, key::Right},
    {Qt::Key_Down, key::Down},
    {Qt::Key_Insert, key::Insert},
    {Qt::Key_Delete, key::Delete},
};

// Signs of the numeric block by number.
constexpr NamedKey numericKeys[] = {{Qt::Key_Plus, 107},   {Qt::Key_Minus, 109}, {Qt::Key_Comma, 110},
                                    {Qt::Key_Period, 110}, {Qt::Key_Slash, 111}, {Qt::Key_Asterisk, 106}};

template <std::size_t N>
int FindKey(const NamedKey (&keys)[N], int toolkit) {
    for (const NamedKey& named : keys) {
        if (named.Toolkit == toolkit) return named.Number;
    }
    return 0;
}

// The toolkit numbers keys that write a sign by the sign.
int NumberOf(const QKeyEvent& event) {
    const int toolkit = event.key();
    if (const int named = FindKey(namedKeys, toolkit)) return named;
    if (toolkit >= Qt::Key_F1 && toolkit <= Qt::Key_F12) return key::F1 + (toolkit - Qt::Key_F1);
    if (event.modifiers().testFlag(Qt::KeypadModifier)) {
        if (toolkit >= Qt::Key_0 && toolkit <= Qt::Key_9) return 96 + (toolkit - Qt::Key_0);
        if (const int sign = FindKey(numericKeys, toolkit)) return sign;
    }
    return toolkit > 0 && toolkit < 0x80 ? KeyOfCharacter(static_cast<char>(toolkit)) : 0;
}

int HeldWith(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    const bool shift = modifiers.testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab;
    return (shift ? key::ShiftHeld : 0) | (modifiers.testFlag(Qt::ControlModifier) ? key::CtrlHeld : 0) |
           (modifiers.testFlag(Qt::AltModifier) ? key::AltHeld : 0);
}

std::vector<KeyPress> Single(const KeyPress& press) { return {press}; }

// The characters of a text, the first of them with the key. Those that the code page lacks are 0.
std::vector<KeyPress> WithText(KeyStroke stroke, const QString& text) {
    std::vector<KeyPress> presses;
    for (const QChar character : text) {
        presses.push_back({presses.empty() ? stroke : KeyStroke{}, CharacterNumber(character)});
    }
    return presses;
}

std::vector<KeyPress> KeysOf(const QKeyEvent& event) {
    // However they are pressed, by keys of their own too.
    if (event.matches(QKeySequence::Paste)) return Single(PressOf(KeyStroke{'V', key::CtrlHeld}));
    if (event.matches(QKeySequence::Copy)) return Single(PressOf(KeyStroke{'C', key::CtrlHeld}));
    if (event.matches(QKeySequence::Cut)) return Single(PressOf(KeyStroke{'X', key::CtrlHeld}));

    const QString text = event.text();
    const bool printable = !text.isEmpty() && text.at(0).isPrint();
    const KeyStroke stroke{NumberOf(event), HeldWith(event)};
    const bool ctrl = (stroke.Held & key::CtrlHeld) != 0;
    // Alt alone is for menus. With Ctrl it is how some keyboards write their third character.
    if (event.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) {
        if (ctrl && printable) return WithText({}, text);
        const bool opensList =
            stroke.Held == key::AltHeld && (stroke.Key == key::Up || stroke.Key == key::Down);
        return opensList ? Single(KeyPress{stroke}) : std::vector<KeyPress>{};
    }
    const KeyPress press = PressOf(stroke);
    if (press.Character == 0 && printable && !ctrl) return WithText(stroke, text);
    return stroke.Key != 0 ? Single(press) : std::vector<KeyPress>{};
}

}  // namespace

std::vector<KeyPress> PressesOf(const QKeyEvent& event) {
    std::vector<KeyPress> presses = KeysOf(event);
    for (KeyPress& press : presses) {
        press.Repeats = event.isAutoRepeat();
        press.Time = static_cast<long long>(event.timestamp());
    }
    return presses;
}

QKeyEvent EventOf(int pressed, QEvent::Type type) {
    for (const NamedKey& named : namedKeys) {
        if (named.Number != pressed) continue;
        const int character = PressOf(KeyStroke{pressed, 0}).Character;
        return QKeyEvent(type, named.Toolkit, Qt::NoModifier,
                         character != 0 ? QString(QChar(character)) : QString());
    }
    if (pressed >= key::F1 && pressed <= key::F12) {
        return QKeyEvent(type, Qt::Key_F1 + (pressed - key::F1), Qt::NoModifier);
    }
    return QKeyEvent(type, pressed, Qt::NoModifier, QString(QChar(pressed)));
}

}  // namespace kvt
