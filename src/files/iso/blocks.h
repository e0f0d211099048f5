#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "basic/failure.h"

namespace kvt::iso {

// Why a program cannot be converted. Line counts from 1; 0 for the program as a whole.
struct Refusal : Failure {
    Refusal(int line, std::string why) : Failure(std::move(why)), Line(line) {}

    int Line;
};

// One word of a block: its letter in upper case, its number, and the number as it was written.
struct Word {
    char Letter = 0;
    double Value = 0;
    std::string Text;
};

// One line of the program with anything in it.
struct Block {
    int Line = 0;
    std::vector<Word> Words;
    std::string Comment;
};

// Splits a program into blocks: words with or without blanks between them, comments in () and behind ;, line
// numbers, "%" and a "/" in front, which is passed over. Control characters of comments become blanks. What is no
// word is a Refusal.
std::vector<Block> ReadBlocks(std::string_view text);

}  // namespace kvt::iso
