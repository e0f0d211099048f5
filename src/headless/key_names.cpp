#include "headless/key_names.h"

#include "basic/text.h"
#include "platform/keys.h"

namespace kvt {

namespace {

struct NamedKey {
    const char* Name;
    int Key;
};

constexpr NamedKey namedKeys[] = {
    {"Enter", key::Enter},         {"Tab", key::Tab},   {"Esc", key::Escape}, {"Space", key::Space},
    {"Backspace", key::Backspace}, {"Up", key::Up},     {"Down", key::Down},  {"Left", key::Left},
    {"Right", key::Right},         {"Home", key::Home}, {"End", key::End},    {"Insert", key::Insert},
    {"Delete", key::Delete},
};

int FunctionKey(std::string_view name) {
    int key = key::F1;
    for (const char* number : {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12"}) {
        if (UpperChar(name[0]) == 'F' && name.substr(1) == number) return key;
        ++key;
    }
    return 0;
}

}  // namespace

std::optional<KeyStroke> KeyNamed(std::string_view name) {
    KeyStroke stroke;
    for (bool more = true; more;) {
        more = false;
        if (BeginsWithIgnoringCase(name, "Ctrl+")) {
            stroke.Held |= key::CtrlHeld;
            name.remove_prefix(5);
            more = true;
        }
        if (BeginsWithIgnoringCase(name, "Shift+")) {
            stroke.Held |= key::ShiftHeld;
            name.remove_prefix(6);
            more = true;
        }
    }
    if (name.empty()) return std::nullopt;
    const char letter = UpperChar(name[0]);
    if (name.size() == 1 && letter >= 'A' && letter <= 'Z' && (stroke.Held & key::CtrlHeld) != 0) {
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

}  // namespace kvt
