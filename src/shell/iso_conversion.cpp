#include "shell/iso_conversion.h"

#include <algorithm>

#include "basic/code_page.h"
#include "basic/line_end.h"
#include "basic/number.h"
#include "basic/text.h"
#include "files/iso/converter.h"
#include "shell/workbench.h"

namespace kvt {

namespace {

// What the check of the workbench finds in the program, as a refusal that names the line of the ISO program.
void CheckAsTheMachine(Services& aside, const std::string& file, const iso::MachineProgram& program) {
    // Too large for a small stack.
    const auto own = std::make_unique<Workbench>(aside);
    Workbench& workbench = *own;
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

std::string Why(const iso::Refusal& refusal) {
    const std::string line = refusal.Line > 0 ? "Line " + PlainNumber(refusal.Line) + ": " : std::string();
    return line + refusal.Description;
}

}  // namespace

std::optional<MachineModel> MachineOfPreProcessor(std::string_view name) {
    return MachineNamed(name.substr(name.rfind('.') + 1));
}

bool ConvertIsoFile(
    Services& aside, const std::string& file, MachineModel machine,
    const std::function<void(const std::string& path, const std::string& content)>& writeNew) {
    const std::string result = file + ".~pp";
    std::string why;
    try {
        std::string text = aside.Files.ReadWhole(file);
        if (IsUtf8(text)) text = FromUtf8(text);
        iso::Converter converter(machine);
        const iso::MachineProgram program = converter.Convert(iso::ReadBlocks(text));
        writeNew(result, FileText(program));
        CheckAsTheMachine(aside, result, program);
        std::string remarks;
        for (const std::string& remark : converter.Remarks()) remarks.append(remark).append(LineEnd);
        if (!remarks.empty()) writeNew(file + ".~ppINFO", remarks);
        return true;
    } catch (const iso::Refusal& refusal) {
        why = Why(refusal);
    } catch (const RunTimeError& error) {
        // The folder may still take an error file where it has not taken, or not given, the other ones.
        why = error.Description;
    }
    if (aside.Files.Exists(result)) aside.Files.Delete(result);
    writeNew(file + ".~ppERR", why + "." + std::string(LineEnd));
    return false;
}

}  // namespace kvt
