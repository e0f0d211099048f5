#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/cell.h"

namespace kvt {

// A parameter cell, read both ways that the control's rules ask for.
struct Word {
    char Letter = 0;         // the prefix letter as it is, 0 for none
    std::int32_t Value = 0;  // the whole number behind the letter, or of the whole cell
    double Number = 0;       // the whole cell as a number; 0 behind a letter
};

// Splits a cell as WordVal does. A number past the 32-bit range is error 6.
Word ReadWord(const Cell& cell);
Word ReadWord(std::string_view cell);

// If the first character of word is one of M, I, J, K, T, L, D, S (case ignored), letter receives it and value
// the rest as a whole number. Otherwise letter is empty and value the whole cell. 0 for nothing numeric.
void WordVal(std::string_view word, std::string& letter, std::int32_t& value);

}  // namespace kvt
