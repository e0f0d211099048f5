#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kvt {

// Programs beside this one. No shell takes part.
class ProgramService {
public:
    virtual ~ProgramService() = default;
    // Starts a program with a command line, see SplitCommand. Gives a number by which it is named from then on.
    // No such program is error 53, one that cannot be started error 75.
    virtual int Start(std::string_view commandLine) = 0;
    // Whether it has ended; an unknown number has.
    virtual bool HasEnded(int program) = 0;
    // Ends it, and what it has started, without asking.
    virtual void End(int program) = 0;
    // Starts a program of the desktop by its plain name and leaves it alone. False where the machine has none of
    // this name.
    virtual bool Launch(std::string_view name) = 0;
};

struct Command {
    std::string Program;
    std::vector<std::string> Arguments;
};

// Splits a command line. Nothing in it is quoted: the program is the shortest beginning up to a blank that names
// one, the rest are its arguments, split at blanks. Without a program its name is empty.
Command SplitCommand(std::string_view commandLine,
                     const std::function<bool(const std::string& path)>& isProgram);

}  // namespace kvt
