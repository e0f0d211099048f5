#pragma once

#include <cstdint>
#include <string_view>

#include "basic/text.h"

namespace kvt {

// The four characters of a code cell in upper case, packed so that two codes compare as one number:
// " 01 " is G01, "M06 " is M06, "M99R" the radius line. 0 for a cell of any other length.
using CodeKey = std::uint32_t;

constexpr CodeKey KeyOf(std::string_view cell) {
    if (cell.size() != 4) return 0;
    CodeKey key = 0;
    for (const char c : cell) key = key << 8 | static_cast<unsigned char>(UpperChar(c));
    return key;
}

namespace code {
inline constexpr CodeKey G00 = KeyOf(" 00 "), G01 = KeyOf(" 01 "), G02 = KeyOf(" 02 "), G03 = KeyOf(" 03 "),
                         G04 = KeyOf(" 04 "), G22 = KeyOf(" 22 "), G23 = KeyOf(" 23 "), G24 = KeyOf(" 24 "),
                         G25 = KeyOf(" 25 "), G27 = KeyOf(" 27 "), G33 = KeyOf(" 33 "), G45 = KeyOf(" 45 "),
                         G46 = KeyOf(" 46 "), G47 = KeyOf(" 47 "), G48 = KeyOf(" 48 "), G72 = KeyOf(" 72 "),
                         G73 = KeyOf(" 73 "), G78 = KeyOf(" 78 "), G81 = KeyOf(" 81 "), G82 = KeyOf(" 82 "),
                         G83 = KeyOf(" 83 "), G84 = KeyOf(" 84 "), G85 = KeyOf(" 85 "), G86 = KeyOf(" 86 "),
                         G88 = KeyOf(" 88 "), G89 = KeyOf(" 89 "), G90 = KeyOf(" 90 "), G91 = KeyOf(" 91 "),
                         G92 = KeyOf(" 92 ");
inline constexpr CodeKey M06 = KeyOf("M06 "), M17 = KeyOf("M17 "), M26 = KeyOf("M26 "), M30 = KeyOf("M30 "),
                         M98 = KeyOf("M98 "), M99 = KeyOf("M99 "), M99R = KeyOf("M99R");
}  // namespace code

template <std::size_t N>
constexpr bool IsOneOf(CodeKey key, const CodeKey (&keys)[N]) {
    for (const CodeKey one : keys) {
        if (one == key) return true;
    }
    return false;
}

}  // namespace kvt
