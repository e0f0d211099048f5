#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "program/machine.h"

namespace kvt::iso {

// One line of the machine's program. Numbers are whole: 1/100 mm or 1/1000 inch, X of a lathe a diameter.
struct Row {
    std::string Code;                              // two digits, or M and two digits
    std::array<std::optional<int>, 4> Parameters;  // X, Y, Z and F, or I, J, K, or D, S, Z and T
    std::string Comment;
    int Line = 0;  // of the program it was made from
};

struct MachineProgram {
    MachineModel Machine = MachineModel::MK4;
    bool Metric = true;
    std::vector<std::string> Notes;
    std::vector<Row> Rows;
};

// The whole file in the machine's columns, lines ended by CR LF.
std::string FileText(const MachineProgram& program);

}  // namespace kvt::iso
