#include "system/file_writing.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <optional>

#include "system/fresh_file.h"

namespace kvt {

namespace {

namespace fs = std::filesystem;

// Read, write and run, for owner, group and others: no program that a file may hold runs as its owner.
constexpr mode_t plainMode = S_IRWXU | S_IRWXG | S_IRWXO;
constexpr const char* copiesFolder = "Copies";
constexpr std::size_t longestName = 200;

std::optional<struct stat> StateOf(const fs::path& path) {
    struct stat state = {};
    if (stat(path.c_str(), &state) != 0) return std::nullopt;
    return state;
}

// Closed at the end.
class Opened {
public:
    Opened(const fs::path& path, int flags) : handle_(open(path.c_str(), flags | O_CLOEXEC | O_NOFOLLOW)) {}
    ~Opened() {
        if (handle_ >= 0) close(handle_);
    }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    int Handle() const { return handle_; }

private:
    int handle_;
};

bool OpensForWriting(const fs::path& path) { return Opened(path, O_WRONLY | O_NONBLOCK).Handle() >= 0; }

void GiveUsualMode(int handle) {
    const mode_t mask = umask(0);
    umask(mask);
    fchmod(handle, (S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH) & ~mask);
}

// Owner, group and mode of the file that is replaced. False where owner or group cannot be had; another group
// then may do no more than everybody.
bool CopyOwnerAndMode(int handle, const struct stat& old) {
    struct stat own = {};
    if (fstat(handle, &own) != 0) return false;
    const bool sameGroup =
        own.st_gid == old.st_gid || fchown(handle, static_cast<uid_t>(-1), old.st_gid) == 0;
    const bool sameOwner =
        own.st_uid == old.st_uid || fchown(handle, old.st_uid, static_cast<gid_t>(-1)) == 0;
    mode_t mode = old.st_mode & plainMode;
    if (!sameGroup) mode = (mode & ~static_cast<mode_t>(S_IRWXG)) | (mode & S_IRWXO) << 3;
    fchmod(handle, mode);
    return sameOwner && sameGroup;
}

enum class Outcome { Written, Failed, NotThisWay };

// The folder, or what has the name already, does not let a new file take the place.
Outcome OutcomeOfError() {
    const bool refused = errno == EACCES || errno == EPERM || errno == EROFS || errno == EBUSY;
    return refused ? Outcome::NotThisWay : Outcome::Failed;
}

struct Replacement {
    const fs::path& Target;
    std::string_view Content;
    const std::optional<struct stat>& Old;
    const fs::path& NotesFolder;
    bool Syncs;
};

Outcome Replace(const Replacement& what, bool evenWithAnotherOwner) {
    FreshFile fresh(what.Target, what.NotesFolder);
    if (fresh.Handle() < 0) return OutcomeOfError();
    // The content comes first, while nobody else may look at it.
    if (!WriteAll(fresh.Handle(), what.Content)) return Outcome::Failed;
    if (!what.Old) {
        GiveUsualMode(fresh.Handle());
    } else if (!CopyOwnerAndMode(fresh.Handle(), *what.Old) && !evenWithAnotherOwner) {
        return Outcome::NotThisWay;
    }
    if (what.Syncs) fresh.Sync();
    return fresh.ReplaceTarget() ? Outcome::Written : OutcomeOfError();
}

// Takes the room that a content needs before a byte of the old one is lost.
bool ReserveSpace(int handle, std::size_t size, off_t before) {
    if (static_cast<off_t>(size) <= before) return true;
    if (posix_fallocate(handle, 0, static_cast<off_t>(size)) == 0) return true;
    static_cast<void>(ftruncate(handle, before));
    return false;
}

bool Overwrite(int handle, std::string_view content) {
    return lseek(handle, 0, SEEK_SET) == 0 && WriteAll(handle, content) &&
           ftruncate(handle, static_cast<off_t>(content.size())) == 0;
}

// The path of a file as the name of one, so that copies of files from everywhere can lie in one folder.
std::string NameOfCopy(const fs::path& target) {
    std::string name = target.string();
    std::replace(name.begin(), name.end(), '/', '!');
    return name.size() <= longestName ? name : name.substr(name.size() - longestName);
}

}  // namespace

bool WriteAll(int handle, std::string_view content) {
    while (!content.empty()) {
        const ssize_t size = write(handle, content.data(), content.size());
        if (size < 0 && errno == EINTR) continue;
        if (size <= 0) return false;
        content.remove_prefix(static_cast<std::size_t>(size));
    }
    return true;
}

bool FileWriting::Write(const fs::path& target, std::string_view content) const {
    const std::optional<struct stat> old = StateOf(target);
    // What is no plain file is not replaced, and a protected one stays what it is.
    if (old && (!S_ISREG(old->st_mode) || !OpensForWriting(target))) return false;
    const Replacement what{target, content, old, dataFolder_, waitsForDisk_};
    Outcome outcome = Replace(what, false);
    if (outcome == Outcome::NotThisWay && old) {
        if (WriteInPlace(target, content)) return true;
        outcome = Replace(what, true);
    }
    return outcome == Outcome::Written;
}

bool FileWriting::WriteNew(const fs::path& target, std::string_view content) const {
    FreshFile fresh(target, dataFolder_);
    if (fresh.Handle() < 0 || !WriteAll(fresh.Handle(), content)) return false;
    GiveUsualMode(fresh.Handle());
    return fresh.ReplaceTarget();
}

bool FileWriting::WriteInPlace(const fs::path& target, std::string_view content) const {
    std::ifstream stream(target, std::ios::binary);
    const std::string before(std::istreambuf_iterator<char>(stream), {});
    if (!stream || !KeepCopy(target, before)) return false;
    const Opened file(target, O_WRONLY);
    struct stat state = {};
    if (file.Handle() < 0 || fstat(file.Handle(), &state) != 0) return false;
    if (!ReserveSpace(file.Handle(), content.size(), state.st_size)) return false;
    if ((state.st_mode & ~(plainMode | S_IFMT)) != 0) fchmod(file.Handle(), state.st_mode & plainMode);
    if (Overwrite(file.Handle(), content)) {
        if (waitsForDisk_) fsync(file.Handle());
        return true;
    }
    Overwrite(file.Handle(), before);
    return false;
}

bool FileWriting::KeepCopy(const fs::path& target, std::string_view content) const {
    if (dataFolder_.empty()) return false;
    const fs::path folder = dataFolder_ / copiesFolder;
    std::error_code failed;
    fs::create_directories(folder, failed);
    const fs::path copy = folder / NameOfCopy(target);
    FreshFile fresh(copy, dataFolder_);
    if (fresh.Handle() < 0 || !WriteAll(fresh.Handle(), content)) return false;
    fresh.Sync();
    return fresh.ReplaceTarget();
}

void FileWriting::RemoveLeftovers() const {
    if (!dataFolder_.empty()) RemoveUnfinished(dataFolder_);
}

}  // namespace kvt
