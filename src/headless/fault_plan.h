#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "basic/run_time_error.h"

namespace kvt {

// Lets the n-th next call of a service fail, so that every failure path can be walked.
class FaultPlan {
public:
    // service is one of file, background, port, printer, clipboard, program; call counts from 1.
    void Fail(std::string_view service, int call) { calls_[std::string(service)].push_back(call); }

    // Counts one call; the planned one throws the error.
    void Pass(std::string_view service, int error) {
        const auto planned = calls_.find(std::string(service));
        if (planned == calls_.end()) return;
        bool fails = false;
        for (int& call : planned->second) fails = --call == 0 || fails;
        std::erase(planned->second, 0);
        if (fails) throw RunTimeError(error);
    }

private:
    // How many calls are left up to and with each that fails.
    std::map<std::string, std::vector<int>> calls_;
};

}  // namespace kvt
