#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "system/system_programs.h"

namespace kvt {

// Programs for scripts and tests: a script goes on when the program has ended, or does not end for a long time.
// The programs of the desktop are a list, and none is launched for real.
class MemoryPrograms : public ProgramService {
public:
    int Start(std::string_view commandLine, std::string_view file) override {
        return real_.Start(commandLine, file);
    }
    bool HasEnded(int program) override;
    bool WasCutOff(int program) override { return real_.WasCutOff(program); }
    void End(int program) override { real_.End(program); }
    bool Launch(std::string_view name) override;
    void ConfineTo(std::vector<std::filesystem::path> folders) { real_.ConfineTo(std::move(folders)); }

    // How long the first question for its end waits for a program, in real time.
    std::chrono::milliseconds GiveUpAfter{20'000};
    std::vector<std::string> OnDesktop;
    std::vector<std::string> Launched;

private:
    SystemPrograms real_;
    int waitedFor_ = 0;
};

}  // namespace kvt
