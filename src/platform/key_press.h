#pragma once

#include <optional>
#include <string_view>

namespace kvt {

// A key by its number and what is held with it (both of keys.h).
struct KeyStroke {
    int Key = 0;
    int Held = 0;
    bool operator==(const KeyStroke&) const = default;
};

// What goes down at a keyboard.
struct KeyPress {
    KeyStroke Stroke;      // without a key for a character that comes by itself
    int Character = 0;     // that comes with the key, 0 for none
    bool Repeats = false;  // the key is held down
    long long Time = 0;    // milliseconds of any clock, to tell what is typed in one go
};

// The stroke of a name such as "Enter", "F5", "Shift+Tab" or "Ctrl+Shift+S" (case ignored); nothing for an
// unknown one. Letters have a name only with Ctrl or Alt: alone they are characters.
std::optional<KeyStroke> KeyNamed(std::string_view name);

// The number of the key that writes a letter, a digit, a blank or a sign on the main block; 0 for none.
int KeyOfCharacter(char character);

// A key with the character that comes with it: Ctrl with a letter is 1 to 26, other keys have one without Ctrl and
// Alt alone.
KeyPress PressOf(KeyStroke stroke);
// The press that types a character.
KeyPress PressOf(char character);

}  // namespace kvt
