#pragma once

#include <string>

#include "shell/program_usage.h"

namespace kvt {

// The manual page of a program, section 1, in the language of man.
std::string ManualPage(const ProgramUsage& usage);

// What completes the program's command line in bash: commands, options, choices and names of files.
std::string BashCompletion(const ProgramUsage& usage);

// Writes the manual pages and completions of all programs into man1/ and completions/ of a folder.
int MakeManual(const std::string& target);

}  // namespace kvt
