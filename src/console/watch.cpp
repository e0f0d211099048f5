#include "console/watch.h"

#include <chrono>
#include <cstdio>
#include <ctime>
#include <new>
#include <thread>

#include "basic/code_page.h"
#include "basic/failure.h"
#include "basic/local_time.h"
#include "basic/number.h"
#include "console/listing.h"
#include "console/loaded_file.h"
#include "system/folder_watch.h"
#include "system/interrupts.h"

namespace kvt {

namespace {

constexpr auto betweenLooks = std::chrono::milliseconds(250);
constexpr const char* red = "\x1b[31m";
constexpr const char* plain = "\x1b[0m";

std::string TimeOfDay() {
    const std::tm local = LocalNow();
    char text[16];
    return {text, std::strftime(text, sizeof text, "%H:%M:%S", &local)};
}

}  // namespace

std::string WatchLine(const std::string& folder, const std::string& name, const ConsoleOptions& options) {
    const std::string told = WithoutControls(name) + ": ";
    try {
        const LoadedFile loaded(folder + "/" + name);
        if (const char* error = loaded.Error()) return told + error;
        const Verdict verdict = VerdictOf(*loaded.Workbench);
        if (loaded.Status() != status::Succeeded)
            return told + (options.Colour ? red : "") + WithoutControls(verdict.Sentence) +
                   (options.Colour ? plain : "");
        return told + verdict.Sentence + " Time " + loaded.Workbench->Results.lblPPMachineTime.Caption.Get();
    } catch (const std::bad_alloc&) {
        return told + "is too large for the memory of this machine";
    }
}

int Watch(const std::string& folder, const ConsoleOptions& options) {
    try {
        FolderWatch watch(folder);
        Interrupts interrupts;
        std::printf("Watching %s with %s files; Ctrl+C ends.\n", WithoutControls(folder).c_str(),
                    PlainNumber(static_cast<std::int64_t>(watch.Count())).c_str());
        while (!interrupts.Came()) {
            for (const std::string& name : watch.Look())
                std::printf("%s %s\n", TimeOfDay().c_str(), WatchLine(folder, name, options).c_str());
            if (std::fflush(stdout) != 0) throw Failure("standard output could not be written");
            std::this_thread::sleep_for(betweenLooks);
        }
        return status::Succeeded;
    } catch (const Failure& failure) {
        return Complain(folder, failure.what());
    }
}

}  // namespace kvt
