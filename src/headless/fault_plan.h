#pragma once

#include <map>
#include <string>
#include <string_view>

#include "basic/run_time_error.h"

namespace kvt {

// Lets the n-th next call of a service fail, so that every failure path can be walked.
class FaultPlan {
public:
    // service is one of file, background, port, printer, clipboard, program; call counts from 1.
    void Fail(std::string_view service, int call) { calls_[std::string(service)] = call; }

    // Counts one call; the planned one throws the error.
    void Pass(std::string_view service, int error) {
        if (calls_.empty()) return;
        const auto planned = calls_.find(std::string(service));
        if (planned == calls_.end() || --planned->second > 0) return;
        calls_.erase(planned);
        throw RunTimeError(error);
    }

private:
    std::map<std::string, int> calls_;
};

}  // namespace kvt
