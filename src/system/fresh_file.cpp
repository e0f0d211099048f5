#include "system/fresh_file.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <utility>

#include "system/file_names.h"
#include "system/file_writing.h"

namespace kvt {

namespace {

namespace fs = std::filesystem;

// ".~kvt-PROCESS-NUMBER", with an ending for a note.
constexpr std::string_view freshBeginning = ".~kvt-";
constexpr std::string_view noteEnding = ".note";

int MakePrivate(const fs::path& path) {
    return open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
}

std::string FreshName() {
    static std::random_device random;
    return std::string(freshBeginning) + std::to_string(getpid()) + "-" + std::to_string(random());
}

// Whether a name is one of FreshName by a process that has ended.
bool IsAbandoned(const std::string& name) {
    if (name.compare(0, freshBeginning.size(), freshBeginning) != 0) return false;
    pid_t writer = 0;
    const char* const number = name.data() + freshBeginning.size();
    const auto read = std::from_chars(number, name.data() + name.size(), writer);
    const bool isOurs = read.ec == std::errc() && read.ptr != name.data() + name.size() && *read.ptr == '-';
    return isOurs && writer > 0 && kill(writer, 0) != 0 && errno == ESRCH;
}

void FollowNote(const fs::path& note) {
    std::ifstream stream(note, std::ios::binary);
    const fs::path noted(std::string(std::istreambuf_iterator<char>(stream), {}));
    std::error_code ignored;
    const bool isFile = fs::is_regular_file(fs::symlink_status(noted, ignored));
    if (isFile && IsAbandoned(noted.filename().string())) fs::remove(noted, ignored);
}

}  // namespace

FreshFile::FreshFile(const fs::path& target, const fs::path& notesFolder) : target_(target) {
    do {
        path_ = target.parent_path() / FreshName();
        Note(notesFolder);
        handle_ = MakePrivate(path_);
    } while (handle_ < 0 && errno == EEXIST);
    made_ = handle_ >= 0;
}

// Those in the folder of the notes itself are found without one.
void FreshFile::Note(const fs::path& folder) {
    const int reason = errno;
    std::error_code failed;
    if (!note_.empty()) fs::remove(note_, failed);
    note_.clear();
    if (folder.empty() || IsWithin(path_, folder)) return;
    fs::create_directories(folder, failed);
    const fs::path note = folder / (path_.filename().string() + std::string(noteEnding));
    const int handle = failed ? -1 : MakePrivate(note);
    if (handle >= 0) {
        note_ = note;
        WriteAll(handle, path_.string());
        close(handle);
    }
    errno = reason;
}

FreshFile::~FreshFile() {
    const int reason = errno;
    std::error_code ignored;
    if (handle_ >= 0) close(handle_);
    if (made_) fs::remove(path_, ignored);
    if (!note_.empty()) fs::remove(note_, ignored);
    errno = reason;
}

void FreshFile::Sync() const { fsync(handle_); }

bool FreshFile::ReplaceTarget() {
    // Some disks tell only now that the content has no room.
    const bool whole = close(std::exchange(handle_, -1)) == 0;
    if (!whole || rename(path_.c_str(), target_.c_str()) != 0) return false;
    made_ = false;
    return true;
}

void RemoveUnfinished(const fs::path& notesFolder) {
    std::error_code failed;
    fs::recursive_directory_iterator entry(notesFolder, failed);
    for (; !failed && entry != fs::recursive_directory_iterator(); entry.increment(failed)) {
        const std::string name = entry->path().filename().string();
        if (!IsAbandoned(name)) continue;
        if (entry->path().extension() == noteEnding) FollowNote(entry->path());
        std::error_code ignored;
        fs::remove(entry->path(), ignored);
    }
}

}  // namespace kvt
