#include "program/result_cells.h"

namespace kvt {

void ClearResultCells(ListRow& row) {
    row[column::Error] = BlankFinding;
    for (int c = column::ToolX; c <= column::Radius; ++c) row[c] = BlankLength;
    row[column::Angle] = BlankAngle;
    row[column::Time] = BlankTime;
}

}  // namespace kvt
