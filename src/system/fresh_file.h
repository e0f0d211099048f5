#pragma once

#include <filesystem>
#include <string_view>

namespace kvt {

// A new file beside the one whose place it is to take, readable for its writer alone until then. It goes with the
// object if it has not taken the place. Where a folder for notes is given, a note there leads to it, for
// RemoveUnfinished.
class FreshFile {
public:
    FreshFile(const std::filesystem::path& target, const std::filesystem::path& notesFolder);
    ~FreshFile();
    FreshFile(const FreshFile&) = delete;
    FreshFile& operator=(const FreshFile&) = delete;

    // Below 0 where it could not be made; errno tells why.
    int Handle() const { return handle_; }
    // Has the content on the disk before the name is.
    void Sync() const;
    // Closes it, and gives it the name. False, and errno tells why, where that fails.
    bool ReplaceTarget();

private:
    void Note(const std::filesystem::path& folder);

    std::filesystem::path target_;
    std::filesystem::path path_;
    std::filesystem::path note_;
    int handle_ = -1;
    bool made_ = false;
};

// Removes the fresh files, in a folder and those below it and where its notes lead, whose writers have ended.
void RemoveUnfinished(const std::filesystem::path& notesFolder);

}  // namespace kvt
