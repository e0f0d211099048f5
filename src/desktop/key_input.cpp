#include "desktop/key_input.h"

#include <QKeySequence>
#include <iterator>

#include "platform/keys.h"

namespace kvt {

namespace {

struct NamedKey {
    int Toolkit;
    int Number;
    int Character;  // that comes with the key, 0 for none
};

constexpr NamedKey namedKeys[] = {
    {Qt::Key_Backspace, key::Backspace, key::Backspace},
    {Qt::Key_Tab, key::Tab, key::Tab},
    {Qt::Key_Backtab, key::Tab, key::Tab},
    {Qt::Key_Return, key::Enter, key::Enter},
    {Qt::Key_Enter, key::Enter, key::Enter},
    {Qt::Key_Escape, key::Escape, key::Escape},
    {Qt::Key_Space, key::Space, key::Space},
    {Qt::Key_PageUp, key::PageUp, 0},
    {Qt::Key_PageDown, key::PageDown, 0},
    {Qt::Key_End, key::End, 0},
    {Qt::Key_Home, key::Home, 0},
    {Qt::Key_Left, key::Left, 0},
    {Qt::Key_Up, key::Up, 0},
    {Qt::Key_Right, key::Right, 0},
    {Qt::Key_Down, key::Down, 0},
    {Qt::Key_Insert, key::Insert, 0},
    {Qt::Key_Delete, key::Delete, 0},
};

// Keys of punctuation by number: on the main block, and on the numeric one.
struct SignKey {
    int Toolkit;
    int Number;
    int NumericNumber;
};

constexpr SignKey signKeys[] = {
    {Qt::Key_Plus, 187, 107},   {Qt::Key_Equal, 187, 187},      {Qt::Key_Minus, 189, 109},
    {Qt::Key_Comma, 188, 110},  {Qt::Key_Period, 190, 110},     {Qt::Key_Slash, 191, 111},
    {Qt::Key_Asterisk, 0, 106}, {Qt::Key_Underscore, 189, 189},
};

const NamedKey* FindNamed(int toolkit) {
    for (const NamedKey& named : namedKeys) {
        if (named.Toolkit == toolkit) return &named;
    }
    return nullptr;
}

int NumberOf(const QKeyEvent& event) {
    const int toolkit = event.key();
    const bool numeric = event.modifiers().testFlag(Qt::KeypadModifier);
    if (toolkit >= Qt::Key_A && toolkit <= Qt::Key_Z) return 'A' + (toolkit - Qt::Key_A);
    if (toolkit >= Qt::Key_0 && toolkit <= Qt::Key_9) return (numeric ? 96 : '0') + (toolkit - Qt::Key_0);
    if (toolkit >= Qt::Key_F1 && toolkit <= Qt::Key_F12) return key::F1 + (toolkit - Qt::Key_F1);
    for (const SignKey& sign : signKeys) {
        if (sign.Toolkit == toolkit) return numeric ? sign.NumericNumber : sign.Number;
    }
    return 0;
}

KeyInput WithCtrl(int letter) { return {letter, key::CtrlHeld, QString(QChar(letter - 'A' + 1))}; }

}  // namespace

KeyInput InputOf(const QKeyEvent& event) {
    // However they are pressed, Shift and Insert for one.
    if (event.matches(QKeySequence::Paste)) return WithCtrl('V');
    if (event.matches(QKeySequence::Copy)) return WithCtrl('C');
    if (event.matches(QKeySequence::Cut)) return WithCtrl('X');

    const QString text = event.text();
    const bool printable = !text.isEmpty() && text.at(0).isPrint();
    const bool ctrl = event.modifiers().testFlag(Qt::ControlModifier);
    // Alt alone is for menus. With Ctrl it is how some keyboards write their third character.
    if (event.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) {
        return ctrl && printable ? KeyInput{0, 0, text} : KeyInput{};
    }
    KeyInput input;
    if (event.modifiers().testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab) {
        input.Held |= key::ShiftHeld;
    }
    if (ctrl) input.Held |= key::CtrlHeld;
    if (const NamedKey* named = FindNamed(event.key())) {
        input.Key = named->Number;
        if (named->Character != 0 && !ctrl) input.Text = QChar(named->Character);
        return input;
    }
    input.Key = NumberOf(event);
    if (ctrl && input.Key >= 'A' && input.Key <= 'Z') {
        input.Text = QChar(input.Key - 'A' + 1);
    } else if (printable && !ctrl) {
        input.Text = text;
    }
    return input;
}

QKeyEvent EventOf(int pressed, QEvent::Type type) {
    for (const NamedKey& named : namedKeys) {
        if (named.Number != pressed) continue;
        const QString text = named.Character != 0 ? QString(QChar(named.Character)) : QString();
        return QKeyEvent(type, named.Toolkit, Qt::NoModifier, text);
    }
    if (pressed >= key::F1 && pressed <= key::F12) {
        return QKeyEvent(type, Qt::Key_F1 + (pressed - key::F1), Qt::NoModifier);
    }
    return QKeyEvent(type, pressed, Qt::NoModifier, QString(QChar(pressed)));
}

}  // namespace kvt
