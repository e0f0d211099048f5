#pragma once

#include <array>
#include <string_view>

#include "program/code_key.h"

// The text form of a program: fixed columns, lines ended by CR LF, three layouts by machine.
namespace kvt::cnc {

inline constexpr std::string_view LineEnd = "\r\n";
inline constexpr std::string_view NotesEnd = "%";

// What a text is recognised by, anywhere in it, case ignored.
inline constexpr std::string_view MarkMK2 = "   N00 G";
inline constexpr std::string_view MarkMK4 = "    N` G`   X `    Z";
inline constexpr std::string_view MarkF1 = "    N` G`  X  `  Y `   Z";
inline constexpr std::string_view MarkLanguage = "[Kestrel Vise Toolkit, Language Resource]";
// A program whose notes and comments are not to be taken over.
inline constexpr std::string_view MarkWithoutComments = "%!*";

inline constexpr std::string_view HeaderMK4 = "    N` G`   X `    Z `  F`  H ";
inline constexpr std::string_view HeaderF1 = "    N` G`  X  `  Y `   Z ` F  ";

// A line is padded to this length or cut; a record is its beginning.
inline constexpr std::size_t BufferLength = 85;
inline constexpr std::size_t RecordLength = 81;

// A field of a record: position from 0, and length.
struct Span {
    std::size_t At;
    std::size_t Length;
};

// One parameter of a record: its prefix character and its digits.
struct Parameter {
    Span Prefix;
    Span Digits;
};

inline constexpr Span MK2UnitsMark{3, 1};
inline constexpr Span MK2Number{4, 2};
inline constexpr Span MK2Digits{8, 2};
inline constexpr Parameter MK2First{{12, 1}, {13, 4}};
inline constexpr Parameter MK2Third{{19, 1}, {20, 5}};
inline constexpr Span MK2Fourth{27, 3};

inline constexpr Span Number{3, 3};
inline constexpr Span Letter{6, 1};
inline constexpr Span Digits{7, 2};
inline constexpr Parameter MK4First{{10, 1}, {11, 4}};
inline constexpr Parameter MK4Third{{16, 1}, {17, 5}};
inline constexpr Parameter MK4Fourth{{22, 1}, {23, 3}};
inline constexpr Span MK4Fifth{27, 3};
inline constexpr Parameter F1First{{9, 1}, {10, 5}};
inline constexpr Parameter F1Second{{15, 1}, {16, 4}};
inline constexpr Parameter F1Third{{20, 1}, {21, 5}};
inline constexpr Parameter F1Fourth{{26, 1}, {27, 3}};

inline constexpr Span Comment{31, 50};

}  // namespace kvt::cnc
