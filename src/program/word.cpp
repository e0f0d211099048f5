#include "program/word.h"

#include "basic/number.h"
#include "basic/text.h"

namespace kvt {

namespace {

constexpr bool IsWordLetter(char c) {
    switch (UpperChar(c)) {
        case 'M':
        case 'I':
        case 'J':
        case 'K':
        case 'T':
        case 'L':
        case 'D':
        case 'S': return true;
        default: return false;
    }
}

// The number of eight characters that are blanks and then digits up to the end, the first character lowest;
// false for any others. All eight are looked at together: the pass reads ten cells for every row.
bool EightCharacters(std::uint64_t characters, std::int32_t& value) {
    constexpr std::uint64_t each = 0x0101010101010101;
    const std::uint64_t digits = characters ^ (each * 0x30);
    // 0xFF in every byte that is no digit; these must be the first ones, and blank.
    const std::uint64_t above9 = (((digits & (each * 0x7F)) + each * 0x76) | digits) & (each * 0x80);
    const std::uint64_t others = (above9 >> 7) * 0xFF;
    if ((others & (others + 1)) != 0 || ((characters ^ each * ' ') & others) != 0) return false;
    // Pairs, then fours and eights, by multiplication.
    const std::uint64_t single = digits & ~others;
    const std::uint64_t pairs = single * 10 + (single >> 8);
    constexpr std::uint64_t pairMask = 0x000000FF000000FF;
    const std::uint64_t all =
        (pairs & pairMask) * 0x000F424000000064 + (pairs >> 16 & pairMask) * 0x0000271000000001;
    value = static_cast<std::int32_t>(all >> 32);
    return true;
}

}  // namespace

Word ReadWord(const Cell& cell) {
    const std::size_t size = cell.Size();
    if (size == 0) return {};
    if (size > 8) return ReadWord(cell.View());
    // The text moved up to the end of the word: what stood behind it falls off, blanks stand in front of it.
    constexpr std::uint64_t blanks = 0x2020202020202020;
    const std::size_t shift = 8 * (8 - size);
    std::uint64_t characters = cell.FirstEight() << shift | (shift == 0 ? 0 : blanks >> (64 - shift));
    const char first = static_cast<char>(characters >> shift & 0xFF);
    Word word;
    const bool negative = first == '-';
    const bool letter = IsWordLetter(first);
    // A sign or a letter counts as a blank from here on.
    if (letter || negative) characters ^= static_cast<std::uint64_t>(first ^ ' ') << shift;
    if (!EightCharacters(characters, word.Value)) return ReadWord(cell.View());
    if (negative) word.Value = -word.Value;
    if (letter) {
        word.Letter = first;
    } else {
        word.Number = word.Value;
    }
    return word;
}

Word ReadWord(std::string_view cell) {
    Word word;
    if (!cell.empty() && IsWordLetter(cell[0])) {
        word.Letter = cell[0];
        word.Value = ToLong(Val(cell.substr(1)));
    } else {
        word.Number = Val(cell);
        word.Value = ToLong(word.Number);
    }
    return word;
}

void WordVal(std::string_view word, std::string& letter, std::int32_t& value) {
    const Word read = ReadWord(word);
    letter.assign(read.Letter == 0 ? 0 : 1, read.Letter);
    value = read.Value;
}

}  // namespace kvt
