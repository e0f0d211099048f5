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
    // Starts a program with a command line, see SplitCommand, and with the name of a file in the variable KVT_FILE.
    // Gives a number by which it is named from then on. No such program is error 53, one that cannot be started
    // error 75.
    virtual int Start(std::string_view commandLine, std::string_view file) = 0;
    // Whether it has ended; an unknown number has.
    virtual bool HasEnded(int program) = 0;
    // Whether one that has ended did not do so by itself, but was cut off by the system.
    virtual bool WasCutOff(int program) = 0;
    // Ends it, and what it has started, without asking.
    virtual void End(int program) = 0;
    // Starts a program of the desktop by its plain name and leaves it alone. False where the machine has none of
    // this name.
    virtual bool Launch(std::string_view name) = 0;
};

struct Command {
    std::string Program;
    std::string Arguments;
};

// Splits a command line. Nothing in it is quoted: the program is the shortest beginning up to a blank that names
// one, and the rest is what follows that blank. Without a program its name is empty.
Command SplitCommand(std::string_view commandLine,
                     const std::function<bool(const std::string& path)>& isProgram);

// The words between the blanks of a text, as a program gets them for arguments.
std::vector<std::string> WordsOf(std::string_view text);

// The variable of the environment by which a pre-processor gets the name of its file whole.
inline constexpr const char* FileVariable = "KVT_FILE";

}  // namespace kvt
