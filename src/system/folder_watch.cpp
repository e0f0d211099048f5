#include "system/folder_watch.h"

#include <sys/stat.h>

#include <utility>

#include "basic/failure.h"

namespace kvt {

namespace fs = std::filesystem;

FolderWatch::FolderWatch(fs::path folder) : folder_(std::move(folder)) {
    for (const auto& [name, state] : Read()) known_[name] = {state, true};
}

std::map<std::string, FolderWatch::State> FolderWatch::Read() const {
    constexpr std::int64_t nanoseconds = 1'000'000'000;
    std::map<std::string, State> found;
    std::error_code failed;
    for (fs::directory_iterator entry(folder_, failed); !failed && entry != fs::directory_iterator();
         entry.increment(failed)) {
        const std::string name = entry->path().filename().string();
        struct stat file = {};
        if (name.front() == '.' || name.back() == '~') continue;
        if (stat(entry->path().c_str(), &file) != 0 || !S_ISREG(file.st_mode)) continue;
        found[name] = {static_cast<std::uintmax_t>(file.st_size),
                       file.st_mtim.tv_sec * nanoseconds + file.st_mtim.tv_nsec, file.st_ino};
    }
    if (failed) throw Failure("the folder cannot be read");
    return found;
}

std::vector<std::string> FolderWatch::Look() {
    std::vector<std::string> written;
    std::map<std::string, Entry> now;
    for (const auto& [name, state] : Read()) {
        const auto before = known_.find(name);
        const bool same = before != known_.end() && before->second.Seen == state;
        // One that is still being written differs from look to look.
        if (same && !before->second.Told) written.push_back(name);
        now[name] = {state, same};
    }
    known_ = std::move(now);
    return written;
}

}  // namespace kvt
