#include <CLI/CLI.hpp>

#include "console/commands.h"
#include "console/script.h"
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

    const auto namesFile = [](const std::string& name) {
        return name.empty() ? std::string("-o names no file") : std::string();
    };
    std::string source;
    std::string target;
    CLI::App* format = app.add_subcommand("format", "Write a program back in the layout of its machine");
    format->add_option("FILE", source, "Program file")->required();
    format->add_option("-o", target, "File to write")->required()->check(namesFile);

    std::string moduleFile;
    CLI::App* language = app.add_subcommand("language", "Write a language module, ready to be translated");
    language->add_option("-o", moduleFile, "File to write")->required()->check(namesFile);

    std::string scriptFile;
    ScriptOptions scriptOptions;
    CLI::App* script = app.add_subcommand("script", "Run a script of user actions");
    script->add_option("FILE", scriptFile, "Script, - for standard input")->required();
    scriptOptions.Declare(*script);

    try {
        // The words are taken from the end of the list.
        std::vector<std::string> reversed(words.rbegin(), words.rend());
        app.parse(reversed);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return app.exit(error);
        std::fprintf(stderr, "kvtc: %s (kvtc --help tells the usage)\n", error.what());
        return status::Usage;
    }
    if (check->parsed()) return Check(files, json, options);
    if (format->parsed()) return FormatFile(source, target);
    if (language->parsed()) return WriteLanguageModule(moduleFile);
    return RunScript(scriptFile, scriptOptions);
}

}  // namespace kvt
