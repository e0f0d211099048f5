#include "shell/program_usage.h"

#include <algorithm>

#include "basic/text.h"

namespace kvt {

namespace {

const UsageOption help = {"-h,--help", "", "Print this help and end", {}};
const UsageOption version = {"-v,--version", "", "Print the version and end", {}};

}  // namespace

const ProgramUsage& WindowUsage() {
    static const ProgramUsage usage = {
        "kvt",
        "Workbench for the CNC programs of small lathes and mills.",
        "[FILE]",
        {help,
         version,
         {"--new", "", "Begin with an empty program", {}},
         {"--receive", "", "Begin with the view that takes in what the machine sends", {}},
         {"--scale", "F", "Size of everything, 1 to 2; else it follows the desktop's font", {}},
         {"--screenshot", "PNG", "Show the window, save a picture of it and end", {}},
         {"--screenshot-draw", "PNG", "The same with the drawing of the program", {}}},
        {},
        {{"FILES",
          "Settings, unsaved programs and the user's pre-processors lie below $XDG_DATA_HOME/EMCO, or "
          "~/.local/share/EMCO."},
         {"ENVIRONMENT",
          "KVT_PORTS: the devices of the serial ports 1 to 4, parted by colons. Without it they are the "
          "ports of "
          "this machine, USB adapters first."}}};
    return usage;
}

const ProgramUsage& PreProcessorUsage() {
    static const ProgramUsage usage = {
        "iso2emco",
        "Turns ISO code of a CAM program into a program of the Compact 5 CNC (MK2, MK4) or F1 CNC.",
        "FILE",
        {help, version, {"--machine", "NAME", "The machine: MK2, MK4 or F1", {"MK2", "MK4", "F1"}}},
        {},
        {{"DESCRIPTION",
          "The program is written to FILE.~pp; what is to be known about it, as where the tool must stand "
          "before the start, to FILE.~ppINFO. Where there is none, FILE.~ppERR tells why.\n\n"
          "Under a name that ends in .MK2, .MK4 or .F1 the machine is the one of the name, and all words "
          "are the name of the file. So the window calls it, from File / Import; the name of the file is "
          "whole "
          "in KVT_FILE then."},
         {"EXIT STATUS", "0 for a program, 1 for none, 2 for wrong usage."}}};
    return usage;
}

std::string HelpText(const ProgramUsage& usage) {
    std::string text =
        "Usage: " + usage.Name + " [OPTIONS] " + usage.Words + "\n" + usage.Text + "\n\nOptions:\n";
    std::size_t widest = 0;
    std::vector<std::string> heads;
    for (const UsageOption& option : usage.Options) {
        heads.push_back(Replace(option.Names, ",", ", ") + (option.Value.empty() ? "" : " " + option.Value));
        widest = std::max(widest, heads.back().size());
    }
    for (std::size_t i = 0; i < heads.size(); ++i)
        text +=
            "  " + heads[i] + std::string(widest + 2 - heads[i].size(), ' ') + usage.Options[i].Text + ".\n";
    return text;
}

}  // namespace kvt
