#pragma once

#include <string>
#include <utility>
#include <vector>

namespace kvt {

// An option as the help of a program, its manual page and the completion of shells tell it.
struct UsageOption {
    std::string Names;  // "-o", or several of them: "-h,--help"
    std::string
        Value;  // the word for what it takes: FILE, OUT, PATH and PNG are files, FOLDER is one; empty for none
    std::string Text;
    std::vector<std::string> Choices;  // all that it takes, where they are few
};

struct UsageCommand {
    std::string Name;
    std::string Words;  // what follows it, "FILE..."
    std::string Text;
    std::vector<UsageOption> Options;
};

// What a program tells of itself. Texts are ASCII.
struct ProgramUsage {
    std::string Name;
    std::string Text;
    std::string Words;
    std::vector<UsageOption> Options;
    std::vector<UsageCommand> Commands;
    // What the manual page has besides: headings, and paragraphs parted by empty lines.
    std::vector<std::pair<std::string, std::string>> Sections;
};

// The window, kvt.
const ProgramUsage& WindowUsage();
// The pre-processor, iso2emco.
const ProgramUsage& PreProcessorUsage();

// What --help prints of a program without commands.
std::string HelpText(const ProgramUsage& usage);

}  // namespace kvt
