#pragma once

#include <optional>
#include <string>

#include "platform/services.h"
#include "program/machine.h"

namespace kvt {

// What a control has of a program that came to it.
struct ArrivedProgram {
    MachineModel Machine = MachineModel::MK4;
    int Lines = 0;
};

// Reads a file with what came, by a workbench of its own on services that nobody sees; none where it is no program.
std::optional<ArrivedProgram> ReadArrivedProgram(Services& aside, const std::string& file);

}  // namespace kvt
