#pragma once

#include "headless/fault_plan.h"
#include "platform/services.h"

namespace kvt {

// The file service on the machine's own disk. A name is text of the program's code page where that holds all
// of its characters, and the plain bytes of the name otherwise.
class DiskFiles : public FileService {
public:
    explicit DiskFiles(FaultPlan& faults) : faults_(faults) {}

    bool Exists(std::string_view path) override;
    std::string ReadWhole(std::string_view path) override;
    void WriteWhole(std::string_view path, std::string_view content) override;
    void Append(std::string_view path, std::string_view content) override;
    void Delete(std::string_view path) override;
    void MakeFolder(std::string_view path) override;

private:
    FaultPlan& faults_;
};

}  // namespace kvt
