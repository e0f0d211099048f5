#pragma once

#include "program/program_store.h"

namespace kvt {

// The result cells as a new row has them before the check pass fills them. Those of Y stay as they are.
inline void BlankResultCells(ListRow& row) {
    row[column::Error] = "";
    for (const int c : {column::ToolX, column::ToolZ, column::CenterX, column::CenterZ, column::Radius}) {
        row[c] = "      ";
    }
    row[column::Angle] = "   ";
    row[column::Time] = "        ";
}

}  // namespace kvt
