#include "platform/key_press.h"

#include <utility>

#include "basic/text.h"
#include "platform/keys.h"

namespace kvt {

namespace {

struct NamedKey {
    const char* Name;
    int Key;
};

constexpr NamedKey namedKeys[] = {
    {"Enter", key::Enter},
    {"Tab", key::Tab},
    {"Esc", key::Escape},
    {"Space", key::Space},
    {"Backspace", key::Backspace},
    {"Up", key::Up},
    {"Down", key::Down},
    {"Left", key::Left},
    {"Right", key::Right},
    {"Home", key::Home},
    {"End", key::End},
    {"Insert", key::Insert},
    {"Delete", key::Delete},
    {"PageUp", key::PageUp},
    {"PageDown", key::PageDown},
};

struct NamedModifier {
    std::string_view Name;
    int Held;
};

constexpr NamedModifier modifiers[] = {
    {"Ctrl+", key::CtrlHeld}, {"Shift+", key::ShiftHeld}, {"Alt+", key::AltHeld}};

// Signs of the main block that are keys by number.
constexpr std::pair<char, int> signKeys[] = {{'+', 187}, {'=', 187}, {',', 188}, {'-', 189},
                                             {'_', 189}, {'.', 190}, {'/', 191}};

bool IsLetter(int key) { return key >= 'A' && key <= 'Z'; }

int FunctionKey(std::string_view name) {
    int key = key::F1;
    for (const char* number : {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12"}) {
        if (UpperChar(name[0]) == 'F' && name.substr(1) == number) return key;
        ++key;
    }
    return 0;
}

// Takes the modifiers off the beginning of a name.
int TakeModifiers(std::string_view& name) {
    int held = 0;
    for (bool more = true; more;) {
        more = false;
        for (const NamedModifier& modifier : modifiers) {
            if (!BeginsWithIgnoringCase(name, modifier.Name)) continue;
            held |= modifier.Held;
            name.remove_prefix(modifier.Name.size());
            more = true;
        }
    }
    return held;
}

}  // namespace

std::optional<KeyStroke> KeyNamed(std::string_view name) {
    KeyStroke stroke;
    stroke.Held = TakeModifiers(name);
    if (name.empty()) return std::nullopt;
    const char letter = UpperChar(name[0]);
    if (name.size() == 1 && IsLetter(letter) && (stroke.Held & (key::CtrlHeld | key::AltHeld)) != 0) {
        stroke.Key = letter;
        return stroke;
    }
    for (const NamedKey& one : namedKeys) {
        if (EqualIgnoringCase(one.Name, name)) stroke.Key = one.Key;
    }
    if (stroke.Key == 0) stroke.Key = FunctionKey(name);
    if (stroke.Key == 0) return std::nullopt;
    return stroke;
}

int KeyOfCharacter(char character) {
    const char upper = UpperChar(character);
    if (IsLetter(upper) || (upper >= '0' && upper <= '9') || upper == ' ') return upper;
    for (const auto& [sign, number] : signKeys) {
        if (sign == character) return number;
    }
    return 0;
}

KeyPress PressOf(KeyStroke stroke) {
    KeyPress press{stroke};
    const int held = stroke.Held & (key::CtrlHeld | key::AltHeld);
    if (held == key::CtrlHeld && IsLetter(stroke.Key)) press.Character = stroke.Key - 'A' + 1;
    if (held != 0) return press;
    for (const int key : {key::Enter, key::Escape, key::Backspace, key::Tab, key::Space}) {
        if (stroke.Key == key) press.Character = key;
    }
    return press;
}

KeyPress PressOf(char character) {
    const int held = IsLetter(character) ? key::ShiftHeld : 0;
    return {{KeyOfCharacter(character), held}, static_cast<unsigned char>(character)};
}

}  // namespace kvt
