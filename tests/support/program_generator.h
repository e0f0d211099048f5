#pragma once

#include <random>
#include <string>
#include <vector>

#include "shell/workbench.h"

namespace kvt::test {

// What a generated program is made for.
struct Setting {
    const char* Machine;
    bool Metric = true;
    bool Horizontal = false;  // the mill alone
};
// Every machine in both units, the mill in both orientations.
const std::vector<Setting>& AllSettings();

// How many programs of each setting a test goes through: the environment variable KVT_PROGRAMS, or few.
int GeneratedPrograms(int few);

// One parameter of a code: its field's place in the chain, its label and its range.
struct GeneratedField {
    std::size_t Place;
    std::string Label;
    int Low, High;
    // Any value, the bounds and 0 more often than by chance.
    int Value(std::mt19937& random) const;
};
// What the entry takes for a code of four characters ("G01 ", "M99R"). The workbench has the setting's machine.
std::vector<GeneratedField> FieldsOf(Workbench& workbench, const std::string& code);
// The codes of the machine's lists, in four characters.
std::vector<std::string> CodesOf(Workbench& workbench);
// The machine, units and orientation of a setting, and an empty program.
void Use(Workbench& workbench, const Setting& setting);

// A program file: codes of the machine with values that the entry takes, and comments. Its geometry is as it falls.
std::string GeneratedFile(Workbench& workbench, const Setting& setting, std::mt19937& random, int lines);

}  // namespace kvt::test
