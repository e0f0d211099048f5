#include "platform/programs.h"

#include "basic/text.h"

namespace kvt {

Command SplitCommand(std::string_view commandLine,
                     const std::function<bool(const std::string& path)>& isProgram) {
    Command command;
    std::size_t end = 0;
    do {
        end = std::min(commandLine.find(' ', end + 1), commandLine.size());
        std::string beginning(commandLine.substr(0, end));
        if (!isProgram(beginning)) continue;
        command.Program = std::move(beginning);
        command.Arguments = commandLine.substr(std::min(end + 1, commandLine.size()));
        break;
    } while (end < commandLine.size());
    return command;
}

std::vector<std::string> WordsOf(std::string_view text) {
    std::vector<std::string> words;
    for (const std::string_view word : Split(text, " ")) {
        if (!word.empty()) words.emplace_back(word);
    }
    return words;
}

}  // namespace kvt
