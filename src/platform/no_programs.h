#pragma once

#include "basic/run_time_error.h"
#include "platform/programs.h"

namespace kvt {

// A machine that starts no programs.
class NoPrograms : public ProgramService {
public:
    int Start(std::string_view, std::string_view) override { throw RunTimeError(fault::FileNotFound); }
    bool HasEnded(int) override { return true; }
    bool WasCutOff(int) override { return false; }
    void End(int) override {}
    bool Launch(std::string_view) override { return false; }
};

}  // namespace kvt
