#pragma once

#include <string>
#include <vector>

#include "basic/run_time_error.h"
#include "platform/services.h"

namespace kvt {

// The common error reporter. Keeps what this run has reported, and writes "Errors.log" once it has a folder.
// While one exists it records all failures that procedures survive.
class ErrorLog {
public:
    explicit ErrorLog(Services& services);
    ~ErrorLog();
    ErrorLog(const ErrorLog&) = delete;
    ErrorLog& operator=(const ErrorLog&) = delete;

    struct Record {
        int Number;
        std::string Description;
        std::string Procedure;
    };

    // Adds one record. Never raises anything and shows nothing; a failure while it writes is dropped.
    void ReportError(int number, const std::string& description, const std::string& procedureName);

    // Where "Errors.log" lies, with a separator at its end. Nothing is written while it is empty.
    std::string DataFolder;

    const std::vector<Record>& Records() const { return records_; }

private:
    Services& services_;
    std::vector<Record> records_;
    ErrorSink before_;
    bool reporting_ = false;
};

}  // namespace kvt
