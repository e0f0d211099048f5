// Any bytes as ISO code, for each machine: a refusal that says why, or a program that its machine reads line for line.

#include <cmath>
#include <cstdint>
#include <string>

#include "files/iso/converter.h"
#include "shell/workbench.h"
#include "support/map_files.h"

namespace {

using kvt::test::Demand;

void ConvertFor(kvt::MachineModel machine, const std::string& code) {
    kvt::iso::MachineProgram program;
    try {
        kvt::iso::Converter converter(machine);
        program = converter.Convert(kvt::iso::ReadBlocks(code));
        for (const std::string& remark : converter.Remarks()) Demand(!remark.empty());
    } catch (const kvt::iso::Refusal& refusal) {
        Demand(!refusal.Description.empty() && refusal.Line >= 0);
        return;
    }
    kvt::test::DisklessPlatform platform;
    kvt::Workbench workbench(platform.Services);
    platform.Files.Content["program"] = kvt::iso::FileText(program);
    std::string name = "program";
    Demand(workbench.Reader.LoadFile(name) == kvt::LoadResult::Loaded);
    Demand(workbench.Store.LineCount() == static_cast<int>(program.Rows.size()));
    Demand(workbench.Store.Metric == program.Metric);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > (std::size_t{1} << 14)) return 0;
    const std::string code(reinterpret_cast<const char*>(data), size);
    for (const kvt::MachineModel machine :
         {kvt::MachineModel::MK2, kvt::MachineModel::MK4, kvt::MachineModel::F1}) {
        ConvertFor(machine, code);
    }
    return 0;
}
