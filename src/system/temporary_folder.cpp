#include "system/temporary_folder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "basic/failure.h"

namespace kvt {

namespace {

namespace fs = std::filesystem;

constexpr const char* beginning = "kvtc-run-";
// Where nothing tells a run that was killed from one that goes on; these are left alone.
constexpr const char* beginningWithoutLocks = "kvtc-unlocked-";

int OpenFolder(const fs::path& folder) {
    return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
}

// Whether a lock keeps others out; under node it is given to everybody.
bool LocksHold(const fs::path& place) {
    const int one = OpenFolder(place);
    const int other = OpenFolder(place);
    const bool hold = flock(one, LOCK_SH | LOCK_NB) != 0 || flock(other, LOCK_EX | LOCK_NB) != 0;
    close(other);
    close(one);
    return hold;
}

// Removes the folders of runs that were killed: whoever uses one holds its lock.
void RemoveAbandoned(const fs::path& place) {
    std::error_code failed;
    for (fs::directory_iterator entry(place, failed); !failed && entry != fs::directory_iterator();
         entry.increment(failed)) {
        if (entry->path().filename().string().rfind(beginning, 0) != 0) continue;
        const int handle = OpenFolder(entry->path());
        if (handle < 0) continue;
        std::error_code ignored;
        if (flock(handle, LOCK_EX | LOCK_NB) == 0) fs::remove_all(entry->path(), ignored);
        close(handle);
    }
}

// A new folder; empty where there is no place for it.
std::string MakeFolder(const fs::path& place, bool locks) {
    const std::string name = locks ? beginning : beginningWithoutLocks;
    std::string pattern = (place / (name + "XXXXXX")).string();
    return mkdtemp(pattern.data()) ? pattern : std::string();
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
    std::error_code failed;
    const fs::path place = fs::temp_directory_path(failed);
    const bool locks = LocksHold(place);
    if (!failed && locks) RemoveAbandoned(place);
    // Another run may take it for an abandoned one until it is locked.
    while (!fs::exists(path_, failed)) {
        if (lock_ >= 0) close(lock_);
        const std::string made = place.empty() ? std::string() : MakeFolder(place, locks);
        if (made.empty()) {
            const char* const named = std::getenv("TMPDIR");
            throw Failure(std::string("no temporary folder can be made in ") + (named ? named : "/tmp"));
        }
        path_ = made;
        lock_ = OpenFolder(path_);
        flock(lock_, LOCK_EX);
    }
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
    close(lock_);
}

}  // namespace kvt
