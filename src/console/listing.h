#pragma once

#include <string>
#include <string_view>

#include "shell/workbench.h"

namespace kvt {

// A listing of a checked program for people, in UTF-8: machine and units on top, the columns in sight, each
// finding under its line, at the end lines, time, axes and what is wrong first. file is UTF-8.
std::string Listing(std::string_view file, const Workbench& workbench, bool colour);

// What is to be said of a checked program as a whole. Texts are UTF-8.
struct Verdict {
    int Findings = 0;         // lines with one
    bool Complete = false;    // the check reached the program's end
    std::string First;        // "N05: !..." of the first error, empty for none
    std::string Explanation;  // what is to be known about it, a few lines
    std::string Sentence;
};
Verdict VerdictOf(const Workbench& workbench);

// "Lathe Compact 5 CNC MK2"
std::string_view MachineName(const ProgramStore& store);

// Whether the last run has a finding: an error in a line, or too many lines.
bool HasFinding(const Workbench& workbench);

}  // namespace kvt
