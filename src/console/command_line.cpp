#include <CLI/CLI.hpp>

#include "basic/code_page.h"
#include "basic/number.h"
#include "console/commands.h"
#include "console/drawing.h"
#include "console/script.h"
#include "console/serial_commands.h"
#include "files/folders.h"

namespace kvt {

namespace {

std::string IsSettings(const std::string& text) {
    try {
        ParseLineSettings(text);
        return {};
    } catch (const RunTimeError&) {
        return text + " are no settings of a serial line";
    }
}

// A check of a number that may not be below 0, told in plain words.
auto AtLeastNone(const char* what) {
    return [what](const std::string& text) {
        const std::string bound = std::string("takes 0 ") + what + " or more, not " + text;
        return IsNumeric(text) && Val(text) >= 0 ? std::string() : bound;
    };
}

std::vector<std::string> MachineNames() {
    std::vector<std::string> names;
    for (const MachineFacts& machine : Machines()) names.emplace_back(machine.Name);
    return names;
}

}  // namespace

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

    std::vector<std::string> drawn;
    std::string picture;
    bool operations = false;
    CLI::App* draw = app.add_subcommand("draw", "Draw the tool path");
    draw->add_option("FILE", drawn, "Program file; several with --json")->required();
    CLI::Option* const pictureOption =
        draw->add_option("-o", picture, "Picture to write: .svg, .pdf, .png or .bmp");
    draw->add_flag("--json", operations, "The drawing operations of each file, one array a line")
        ->excludes(pictureOption);

    std::string scriptFile;
    ScriptOptions scriptOptions;
    CLI::App* script = app.add_subcommand("script", "Run a script of user actions");
    script->add_option("FILE", scriptFile, "Script, - for standard input")->required();
    scriptOptions.Declare(*script);

    SerialOptions serial;
    CLI::App* send = app.add_subcommand("send", "Send a program to the machine");
    send->add_option("FILE", serial.File, "Program file")->required();
    CLI::App* receive = app.add_subcommand("receive", "Take in what the machine sends, until Ctrl+C");
    receive->add_option("OUT", serial.File, "File to write")->required();
    for (CLI::App* one : {send, receive}) {
        one->add_option("--port", serial.Port, "Device of the serial port")->required();
        one->add_option("--settings", serial.Settings, "Baud, parity, data bits, stop bits: 300,N,8,1")
            ->check(IsSettings);
    }
    send->add_flag("--comments", serial.WithComments, "Send notes and comments too");
    receive->add_option("--idle", serial.Idle, "End after so many seconds without a character")
        ->check(AtLeastNone("seconds"));

    MachineOptions played;
    CLI::App* machine = app.add_subcommand("machine", "Play the machine at the other end of the line");
    machine->add_option("--machine", played.Machine, "MK2, MK4 or F1")
        ->check(CLI::IsMember(MachineNames(), CLI::ignore_case));
    machine->add_option("--baud", played.Baud, "Characters pass at this rate")
        ->check(CLI::Range(110, 115200));
    machine->add_option("--port", played.Port, "Device; without one a pseudo-terminal is made");
    machine->add_option("--send", played.Send, "Program file to send");
    machine->add_option("--receive", played.Receive, "File for what arrives");
    machine->add_option("--drop-after", played.DropAfter, "Drop the line after so many characters")
        ->check(AtLeastNone("characters"));

    try {
        // The words are taken from the end of the list.
        std::vector<std::string> reversed(words.rbegin(), words.rend());
        app.parse(reversed);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return app.exit(error);
        const std::string told = WithoutControls(error.what());
        std::fprintf(stderr, "kvtc: %s (kvtc --help tells the usage)\n", told.c_str());
        return status::Usage;
    }
    if (check->parsed()) return Check(files, json, options);
    if (draw->parsed()) {
        if (operations) return DrawAsJson(drawn);
        if (!picture.empty() && drawn.size() == 1) return DrawPicture(drawn.front(), picture);
        std::fprintf(stderr, "kvtc: draw takes one FILE and -o OUT, or --json and files\n");
        return status::Usage;
    }
    if (format->parsed()) return FormatFile(source, target);
    if (send->parsed()) return SendFile(serial);
    if (receive->parsed()) return ReceiveFile(serial);
    if (machine->parsed()) return PlayMachine(played);
    if (language->parsed()) return WriteLanguageModule(moduleFile);
    return RunScript(scriptFile, scriptOptions);
}

}  // namespace kvt
