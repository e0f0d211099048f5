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
