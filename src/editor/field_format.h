#pragma once

#include <cstddef>
#include <cstdint>

#include "program/program_store.h"

namespace kvt {

// How a parameter field is written into its column of the program: a sign or a letter, then so many digits.
struct FieldFormat {
    int Column;
    const char* Pattern;
    std::size_t LatheDigits;
    std::size_t MillDigits;

    std::size_t Digits(bool mill) const { return mill ? MillDigits : LatheDigits; }
    // The largest number that the digits hold.
    std::int32_t Largest(bool mill) const {
        std::int32_t power = 1;
        for (std::size_t i = 0; i < Digits(mill); ++i) power *= 10;
        return power - 1;
    }
};

// In the order of the chain. H has no sign place; on the mill it stands in the column of F, which it fills.
inline constexpr FieldFormat FieldFormats[] = {{column::X, "##00", 4, 5},
                                               {column::Y, "###00", 4, 4},
                                               {column::Z, "###00", 5, 5},
                                               {column::F, "#00", 3, 3},
                                               {column::H, "#00", 3, 4}};

// Whether a cell keeps the sign of a field that this letter stands for. A letter in its place drops it, and feeds have
// none.
constexpr bool HasSignPlace(char letter) { return letter == 'X' || letter == 'Y' || letter == 'Z'; }

}  // namespace kvt
