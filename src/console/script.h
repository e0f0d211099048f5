#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace kvt {

// What surrounds a script. What was not given is empty.
struct ScriptOptions {
    std::string Data;         // in place of the user's local application data; a folder of the run without it
    std::vector<int> Screen;  // width and height in twips
    std::vector<int> WorkArea;  // height in twips
    std::vector<int> Ports;     // how many serial ports open
    bool NoPrinter = false;     // a machine without a printer
    // Folders that may be written in besides those of the run: the call's own Data and what it names.
    std::vector<std::string> Writes;

    // Declares the options of the command line, which fill this object.
    void Declare(CLI::App& app);
};

// Runs a script of user actions, "-" for standard input. Options in the script itself are used where
// the call has none. Gives the exit status.
int RunScript(const std::string& file, const ScriptOptions& options);

}  // namespace kvt
