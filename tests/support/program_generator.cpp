#include "support/program_generator.h"

#include <cstdlib>
#include <deque>

#include "basic/number.h"
#include "basic/text.h"
#include "support/program_text.h"
#include "support/table.h"

namespace kvt::test {

namespace {

const std::vector<std::string> comments = Fields(
    "||roughing|\xD8 12,5 x 30; not 1 mm more than a line has place for.|@  by hand|cmdNORENUM back|cmdCOLOR "
    "Red|CMDINTERVAL 2|cmdSKIP|  % blanks in front");

int Between(std::mt19937& random, int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
}

// The cell of a value as a file holds it, sign or letter in front.
std::string CellText(const std::string& label, int value) {
    const std::string digits = Format(std::abs(value), "00");
    if (label == "X" || label == "Y" || label == "Z") return (value < 0 ? "-" : " ") + digits;
    return label == "F" || label == "H" ? digits : label.substr(0, 1) + digits;
}

}  // namespace

const std::vector<Setting>& AllSettings() {
    static const std::vector<Setting> all = {{"MK2", true},      {"MK2", false},      {"MK4", true},
                                             {"MK4", false},     {"F1", true, false}, {"F1", false, false},
                                             {"F1", true, true}, {"F1", false, true}};
    return all;
}

int GeneratedPrograms(int few) {
    const char* const wanted = std::getenv("KVT_PROGRAMS");
    return wanted ? std::atoi(wanted) : few;
}

int GeneratedField::Value(std::mt19937& random) const {
    switch (Between(random, 0, 9)) {
        case 0: return Low;
        case 1: return High;
        case 2: return Low <= 0 ? 0 : Low;
        default: return Between(random, Low, High);
    }
}

void Use(Workbench& workbench, const Setting& setting) {
    workbench.Store.Machine = MachineNamed(setting.Machine).value();
    workbench.Store.Horizontal = setting.Horizontal;
    workbench.Machine.SetUnits(UnitsOf(setting.Metric));
    workbench.Store.ProgramChanged = false;
    workbench.Main.mnuNew.Click();
    workbench.Display.ShowCodeLists();
}

std::vector<std::string> CodesOf(Workbench& workbench) {
    std::vector<std::string> codes;
    for (const char* mode : {"G", "M"}) {
        if (*mode == 'M' && workbench.Store.IsMK2()) break;
        for (const std::string& entry : workbench.Codes.ListOf(mode).Entries())
            codes.push_back(entry.substr(0, 4));
    }
    return codes;
}

std::vector<GeneratedField> FieldsOf(Workbench& workbench, const std::string& code) {
    EntryRow& entry = workbench.Entry;
    entry.lblGMcode.Caption = code.substr(0, 1);
    entry.txtGMcode.Text = Trim(code.substr(1));
    std::string form = code;
    workbench.Layout.InputFields(form);
    std::vector<GeneratedField> fields;
    const auto boxes = entry.Fields();
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const auto& [label, box] = boxes[i];
        if (!box.Visible || !box.Enabled) continue;
        const std::string tag = box.Tag.Get();
        const std::size_t to = tag.find("TO");
        fields.push_back({i, label.Caption.Get(), std::atoi(tag.c_str()), std::atoi(tag.c_str() + to + 2)});
    }
    return fields;
}

std::string GeneratedFile(Workbench& workbench, const Setting& setting, std::mt19937& random, int lines) {
    Use(workbench, setting);
    const std::vector<std::string> codes = CodesOf(workbench);
    const bool mill = workbench.Store.IsF1();
    std::deque<std::string> keys;  // a Line only points to its code
    std::vector<Line> program;
    for (int i = 0; i < lines; ++i) {
        const std::string& code =
            codes[static_cast<std::size_t>(Between(random, 0, static_cast<int>(codes.size()) - 1))];
        // The window writes the radius line with a code of its own.
        const bool radius = code == "M99R";
        const std::string key =
            radius ? "M9R" : std::string(TrimRight(code[0] == 'G' ? code.substr(1) : code));
        Line line{keys.emplace_back(key).c_str()};
        std::string* const cells[] = {&line.X, &line.Y, &line.Z, &line.F, &line.H};
        for (const GeneratedField& field : FieldsOf(workbench, code)) {
            int value = field.Value(random);
            // Jumps go forward: one that goes back ends the check, or makes it long.
            if (field.Label == "Line")
                value = Between(random, 0, 3) == 0 ? value : i + 1 + Between(random, 0, 9);
            // H stands in the column of F on the mill, the last digit of four in the place of the letter.
            const bool inColumnF = mill && field.Label == "H";
            const std::string text =
                inColumnF ? RightPad(Format(value, "00"), 4) : CellText(field.Label, value);
            *cells[inColumnF ? 3 : field.Place] = text;
        }
        line.Comment = comments[static_cast<std::size_t>(Between(random, 0, 9))];
        program.push_back(line);
    }
    std::string units = setting.Metric ? "M" : "\"";
    if (mill) units += setting.Horizontal ? "-" : "I";
    return FileText(setting.Machine, program, units, Between(random, 0, 1) == 0 ? "" : "Notes of a part");
}

}  // namespace kvt::test
