#pragma once

#include <string>

#include "platform/list_view.h"

namespace kvt {

// The number of the line in a row, as the list shows it: "05".
std::string LineNumber(int row);

// What stands in a line, as one reads it: "G01 X1000 Z-500 F100 rough".
std::string LineText(const ListRow& row);

}  // namespace kvt
