#include "console/script.h"

#include <CLI/CLI.hpp>
#include <cstdio>

#include "basic/code_page.h"
#include "console/loaded_file.h"
#include "console/script_run.h"

namespace kvt {

namespace {

constexpr std::string_view optionsMark = "# options:";

std::string ReadStandardInput() {
    std::string text;
    char piece[4096];
    for (std::size_t size = 0; (size = std::fread(piece, 1, sizeof piece, stdin)) > 0;)
        text.append(piece, size);
    return text;
}

std::string ReadScript(const std::string& file) {
    if (file == "-") return ReadStandardInput();
    return DiskFiles().ReadWhole(NameFromSystem(file));
}

// The words behind "# options:" in the comments at the top.
std::vector<std::string> OptionWords(std::string_view script) {
    if (script.substr(0, 3) == "\xEF\xBB\xBF") script.remove_prefix(3);
    std::vector<std::string> words;
    while (script.substr(0, 1) == "#") {
        const std::size_t end = std::min(script.find('\n'), script.size());
        std::string_view line = script.substr(0, end);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        if (line.substr(0, optionsMark.size()) == optionsMark) {
            line.remove_prefix(optionsMark.size());
            for (std::string_view word = NextWord(line); !word.empty(); word = NextWord(line))
                words.emplace_back(word);
        }
        script.remove_prefix(std::min(end + 1, script.size()));
    }
    return words;
}

// Those of the script, and over them those of the call.
ScriptOptions Merged(ScriptOptions own, const ScriptOptions& call) {
    if (!call.Data.empty()) own.Data = call.Data;
    if (!call.Screen.empty()) own.Screen = call.Screen;
    if (!call.Ports.empty()) own.Ports = call.Ports;
    if (!call.WorkArea.empty()) own.WorkArea = call.WorkArea;
    own.NoPrinter = own.NoPrinter || call.NoPrinter;
    own.Writes = call.Writes;
    if (!call.Data.empty()) own.Writes.push_back(call.Data);
    return own;
}

}  // namespace

void ScriptOptions::Declare(CLI::App& app) {
    app.add_option("--data", Data, "What stands for the user's local application data folder")
        ->type_name("FOLDER");
    app.add_option("--screen", Screen, "Width and height of the screen in twips")
        ->type_name("N")
        ->expected(2);
    app.add_option("--workarea", WorkArea, "Height of the work area in twips")->type_name("N")->expected(1);
    app.add_option("--ports", Ports, "How many serial ports open, 0 to 4")
        ->type_name("N")
        ->expected(1)
        ->check(CLI::Range(0, PortCount));
    app.add_option("--writes", Writes, "A folder that the script may write in; can be given several times")
        ->type_name("FOLDER")
        ->expected(1)
        ->take_all()
        ->check(CLI::ExistingDirectory);
    app.add_flag("--no-printer", NoPrinter, "A machine without a printer");
}

int RunScript(const std::string& file, const ScriptOptions& options) {
    try {
        const std::string script = ReadScript(file);
        ScriptOptions own;
        CLI::App parser;
        own.Declare(parser);
        const std::vector<std::string> words = OptionWords(script);
        parser.parse(std::vector<std::string>(words.rbegin(), words.rend()));
        if (!own.Writes.empty()) throw ScriptError{"--writes can only stand in the call"};
        return ScriptRun(file, script, Merged(own, options)).Run();
    } catch (const RunTimeError& error) {
        return Complain(file, error.Number == fault::FileNotFound ? "no such file" : "cannot be read");
    } catch (const std::exception& error) {
        return Complain(file, error.what());
    }
}

}  // namespace kvt
