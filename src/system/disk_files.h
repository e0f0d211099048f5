#pragma once

#include <memory>

#include "platform/services.h"
#include "system/file_names.h"
#include "system/file_writing.h"

namespace kvt {

// The file service on the machine's own disk; see SystemPath for what a name means. A file is written in place of
// what a link points at, so that the link stays one; what stands for an open file of this program, as /dev/stdout
// does, is written to as it stands open.
class DiskFiles : public FileService {
public:
    bool Exists(std::string_view path) override;
    std::optional<std::tm> WrittenAt(std::string_view path) override;
    std::string ReadWhole(std::string_view path) override;
    void WriteWhole(std::string_view path, std::string_view content) override;
    // Writes a file that is new under its name: what is there gives way, a link itself and not what it points
    // at. Error 75.
    void WriteNew(std::string_view path, std::string_view content);
    bool CanWrite(std::string_view folder) override;
    void Append(std::string_view path, std::string_view content) override;
    void Delete(std::string_view path) override;
    void MakeFolder(std::string_view path) override;
    // Does not wait for the disk.
    FileService& InBackground() override;
    std::vector<std::string> List(std::string_view folder, std::string_view pattern) override;

    // The folder of data, where copies lie of files that must be written in place.
    void SetDataFolder(std::string_view folder);
    // At a start: removes what a run that was killed in the middle of a write has left.
    void RemoveLeftovers() const { writing_.RemoveLeftovers(); }

private:
    FileWriting writing_;
    std::unique_ptr<DiskFiles> background_;
};

}  // namespace kvt
