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
    std::vector<std::string> List(std::string_view folder, std::string_view pattern) override;

private:
    FaultPlan& faults_;
};

// A file name as the system has it: that of the file that the program means by it.
std::string NameForSystem(std::string_view name);

// A file name of the system as the program holds it: in the code page where that is possible without loss.
std::string NameFromSystem(std::string_view name);

}  // namespace kvt
