#include "shell/error_log.h"

#include <array>
#include <cstdio>

#include "basic/line_end.h"
#include "basic/number.h"
#include "basic/stack_guard.h"

namespace kvt {

namespace {

// The run-time keeps no more of them than a person could read; the file takes all.
constexpr std::size_t mostKept = 100'000;

std::string TimeStamp(const std::tm& now) {
    std::array<char, 64> stamp = {};
    const int length =
        std::snprintf(stamp.data(), stamp.size(), "#%04d-%02d-%02d %02d:%02d:%02d#", now.tm_year + 1900,
                      now.tm_mon + 1, now.tm_mday, now.tm_hour, now.tm_min, now.tm_sec);
    return {stamp.data(), static_cast<std::size_t>(length)};
}

}  // namespace

ErrorLog::ErrorLog(Services& services) : services_(services) {
    before_ = SetErrorSink([this](const RunTimeError& error, const char* procedure) {
        ReportError(error.Number, error.Description, procedure);
    });
}

ErrorLog::~ErrorLog() { SetErrorSink(std::move(before_)); }

void ErrorLog::ReportError(int number, const std::string& description, const std::string& procedureName) {
    const StackGuard guard(reporting_);
    if (!guard.Entered()) return;
    if (records_.size() < mostKept) records_.push_back({number, description, procedureName});
    if (DataFolder.empty()) return;
    try {
        const std::string record = TimeStamp(services_.System.Now()) + "," + PlainNumber(number) + ",\"" +
                                   description + "\",\"" + procedureName + "\"" + std::string(LineEnd);
        services_.Files.Append(DataFolder + "Errors.log", record);
    } catch (const RunTimeError&) {
        // A folder that is missing or protected: the program goes on without a log.
    }
}

}  // namespace kvt
