#include <CLI/CLI.hpp>

#include "console/commands.h"
#include "files/folders.h"

namespace kvt {

int RunConsole(const std::vector<std::string>& words, const ConsoleOptions& options) {
    CLI::App app("Checks and formats programs of the Compact 5 CNC (MK2, MK4) and F1 CNC machines.", "kvtc");
    app.set_version_flag("--version", "kvtc " + std::to_string(VersionMajor) + "." +
                                          std::to_string(VersionMinor) + "." +
                                          std::to_string(VersionRevision));
    app.require_subcommand(1);

    bool json = false;
    std::vector<std::string> files;
    CLI::App* check = app.add_subcommand("check", "List each program as the control checks it");
    check->add_flag("--json", json, "The whole state of each file, one JSON object a line");
    check->add_option("FILE", files, "Program files")->required();

    std::string source;
    std::string target;
    CLI::App* format = app.add_subcommand("format", "Write a program back in the layout of its machine");
    format->add_option("FILE", source, "Program file")->required();
    format->add_option("-o", target, "File to write")->required();

    try {
        // The words are taken from the end of the list.
        std::vector<std::string> reversed(words.rbegin(), words.rend());
        app.parse(reversed);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return app.exit(error);
        std::fprintf(stderr, "kvtc: %s (kvtc --help tells the usage)\n", error.what());
        return status::Usage;
    }
    return check->parsed() ? Check(files, json, options) : FormatFile(source, target);
}

}  // namespace kvt
