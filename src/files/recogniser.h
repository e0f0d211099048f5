#pragma once

#include <cstddef>
#include <string_view>

#include "program/machine.h"

namespace kvt {

enum class FileKind { Unknown, Program, Language };

struct Recognised {
    FileKind Kind = FileKind::Unknown;
    MachineModel Machine = MachineModel::MK4;  // of a program
    std::size_t Position = 0;                  // of the mark, counted from 1
    bool WithoutComments = false;              // MK4 alone: notes and comments are not to be taken over
};

// Looks for the marks anywhere in the text, case ignored: MK2, then MK4, then F1, then a language module.
Recognised Recognise(std::string_view text);

}  // namespace kvt
