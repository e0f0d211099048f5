#pragma once

#include <string>
#include <vector>

namespace kvt {

// Exit status of every command.
namespace status {
inline constexpr int Succeeded = 0;
inline constexpr int Finding = 1;  // the program has an error
inline constexpr int Usage = 2;    // wrong usage, or a file that cannot be read or recognised
}  // namespace status

// What the surroundings tell the console: whether standard output is a terminal that shows colours.
struct ConsoleOptions {
    bool Colour = false;
};

// The whole program: reads the words behind the program's name and gives the exit status.
int RunConsole(const std::vector<std::string>& words, const ConsoleOptions& options);

// A listing (or with json the state, one object a line) of each file. The worst status of all files.
int Check(const std::vector<std::string>& files, bool json, const ConsoleOptions& options);

// Writes a language module with the program's own texts.
int WriteLanguageModule(const std::string& out);

// Loads a file and writes it back in the layout of its machine.
int FormatFile(const std::string& file, const std::string& out);

}  // namespace kvt
