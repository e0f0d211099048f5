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

// The stroke of a name such as "Enter", "F5", "Shift+Tab" or "Ctrl+Shift+S" (case ignored); nothing for an
// unknown one. Letters have a name only with Ctrl: alone they are characters.
std::optional<KeyStroke> KeyNamed(std::string_view name);

}  // namespace kvt
