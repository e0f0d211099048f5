#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

#include "basic/code_page.h"
#include "basic/failure.h"
#include "basic/installation.h"
#include "program/machine.h"
#include "shell/iso_conversion.h"
#include "shell/program_usage.h"
#include "system/offscreen_platform.h"

// The pre-processor for ISO code: iso2emco.MK2, iso2emco.MK4 or iso2emco.F1 FILE. The machine is the one that its
// own name ends in; as iso2emco it is told by --machine. It leaves FILE.~pp, the program, with FILE.~ppINFO where there is
// something to know; or FILE.~ppERR, why there is none.
namespace {

using namespace kvt;

constexpr int wrongUsage = 2;
constexpr int notConverted = 1;

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
    if (words.size() >= 3 && words[0] == "--machine") machine = MachineOfPreProcessor(words[1]);
    words.erase(words.begin(), machine ? words.begin() + 2 : words.end());
    if (!words.empty() && words[0] == "--") words.erase(words.begin());
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    std::optional<MachineModel> machine = MachineOfPreProcessor(argv[0]);
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
    return RunMain("iso2emco: " + name, wrongUsage, [&] {
        OffscreenPlatform platform;
        const auto writeNew = [&](const std::string& path, const std::string& content) {
            platform.Files.WriteNew(path, content);
        };
        return ConvertIsoFile(platform.Services, NameFromSystem(name), *machine, writeNew) ? 0 : notConverted;
    });
}
