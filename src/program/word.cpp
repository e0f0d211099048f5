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

}  // namespace

// Cells hold blanks and then digits: these are read here, any other text by Val.
Word ReadWord(const Cell& cell) {
    constexpr std::size_t mostCharacters = 9;  // of which no number is too large
    const std::string_view text = cell.View();
    if (text.empty() || text.size() > mostCharacters) return ReadWord(text);
    const bool letter = IsWordLetter(text[0]);
    const bool negative = text[0] == '-';
    std::size_t at = letter || negative ? 1 : 0;
    while (at < text.size() && text[at] == ' ') ++at;
    std::int32_t value = 0;
    for (; at < text.size(); ++at) {
        if (text[at] < '0' || text[at] > '9') return ReadWord(text);
        value = value * 10 + (text[at] - '0');
    }
    Word word;
    word.Value = negative ? -value : value;
    if (letter) {
        word.Letter = text[0];
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
