#pragma once

#include <sys/types.h>

#include <filesystem>
#include <map>
#include <set>
#include <vector>

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

}  // namespace kvt
