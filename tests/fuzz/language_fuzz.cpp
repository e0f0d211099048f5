// Any bytes as language module: codes and columns stay, and the module that is written then brings the same texts.

#include <unistd.h>

#include <cstdint>
#include <memory>
#include <string>

#include "shell/workbench.h"
#include "support/map_files.h"

namespace {

using kvt::test::Demand;

void Load(kvt::Workbench& workbench, kvt::MemoryPlatform& platform, const std::string& text) {
    static const std::string name = "/tmp/kvt-language-fuzz-" + std::to_string(getpid());
    platform.Files.WriteWhole(name, text);
    workbench.Modules.LoadLanguageModule(name);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    kvt::MemoryPlatform platform;
    const auto workbench = std::make_unique<kvt::Workbench>(platform.Services);
    Load(*workbench, platform, std::string(reinterpret_cast<const char*>(data), size));
    Demand(workbench->Lists.lstMK4Gcodes.Entry(0).substr(0, 5) == "G00 \t");
    Demand(workbench->Lists.lstF1Mcodes.Entry(15).substr(0, 5) == "M99R\t");
    const std::string written = workbench->Modules.WriteModule();
    Load(*workbench, platform, written);
    // The name of a language that the module leaves out is English from now on.
    const std::string again = workbench->Modules.WriteModule();
    Load(*workbench, platform, again);
    Demand(workbench->Modules.WriteModule() == again);
    return 0;
}
