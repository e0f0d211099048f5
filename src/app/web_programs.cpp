#include "app/web_programs.h"

#include "basic/run_time_error.h"
#include "shell/iso_conversion.h"

namespace kvt {

void WebPrograms::Install(const std::string& folder) {
    for (const MachineFacts& machine : Machines())
        files_->PutAside(folder + "iso2emco." + std::string(machine.Name), "");
}

int WebPrograms::Start(std::string_view commandLine, std::string_view file) {
    const Command command =
        SplitCommand(commandLine, [this](const std::string& path) { return files_->Exists(path); });
    const std::optional<MachineModel> machine = MachineOfPreProcessor(command.Program);
    if (!machine) throw RunTimeError(fault::FileNotFound);
    OffscreenServices aside;
    kvt::Services services = aside.On(*files_);
    ConvertIsoFile(
        services, std::string(file), *machine,
        [this](const std::string& path, const std::string& content) { files_->PutAside(path, content); });
    return ++started_;
}

}  // namespace kvt
