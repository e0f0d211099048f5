#include <CLI/CLI.hpp>

#include "basic/code_page.h"
#include "basic/installation.h"
#include "basic/number.h"
#include "basic/text.h"
#include "console/command_line.h"
#include "console/commands.h"
#include "console/drawing.h"
#include "console/report.h"
#include "console/script.h"
#include "console/serial_commands.h"
#include "console/watch.h"

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

std::string NamesFile(const std::string& name) {
    return name.empty() ? std::string("names no file") : std::string();
}

std::vector<std::string> MachineNames() {
    std::vector<std::string> names;
    for (const MachineFacts& machine : Machines()) names.emplace_back(machine.Name);
    return names;
}

// The command line with all that it fills.
struct CommandLine {
    CommandLine();
    int Run(const ConsoleOptions& options) const;

    CLI::App App{"Checks and formats programs of the Compact 5 CNC (MK2, MK4) and F1 CNC machines.", "kvtc"};

private:
    void DeclareCheck();
    void DeclareDraw();
    void DeclareFiles();
    void DeclareSerial();
    void DeclareMachine();

    CLI::App *check_, *watch_, *draw_, *format_, *language_, *script_, *send_, *receive_, *machine_;
    std::vector<std::string> files_;
    bool json_ = false;
    std::string report_;
    std::string folder_;
    std::string source_;
    std::string target_;
    std::string moduleFile_;
    std::string picture_;
    std::string scriptFile_;
    ScriptOptions scriptOptions_;
    SerialOptions serial_;
    MachineOptions played_;
};

CommandLine::CommandLine() {
    App.set_version_flag("--version", "kvtc " + VersionText(), "Print the version and end");
    App.set_help_flag("-h,--help", "Print this help and end");
    App.require_subcommand(1);
    DeclareCheck();
    DeclareFiles();
    DeclareDraw();
    script_ = App.add_subcommand("script", "Run a script of user actions");
    script_->add_option("FILE", scriptFile_, "Script, - for standard input")->required();
    scriptOptions_.Declare(*script_);
    DeclareSerial();
    DeclareMachine();
}

void CommandLine::DeclareCheck() {
    check_ = App.add_subcommand("check", "List each program as the control checks it");
    check_->add_option("FILE", files_, "Program files")->required();
    CLI::Option* const page =
        check_->add_option("--report", report_, "Write one page about all programs instead, in HTML")
            ->type_name("OUT")
            ->check(NamesFile);
    check_->add_flag("--json", json_, "The whole state of each file, one JSON object a line")->excludes(page);
    watch_ = App.add_subcommand("watch", "Check each program of a folder as it is saved, until Ctrl+C");
    watch_->add_option("FOLDER", folder_, "The folder")->required();
}

void CommandLine::DeclareFiles() {
    format_ = App.add_subcommand("format", "Write a program back in the layout of its machine");
    format_->add_option("FILE", source_, "Program file")->required();
    format_->add_option("-o", target_, "File to write")->required()->type_name("OUT")->check(NamesFile);
    language_ = App.add_subcommand("language", "Write a language module, ready to be translated");
    language_->add_option("-o", moduleFile_, "File to write")->required()->type_name("OUT")->check(NamesFile);
}

void CommandLine::DeclareDraw() {
    draw_ = App.add_subcommand("draw", "Draw the tool path");
    draw_->add_option("FILE", files_, "Program file; several with --json")->required();
    CLI::Option* const picture =
        draw_->add_option("-o", picture_, "Picture to write: .svg, .pdf, .png or .bmp")->type_name("OUT");
    draw_->add_flag("--json", json_, "The drawing operations of each file, one array a line")
        ->excludes(picture);
}

void CommandLine::DeclareSerial() {
    send_ = App.add_subcommand("send", "Send a program to the machine");
    send_->add_option("FILE", serial_.File, "Program file")->required();
    receive_ = App.add_subcommand("receive", "Take in what the machine sends, until Ctrl+C");
    receive_->add_option("OUT", serial_.File, "File to write")->required();
    for (CLI::App* one : {send_, receive_}) {
        one->add_option("--port", serial_.Port, "Device of the serial port")->required()->type_name("PATH");
        one->add_option("--settings", serial_.Settings, "Baud, parity, data bits, stop bits: 300,N,8,1")
            ->type_name("SETTINGS")
            ->check(IsSettings);
    }
    send_->add_flag("--comments", serial_.WithComments, "Send notes and comments too");
    receive_->add_option("--idle", serial_.Idle, "End after so many seconds without a character")
        ->type_name("SECONDS")
        ->check(AtLeastNone("seconds"));
}

void CommandLine::DeclareMachine() {
    machine_ = App.add_subcommand("machine", "Play the machine at the other end of the line");
    machine_->add_option("--machine", played_.Machine, "MK2, MK4 or F1")
        ->type_name("NAME")
        ->check(CLI::IsMember(MachineNames(), CLI::ignore_case));
    machine_->add_option("--baud", played_.Baud, "Characters pass at this rate")
        ->type_name("N")
        ->check(CLI::Range(110, 115200));
    machine_->add_option("--port", played_.Port, "Device; without one a pseudo-terminal is made")
        ->type_name("PATH");
    machine_->add_option("--send", played_.Send, "Program file to send")->type_name("FILE");
    machine_->add_option("--receive", played_.Receive, "File for what arrives")->type_name("OUT");
    machine_->add_option("--drop-after", played_.DropAfter, "Drop the line after so many characters")
        ->type_name("N")
        ->check(AtLeastNone("characters"));
}

int CommandLine::Run(const ConsoleOptions& options) const {
    if (check_->parsed()) return report_.empty() ? Check(files_, json_, options) : Report(files_, report_);
    if (watch_->parsed()) return Watch(folder_, options);
    if (draw_->parsed()) {
        if (json_) return DrawAsJson(files_);
        if (!picture_.empty() && files_.size() == 1) return DrawPicture(files_.front(), picture_);
        std::fprintf(stderr, "kvtc: draw takes one FILE and -o OUT, or --json and files\n");
        return status::Usage;
    }
    if (format_->parsed()) return FormatFile(source_, target_);
    if (send_->parsed()) return SendFile(serial_);
    if (receive_->parsed()) return ReceiveFile(serial_);
    if (machine_->parsed()) return PlayMachine(played_);
    if (language_->parsed()) return WriteLanguageModule(moduleFile_);
    return RunScript(scriptFile_, scriptOptions_);
}

// "NAME:{MK2,MK4,F1}" has a word and choices, "INT in [1 - 2]" a word.
UsageOption OptionAsUsage(const CLI::Option& option) {
    UsageOption usage;
    for (const std::string& name : option.get_snames())
        usage.Names += (usage.Names.empty() ? "-" : ",-") + name;
    for (const std::string& name : option.get_lnames())
        usage.Names += (usage.Names.empty() ? "--" : ",--") + name;
    usage.Text = option.get_description();
    if (option.get_items_expected_max() == 0) return usage;
    const std::string kind = option.get_type_name();
    usage.Value = kind.substr(0, kind.find(':'));
    const std::size_t opened = kind.find('{');
    if (opened == std::string::npos) return usage;
    const std::string choices = kind.substr(opened + 1, kind.find('}') - opened - 1);
    for (const std::string_view one : Split(choices, ",")) usage.Choices.emplace_back(one);
    return usage;
}

// Options of an app, and the words without one.
std::vector<UsageOption> OptionsOf(const CLI::App& app, std::string& words) {
    std::vector<UsageOption> options;
    for (const CLI::Option* option : app.get_options()) {
        if (option->get_positional()) {
            words += (words.empty() ? "" : " ") + option->get_name();
            words += option->get_items_expected_max() > 1 ? "..." : "";
        } else if (!app.get_parent() || option != app.get_help_ptr()) {
            options.push_back(OptionAsUsage(*option));
        }
    }
    return options;
}

}  // namespace

ProgramUsage ConsoleUsage() {
    const CommandLine line;
    ProgramUsage usage;
    usage.Name = line.App.get_name();
    usage.Text = line.App.get_description();
    usage.Words = "COMMAND";
    usage.Options = OptionsOf(line.App, usage.Words);
    for (const CLI::App* command : line.App.get_subcommands({})) {
        UsageCommand& one = usage.Commands.emplace_back();
        one.Name = command->get_name();
        one.Text = command->get_description();
        one.Options = OptionsOf(*command, one.Words);
    }
    usage.Sections = {
        {"EXIT STATUS",
         "0: all is well. 1: a program has an error, an expectation of a script failed, or a transfer was "
         "stopped. "
         "2: wrong usage, or a file that cannot be read, written or recognised."},
        {"ENVIRONMENT", "NO_COLOR: with any value nothing is coloured."},
        {"NOTES",
         "A name that begins with - stands behind --. The whole manual is console.md of the documents."}};
    return usage;
}

int RunConsole(const std::vector<std::string>& words, const ConsoleOptions& options) {
    CommandLine line;
    try {
        // The words are taken from the end of the list.
        std::vector<std::string> reversed(words.rbegin(), words.rend());
        line.App.parse(reversed);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return line.App.exit(error);
        const std::string told = WithoutControls(error.what());
        std::fprintf(stderr, "kvtc: %s (kvtc --help tells the usage)\n", told.c_str());
        return status::Usage;
    }
    return line.Run(options);
}

}  // namespace kvt
