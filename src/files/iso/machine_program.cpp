#include "files/iso/machine_program.h"

#include <cstdlib>

#include "basic/number.h"
#include "basic/text.h"
#include "files/cnc_format.h"

namespace kvt::iso {

namespace {

// The letter that stands in front of a parameter instead of the sign, 0 for the sign.
char PrefixOf(const std::string& code, std::size_t parameter) {
    if (code == "M99") return "IJK\0"[parameter];
    if (code == "M06") return parameter == 3 ? 'T' : 0;
    return 0;
}

// A parameter in a column: a prefix character, and digits right-justified to a width.
std::string Column(const Row& row, std::size_t parameter, std::size_t width, bool mill) {
    const std::optional<int>& value = row.Parameters[parameter];
    if (!value) return std::string(width + 1, ' ');
    char prefix = PrefixOf(row.Code, parameter);
    if (mill && row.Code == "M06" && parameter < 2) prefix = "DS"[parameter];
    if (prefix == 0) prefix = *value < 0 ? '-' : ' ';
    return prefix + RightPad(Format(std::abs(*value), "00"), width);
}

void AppendMK2(std::string& text, const Row& row, std::size_t number) {
    const std::string digits = Format(static_cast<double>(number), "00");
    text += "   N";
    text += Right(digits, 2);
    text += " G" + row.Code + " X" + Column(row, 0, 4, false) + " Z" + Column(row, 2, 5, false) + " F";
    text += Column(row, 3, 3, false).substr(1) + " ";
}

void AppendMK4(std::string& text, const Row& row) {
    text +=
        " " + Column(row, 0, 4, false) + " " + Column(row, 2, 5, false) + Column(row, 3, 3, false) + "      ";
}

void AppendF1(std::string& text, const Row& row) {
    text += Column(row, 0, 5, true) + Column(row, 1, 4, true) + Column(row, 2, 5, true) +
            Column(row, 3, 3, true) + " ";
}

}  // namespace

std::string FileText(const MachineProgram& program) {
    std::string text;
    for (const std::string& note : program.Notes) text.append(note).append(LineEnd);
    text.append(cnc::NotesEnd).append(LineEnd);
    if (program.Machine != MachineModel::MK2) {
        text.append(program.Machine == MachineModel::MK4 ? cnc::HeaderMK4 : cnc::HeaderF1).append(LineEnd);
    }
    for (std::size_t number = 0; number < program.Rows.size(); ++number) {
        const Row& row = program.Rows[number];
        if (program.Machine == MachineModel::MK2) {
            AppendMK2(text, row, number);
        } else {
            text += "   " + RightPad(Format(static_cast<double>(number), "00"), 3);
            text += row.Code.size() == 2 ? " " + row.Code : row.Code;
            program.Machine == MachineModel::MK4 ? AppendMK4(text, row) : AppendF1(text, row);
        }
        text.append(row.Comment).append(LineEnd);
    }
    text += program.Metric ? "   M" : "   \"";
    if (program.Machine == MachineModel::F1) text += "I";
    return text.append(LineEnd);
}

}  // namespace kvt::iso
