#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kvt {

// Writes files whole, so that at every moment the old content or the new one is there.
class FileWriting {
public:
    // The folder of data, which keeps what a failure would lose; without one nothing is kept.
    void SetDataFolder(std::filesystem::path folder) { dataFolder_ = std::move(folder); }
    // Without it the content may still be on its way to the disk when its name is there.
    void WaitForDisk(bool waits) { waitsForDisk_ = waits; }

    // Writes a file, whose path is resolved, through a new one that takes its place and keeps its owner, group and
    // mode. Where the folder or the owner does not allow that, the file is written in place when a copy of it
    // lies in the folder of data. False leaves the old file as it was.
    bool Write(const std::filesystem::path& target, std::string_view content) const;

    // Writes a file that is new under its name: what is there gives way, a link itself and not what it points at.
    bool WriteNew(const std::filesystem::path& target, std::string_view content) const;

    // Removes the unfinished files of runs that were ended in the middle of a write.
    void RemoveLeftovers() const;

private:
    bool WriteInPlace(const std::filesystem::path& target, std::string_view content) const;
    bool KeepCopy(const std::filesystem::path& target, std::string_view content) const;

    std::filesystem::path dataFolder_;
    bool waitsForDisk_ = true;
};

// Writes to an open file; false where not all of it could be.
bool WriteAll(int handle, std::string_view content);

}  // namespace kvt
