#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace kvt {

// Tells which files of a folder have been written since. It looks at the folder itself, so that it works on the file
// systems of other machines too, from which no notice comes.
class FolderWatch {
public:
    // What lies in the folder now counts as known. A folder that is none, or cannot be read, is a Failure.
    explicit FolderWatch(std::filesystem::path folder);

    // The names of the files that are new or have changed and have been left alone from one look to the next, so that
    // they are whole, in the order of the alphabet. Hidden files and backups (NAME~) are passed over. A folder that
    // has gone is a Failure.
    std::vector<std::string> Look();
    // How many files there are.
    std::size_t Count() const { return known_.size(); }

private:
    struct State {
        std::uintmax_t Size = 0;
        std::int64_t Written = 0;
        std::uint64_t File = 0;
        bool operator==(const State&) const = default;
    };
    struct Entry {
        State Seen;
        bool Told = false;
    };
    std::map<std::string, State> Read() const;

    std::filesystem::path folder_;
    std::map<std::string, Entry> known_;
};

}  // namespace kvt
