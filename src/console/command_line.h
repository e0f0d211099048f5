#pragma once

#include "shell/program_usage.h"

namespace kvt {

// What kvtc tells of itself, from the tables by which it reads its command line.
ProgramUsage ConsoleUsage();

}  // namespace kvt
