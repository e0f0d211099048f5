#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <set>
#include <vector>

#include "headless/fault_plan.h"
#include "platform/programs.h"

namespace kvt {

// Programs of this machine. What they write to their output is dropped, and their input is empty. Those that were
// started, not launched, end with this object.
class SystemPrograms : public ProgramService {
public:
    SystemPrograms() = default;
    ~SystemPrograms() override;
    SystemPrograms(const SystemPrograms&) = delete;
    SystemPrograms& operator=(const SystemPrograms&) = delete;

    int Start(std::string_view commandLine, std::string_view file) override;
    bool HasEnded(int program) override;
    bool WasCutOff(int program) override { return cutOff_.contains(program); }
    void End(int program) override;
    bool Launch(std::string_view name) override;

    // What is started from now on may write below these folders alone, as far as the system can see to that.
    void ConfineTo(std::vector<std::filesystem::path> folders) { confinedTo_ = std::move(folders); }

private:
    std::map<int, pid_t> running_;
    std::set<int> cutOff_;
    std::vector<std::filesystem::path> confinedTo_;
    std::vector<pid_t> launched_;
    int lastNumber_ = 0;
};

// The same for scripts and tests: a script goes on when the program has ended, or does not end for a long time.
// The programs of the desktop are a list, and none is launched for real.
class MemoryPrograms : public ProgramService {
public:
    explicit MemoryPrograms(FaultPlan& faults) : faults_(faults) {}

    int Start(std::string_view commandLine, std::string_view file) override;
    bool HasEnded(int program) override;
    bool WasCutOff(int program) override { return real_.WasCutOff(program); }
    void End(int program) override { real_.End(program); }
    bool Launch(std::string_view name) override;
    void ConfineTo(std::vector<std::filesystem::path> folders) { real_.ConfineTo(std::move(folders)); }

    // How long the first question for its end waits for a program, in real time.
    std::chrono::milliseconds Patience{20'000};
    std::vector<std::string> OnDesktop;
    std::vector<std::string> Launched;

private:
    FaultPlan& faults_;
    SystemPrograms real_;
    int waitedFor_ = 0;
};

}  // namespace kvt
