#include "console/manual.h"

#include <algorithm>
#include <cctype>

#include "basic/code_page.h"
#include "basic/installation.h"
#include "basic/text.h"
#include "console/command_line.h"
#include "system/disk_files.h"

namespace kvt {

namespace {

// A text that man takes for nothing but text.
std::string Plain(std::string_view text) {
    std::string plain;
    for (const char c : text) {
        if (c == '-') {
            plain += "\\-";
        } else if (c == '\\') {
            plain += "\\e";
        } else {
            plain += c;
        }
    }
    // A line that begins so would be a command of man.
    return plain.empty() || (plain[0] != '.' && plain[0] != '\'') ? plain : "\\&" + plain;
}

std::string Paragraphs(const std::string& text) {
    std::string paragraphs;
    for (const std::string_view one : Split(text, "\n\n"))
        paragraphs += (paragraphs.empty() ? "" : ".PP\n") + Plain(one) + "\n";
    return paragraphs;
}

// "-o OUT" with its names in bold and what it takes in italics.
std::string HeadOf(const UsageOption& option) {
    const std::string value = option.Value.empty() ? std::string() : " \\fI" + Plain(option.Value) + "\\fR";
    return "\\fB" + Replace(Plain(option.Names), ",", "\\fR, \\fB") + "\\fR" + value;
}

std::string OptionList(const std::vector<UsageOption>& options) {
    std::string text;
    for (const UsageOption& option : options)
        text += ".TP\n" + HeadOf(option) + "\n" + Plain(option.Text) + ".\n";
    return text;
}

std::string Section(const std::string& heading, const std::string& body) {
    return ".SH " + heading + "\n" + body;
}

std::vector<std::string> NamesOf(const std::vector<UsageOption>& options) {
    std::vector<std::string> names;
    for (const UsageOption& option : options) {
        for (const std::string_view name : Split(option.Names, ",")) names.emplace_back(name);
    }
    return names;
}

std::string Joined(const std::vector<std::string>& words, const char* between) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : between) + word;
    return text;
}

// What the shell does for a word of a kind. Names of files are never taken apart or evaluated.
std::string ActionFor(const UsageOption& option) {
    if (!option.Choices.empty())
        return "mapfile -t COMPREPLY < <(compgen -W '" + Joined(option.Choices, " ") + "' -- \"$word\")";
    if (option.Value == "FOLDER")
        return "compopt -o filenames; mapfile -t COMPREPLY < <(compgen -d -- \"$word\")";
    for (const char* file : {"FILE", "OUT", "PATH", "PNG"}) {
        if (option.Value == file)
            return "compopt -o filenames; mapfile -t COMPREPLY < <(compgen -f -- \"$word\")";
    }
    return ":";
}

// The cases of the options of a command that take something.
std::string ValueCases(const std::string& command, const std::vector<UsageOption>& options) {
    std::string cases;
    for (const UsageOption& option : options) {
        if (option.Value.empty()) continue;
        std::vector<std::string> patterns;
        for (const std::string_view name : Split(option.Names, ","))
            patterns.push_back(command + "/" + std::string(name));
        cases += "        " + Joined(patterns, " | ") + ") " + ActionFor(option) + "; return ;;\n";
    }
    return cases;
}

std::string OptionCase(const std::string& command, const std::vector<UsageOption>& options) {
    return "        '" + command + "') options='" + Joined(NamesOf(options), " ") + "' ;;\n";
}

}  // namespace

std::string ManualPage(const ProgramUsage& usage) {
    std::string name = usage.Name;
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::toupper(c); });
    std::string page = ".TH " + name + " 1 \"\" \"kvt " + VersionText() + "\" \"Kestrel Vise Toolkit\"\n";
    const std::string text = usage.Text.substr(0, usage.Text.find_last_not_of('.') + 1);
    page += Section("NAME", usage.Name + " \\- " + Plain(text) + "\n");
    page += Section("SYNOPSIS", ".B " + usage.Name + "\n[\\fIOPTION\\fR]... " + Plain(usage.Words) + "\n");
    if (!usage.Commands.empty()) {
        std::string commands;
        for (const UsageCommand& one : usage.Commands) {
            commands += ".SS " + usage.Name + " " + one.Name + " " + Plain(one.Words) + "\n" +
                        Plain(one.Text) + ".\n";
            commands += OptionList(one.Options);
        }
        page += Section("COMMANDS", commands);
    }
    page += Section("OPTIONS", OptionList(usage.Options));
    for (const auto& [heading, body] : usage.Sections) page += Section(heading, Paragraphs(body));
    std::string others;
    for (const char* other : {"kvt", "kvtc", "iso2emco"}) {
        if (usage.Name != other) others += ".BR " + std::string(other) + " (1)\n";
    }
    return page + Section("SEE ALSO", others);
}

std::string BashCompletion(const ProgramUsage& usage) {
    std::vector<std::string> commands;
    std::string values = ValueCases("", usage.Options);
    std::string options = OptionCase("", usage.Options);
    std::string folders;
    for (const UsageCommand& one : usage.Commands) {
        commands.push_back(one.Name);
        values += ValueCases(one.Name, one.Options);
        options += OptionCase(one.Name, one.Options);
        if (one.Words == "FOLDER") folders += "        " + one.Name + ") kind=-d ;;\n";
    }
    std::string text = "# Completes the command line of " + usage.Name + ".\n_" + usage.Name + "() {\n";
    text +=
        "    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command= options= "
        "kind=-f i\n";
    if (!commands.empty()) {
        text += "    for ((i = 1; i < COMP_CWORD; i++)); do\n        case ${COMP_WORDS[i]} in\n            " +
                Joined(commands, " | ") + ") command=${COMP_WORDS[i]}; break ;;\n        esac\n    done\n";
    }
    text += "    COMPREPLY=()\n";
    if (!values.empty()) text += "    case $command/$before in\n" + values + "    esac\n";
    text += "    case $command in\n" + options + "    esac\n";
    text +=
        "    if [[ $word == -* ]]; then\n"
        "        mapfile -t COMPREPLY < <(compgen -W \"$options\" -- \"$word\")\n        return\n    fi\n";
    if (!commands.empty()) {
        text += "    if [[ -z $command ]]; then\n        mapfile -t COMPREPLY < <(compgen -W '" +
                Joined(commands, " ") + "' -- \"$word\")\n        return\n    fi\n";
    }
    if (!folders.empty()) text += "    case $command in\n" + folders + "    esac\n";
    text += "    compopt -o filenames\n    mapfile -t COMPREPLY < <(compgen $kind -- \"$word\")\n}\n";
    return text + "complete -F _" + usage.Name + " " + usage.Name + "\n";
}

int MakeManual(const std::string& target) {
    DiskFiles files;
    const std::string folder = NameFromSystem(target);
    for (const char* below : {"/man1", "/completions"}) files.MakeFolder(folder + below);
    for (const ProgramUsage& usage : {WindowUsage(), ConsoleUsage(), PreProcessorUsage()}) {
        files.WriteWhole(folder + "/man1/" + usage.Name + ".1", ManualPage(usage));
        files.WriteWhole(folder + "/completions/" + usage.Name, BashCompletion(usage));
    }
    return 0;
}

}  // namespace kvt
