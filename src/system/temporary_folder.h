#pragma once

#include <filesystem>

namespace kvt {

// A folder of its own under the system's temporary folder, which goes with the object; that of a run that was killed
// goes when the next one is made.
class TemporaryFolder {
public:
    // A Failure where there is no place for it.
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
    int lock_ = -1;
};

}  // namespace kvt
