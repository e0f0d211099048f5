#pragma once

#include <array>
#include <string_view>

#include "basic/line_end.h"
#include "program/program_store.h"

// The text form of a program: fixed columns, lines ended by CR LF, three layouts by machine.
namespace kvt::cnc {

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

inline constexpr Span MK2UnitsMark{3, 1};
inline constexpr Span MK2Number{4, 2};
inline constexpr Span MK2Digits{8, 2};

inline constexpr Span Number{3, 3};
// The letter of the code, a blank for G, and its two digits.
inline constexpr Span Code{6, 3};
inline constexpr Span MK4H{27, 3};

// One parameter of a record: its column of the program, and where it stands. On MK4 and F1 the first character is the
// prefix, the others are digits.
struct Parameter {
    int Column;
    Span Place;
};
inline constexpr Parameter MK2Parameters[] = {
    {column::X, {12, 5}}, {column::Z, {19, 6}}, {column::F, {27, 3}}};
inline constexpr Parameter MK4Parameters[] = {
    {column::X, {10, 5}}, {column::Z, {16, 6}}, {column::F, {22, 4}}};
inline constexpr Parameter F1Parameters[] = {
    {column::X, {9, 6}}, {column::Y, {15, 5}}, {column::Z, {20, 6}}, {column::F, {26, 4}}};

inline constexpr Span Comment{31, 50};

}  // namespace kvt::cnc
