#include "basic/code_page.h"

#include <array>
#include <cstdint>

namespace kvt {

namespace {

// Characters of the bytes 80 to 9F; the five that have none keep their number.
constexpr std::array<std::uint16_t, 32> upperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::uint32_t CharacterOf(unsigned char byte) {
    return byte >= 0x80 && byte <= 0x9F ? upperControls[byte - 0x80U] : byte;
}

char ByteOf(std::uint32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
    for (std::size_t i = 0; i < upperControls.size(); ++i) {
        if (upperControls[i] == character) return static_cast<char>(0x80 + i);
    }
    return '?';
}

}  // namespace

void AppendUtf8(std::string_view text, std::string& out) {
    for (const char c : text) {
        const std::uint32_t character = CharacterOf(static_cast<unsigned char>(c));
        if (character < 0x80) {
            out += static_cast<char>(character);
        } else if (character < 0x800) {
            out += static_cast<char>(0xC0 | (character >> 6));
            out += static_cast<char>(0x80 | (character & 0x3F));
        } else {
            out += static_cast<char>(0xE0 | (character >> 12));
            out += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (character & 0x3F));
        }
    }
}

std::string ToUtf8(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    AppendUtf8(text, out);
    return out;
}

namespace {

// The character at a position and its length in bytes; a stray byte gives false and a length of 1.
bool NextCharacter(std::string_view utf8, std::size_t at, std::uint32_t& character, std::size_t& length) {
    const auto lead = static_cast<unsigned char>(utf8[at]);
    length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 0;
    bool whole = length > 0 && lead < 0xF5 && at + length <= utf8.size();
    character = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t k = 1; whole && k < length; ++k) {
        const auto next = static_cast<unsigned char>(utf8[at + k]);
        whole = (next & 0xC0) == 0x80;
        character = (character << 6) | (next & 0x3F);
    }
    if (!whole) length = 1;
    return whole;
}

}  // namespace

bool IsUtf8(std::string_view bytes) {
    std::uint32_t character = 0;
    std::size_t length = 0;
    for (std::size_t at = 0; at < bytes.size(); at += length) {
        if (!NextCharacter(bytes, at, character, length)) return false;
    }
    return true;
}

std::string ShownToUtf8(std::string_view text) {
    std::string out;
    std::string asUtf8;
    bool holdsName = false;
    std::uint32_t character = 0;
    std::size_t length = 0;
    for (std::size_t at = 0; at < text.size(); at += length) {
        const bool whole = NextCharacter(text, at, character, length);
        const std::string_view piece = text.substr(at, length);
        holdsName = holdsName || (whole && length > 1 && ByteOf(character) == '?');
        AppendUtf8(piece, out);
        if (whole) {
            asUtf8 += piece;
        } else {
            AppendUtf8(piece, asUtf8);
        }
    }
    return holdsName ? asUtf8 : out;
}

std::string FromUtf8(std::string_view utf8) {
    std::string text;
    text.reserve(utf8.size());
    std::uint32_t character = 0;
    std::size_t length = 0;
    for (std::size_t at = 0; at < utf8.size(); at += length) {
        text += NextCharacter(utf8, at, character, length) ? ByteOf(character) : '?';
    }
    return text;
}

std::string WithoutControls(std::string_view utf8) {
    std::string text;
    std::uint32_t character = 0;
    std::size_t length = 0;
    for (std::size_t at = 0; at < utf8.size(); at += length) {
        if (!NextCharacter(utf8, at, character, length)) character = static_cast<unsigned char>(utf8[at]);
        const bool isControl = character < 0x20 || (character >= 0x7F && character < 0xA0);
        text += isControl ? std::string_view(".") : utf8.substr(at, length);
    }
    return text;
}

std::string NameFromSystem(std::string_view name) {
    std::string text = FromUtf8(name);
    return ToUtf8(text) == name ? text : std::string(name);
}

}  // namespace kvt
