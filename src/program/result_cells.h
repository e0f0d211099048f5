#pragma once

#include <string_view>

#include "program/program_store.h"

namespace kvt {

// What an empty cell of a result column holds: blanks of the column's width.
inline constexpr std::string_view BlankFinding = "               ";
inline constexpr std::string_view BlankLength = "      ";  // positions, centre and radius
inline constexpr std::string_view BlankAngle = "   ";
inline constexpr std::string_view BlankTime = "        ";

// Empties the result columns of a row, from the finding to the time.
void ClearResultCells(ListRow& row);

}  // namespace kvt
