#pragma once

#include <cstddef>
#include <string_view>

namespace kvt {

enum class FileKind { Unknown, MK2, MK4, F1, Language };

struct Recognised {
    FileKind Kind = FileKind::Unknown;
    std::size_t Position = 0;      // of the mark, counted from 1
    bool WithoutComments = false;  // MK4 alone: notes and comments are not to be taken over
};

// Looks for the marks anywhere in the text, case ignored: MK2, then MK4, then F1, then a language module.
Recognised Recognise(std::string_view text);

}  // namespace kvt
