#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

#include "basic/code_page.h"
#include "basic/installation.h"
#include "basic/line_end.h"
#include "basic/number.h"
#include "basic/text.h"
#include "files/iso/converter.h"
#include "program/machine.h"
#include "shell/program_usage.h"
#include "shell/workbench.h"
#include "system/offscreen_platform.h"

// The pre-processor for ISO code: iso2emco.MK2, iso2emco.MK4 or iso2emco.F1 FILE. The machine is the one that its
// own name ends in; as iso2emco it is told by --machine. It leaves FILE.~pp, the program, with FILE.~ppINFO where there is
// something to know; or FILE.~ppERR, why there is none.
namespace {

using namespace kvt;

constexpr int wrongUsage = 2;
constexpr int notConverted = 1;

// The machine that a file's name ends in.
std::optional<MachineModel> MachineOf(std::string_view name) {
    return MachineNamed(name.substr(name.rfind('.') + 1));
}

// What the check of the workbench finds in the program, as a refusal that names the line of the ISO program.
void CheckAsTheMachine(const std::string& file, const iso::MachineProgram& program) {
    OffscreenPlatform platform;
    Workbench workbench(platform.Services);
    std::string name = file;
    if (workbench.Reader.LoadFile(name) != LoadResult::Loaded)
        throw iso::Refusal{0, "the program was not written"};
    const ListView& rows = workbench.Store.lvCncProgram;
    for (int row = 1; row <= workbench.Store.LineCount(); ++row) {
        std::string_view finding = Trim(rows.Row(row)[column::Error].View());
        if (finding.empty()) continue;
        if (finding.front() == '!') finding.remove_prefix(1);
        const auto index = static_cast<std::size_t>(row - 1);
        const int line = index < program.Rows.size() ? program.Rows[index].Line : 0;
        throw iso::Refusal{line, "the machine does not take this (N" + Format(row - 1, "00") + " " +
                                     program.Rows[std::min(index, program.Rows.size() - 1)].Code +
                                     "): " + std::string(finding)};
    }
    if (workbench.Store.LineCount() > workbench.Store.MaxLines()) {
        throw iso::Refusal{0, "the program has " + PlainNumber(workbench.Store.LineCount()) +
                                  " lines, the machine holds " + PlainNumber(workbench.Store.MaxLines())};
    }
}

// Why there is no program.
int Refuse(DiskFiles& files, const std::string& file, const std::string& why) {
    if (files.Exists(file + ".~pp")) files.Delete(file + ".~pp");
    files.WriteNew(file + ".~ppERR", why + "." + std::string(LineEnd));
    return notConverted;
}

int Convert(DiskFiles& files, const std::string& file, MachineModel machine) {
    const std::string result = file + ".~pp";
    try {
        std::string text = files.ReadWhole(file);
        if (IsUtf8(text)) text = FromUtf8(text);
        iso::Converter converter(machine);
        const iso::MachineProgram program = converter.Convert(iso::ReadBlocks(text));
        files.WriteNew(result, FileText(program));
        CheckAsTheMachine(result, program);
        std::string remarks;
        for (const std::string& remark : converter.Remarks()) remarks.append(remark).append(LineEnd);
        if (!remarks.empty()) files.WriteNew(file + ".~ppINFO", remarks);
        return 0;
    } catch (const iso::Refusal& refusal) {
        const std::string line =
            refusal.Line > 0 ? "Line " + PlainNumber(refusal.Line) + ": " : std::string();
        return Refuse(files, file, line + refusal.Description);
    } catch (const RunTimeError& error) {
        // The folder may still take an error file where it has not taken, or not given, the other ones.
        return Refuse(files, file, error.Description);
    }
}

// The name as it was given to the workbench, where that has started this program; otherwise the arguments, which are
// the pieces between the blanks of a name.
std::string NameOfFile(const std::vector<std::string>& arguments) {
    const char* const whole = std::getenv(FileVariable);
    if (whole && WordsOf(whole) == arguments) return whole;
    std::string name;
    for (const std::string& argument : arguments) name += (name.empty() ? "" : " ") + argument;
    return name;
}

// Reads the options under a name that is no machine's, and takes them off the words; nothing is left where they ask for
// something that there is not. False where they have been answered.
bool ReadOptions(std::vector<std::string>& words, std::optional<MachineModel>& machine) {
    const auto asked = [&](std::string_view brief, std::string_view name) {
        return words.size() == 1 && (words[0] == brief || words[0] == name);
    };
    if (asked("-v", "--version")) return std::printf("iso2emco %s\n", VersionText().c_str()), false;
    if (asked("-h", "--help")) return std::fputs(HelpText(PreProcessorUsage()).c_str(), stdout), false;
    if (words.size() >= 3 && words[0] == "--machine") machine = MachineOf(words[1]);
    words.erase(words.begin(), machine ? words.begin() + 2 : words.end());
    if (!words.empty() && words[0] == "--") words.erase(words.begin());
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    std::optional<MachineModel> machine = MachineOf(argv[0]);
    std::vector<std::string> words(argv + 1, argv + argc);
    if (!machine && !ReadOptions(words, machine)) return 0;
    if (words.empty() || !machine) {
        std::string machines, names;
        for (const MachineFacts& one : Machines()) {
            machines += (machines.empty() ? "" : "|") + std::string(one.Name);
            names += (names.empty() ? "iso2emco." : "|iso2emco.") + std::string(one.Name);
        }
        std::fputs(("usage: iso2emco --machine " + machines + " FILE, or " + names + " FILE\n").c_str(),
                   stderr);
        return wrongUsage;
    }
    const std::string name = NameOfFile(words);
    // A file that may not grow any more is a write that fails.
    std::signal(SIGXFSZ, SIG_IGN);
    DiskFiles files;
    return RunMain("iso2emco: " + name, wrongUsage,
                   [&] { return Convert(files, NameFromSystem(name), *machine); });
}
