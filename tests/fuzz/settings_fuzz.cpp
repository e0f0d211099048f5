// Any bytes as settings file: the program starts and ends, and what it writes then stays as it is in later runs.

#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "headless/memory_platform.h"
#include "shell/workbench.h"

namespace {

// One run of the program below a folder; what its settings are at its end.
std::string SettingsAfterARun(const std::string& folder, const std::string& settings) {
    kvt::MemoryPlatform platform;
    platform.System.DataFolder = folder;
    const auto workbench = std::make_unique<kvt::Workbench>(platform.Services);
    workbench->Form_Load("");
    if (!workbench->frmMain.Visible) std::abort();
    workbench->Main.mnuExit.Click();
    if (!platform.System.Ended) std::abort();
    return platform.Files.ReadWhole(settings);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string folder = "/tmp/kvt-settings-fuzz-" + std::to_string(getpid());
    const kvt::Folders folders = kvt::FoldersBelow(folder);
    const std::string settings = folders.SettingsFolder + "SettingsEditor.txt";
    kvt::DiskFiles files;
    files.MakeFolder(folders.SettingsFolder);
    files.WriteWhole(settings, {reinterpret_cast<const char*>(data), size});
    // A window without a place of its own is centred by the second run.
    SettingsAfterARun(folder, settings);
    const std::string written = SettingsAfterARun(folder, settings);
    if (SettingsAfterARun(folder, settings) != written) std::abort();
    if (files.Exists(folders.DataFolder + "Errors.log")) files.Delete(folders.DataFolder + "Errors.log");
    return 0;
}
