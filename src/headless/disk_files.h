#pragma once

#include <memory>

#include "headless/fault_plan.h"
#include "platform/services.h"

namespace kvt {

// The file service on the machine's own disk. A name is text of the program's code page where that holds all
// of its characters, and the plain bytes of the name otherwise.
class DiskFiles : public FileService {
public:
    // service is the name that planned failures know it by.
    explicit DiskFiles(FaultPlan& faults, const char* service = "file")
        : faults_(faults), service_(service) {}

    bool Exists(std::string_view path) override;
    std::string ReadWhole(std::string_view path) override;
    void WriteWhole(std::string_view path, std::string_view content) override;
    // Writes a file that is new under its name: what stands there gives way, a link itself and not what it points
    // at. Error 75.
    void WriteNew(std::string_view path, std::string_view content);
    bool CanWrite(std::string_view folder) override;
    void Append(std::string_view path, std::string_view content) override;
    void Delete(std::string_view path) override;
    void MakeFolder(std::string_view path) override;
    // Its failures are planned by themselves, as those of "background".
    FileService& InBackground() override;
    std::vector<std::string> List(std::string_view folder, std::string_view pattern) override;

private:
    FaultPlan& faults_;
    const char* service_;
    bool waitsForDisk_ = true;
    std::unique_ptr<DiskFiles> background_;
};

// A file name as the system has it: that of the file that the program means by it.
std::string NameForSystem(std::string_view name);

}  // namespace kvt
