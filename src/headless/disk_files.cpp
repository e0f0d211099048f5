#include "headless/disk_files.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>

#include "basic/code_page.h"
#include "basic/text.h"

namespace kvt {

namespace {

namespace fs = std::filesystem;

fs::path PlainPath(std::string name) {
    std::replace(name.begin(), name.end(), '\\', '/');
    return fs::path(name);
}

// The file that a name means. A name that the code page holds is coded for the system; one that it does not hold
// is the system's own bytes, as NameFromSystem left it.
fs::path PathOf(std::string_view name) {
    const fs::path bytes = PlainPath(std::string(name));
    if (IsUtf8(name)) {
        const bool codePageHoldsIt = ToUtf8(FromUtf8(name)) == name;
        return codePageHoldsIt ? PlainPath(ToUtf8(name)) : bytes;
    }
    std::error_code ignored;
    const fs::path coded = PlainPath(ToUtf8(name));
    return !fs::exists(coded, ignored) && fs::exists(bytes, ignored) ? bytes : coded;
}

[[noreturn]] void AccessError() { throw RunTimeError(fault::PathFileAccess); }

// Where a save is to land: what a link points at, so that the link stays one.
fs::path TargetOf(const fs::path& path) {
    std::error_code failed;
    const fs::path target = fs::canonical(path, failed);
    if (!failed) return target;
    // A link to what is not there yet.
    const fs::path named = fs::read_symlink(path, failed);
    return failed ? path : path.parent_path() / named;
}

// A name beside the target that no file has.
fs::path FreshName(const fs::path& target) {
    std::random_device random;
    std::error_code ignored;
    for (;;) {
        fs::path fresh = target.parent_path() / (".~" + std::to_string(random()));
        if (!fs::exists(fs::symlink_status(fresh, ignored))) return fresh;
    }
}

bool WriteStream(const fs::path& path, std::string_view content) {
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    stream.close();
    return static_cast<bool>(stream);
}

// Has the content on the disk before its name is, so that a power cut leaves the old file or the new one.
void Settle(const fs::path& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return;
    fsync(file);
    close(file);
}

}  // namespace
std::string NameForSystem(std::string_view name) { return PathOf(name).string(); }

bool DiskFiles::Exists(std::string_view path) {
    if (path.empty()) return false;
    std::error_code failed;
    // What may not be looked at is there, as far as one can tell: reading it says why not.
    return fs::exists(PathOf(path), failed) || failed == std::errc::permission_denied;
}

FileService& DiskFiles::InBackground() {
    if (!background_) {
        background_ = std::make_unique<DiskFiles>(faults_, "background");
        // Twice a second, while somebody types.
        background_->waitsForDisk_ = false;
    }
    return *background_;
}

std::string DiskFiles::ReadWhole(std::string_view path) {
    faults_.Pass(service_, fault::PathFileAccess);
    const fs::path file = PathOf(path);
    std::error_code failed;
    if (!fs::exists(file, failed)) throw RunTimeError(failed ? fault::PathFileAccess : fault::FileNotFound);
    // What is no plain file may never end, or never begin.
    if (!fs::is_regular_file(file, failed)) AccessError();

    std::ifstream stream(file, std::ios::binary);
    if (!stream) AccessError();
    std::string content;
    const std::uintmax_t size = fs::file_size(file, failed);
    if (!failed) {
        if (size > LargestText) AccessError();
        content.resize(static_cast<std::size_t>(size));
        stream.read(content.data(), static_cast<std::streamsize>(content.size()));
        content.resize(static_cast<std::size_t>(stream.gcount()));
    }
    // A file that grows meanwhile, or whose size the system does not tell.
    char more[4096];
    while (stream.good()) {
        stream.read(more, sizeof more);
        content.append(more, static_cast<std::size_t>(stream.gcount()));
        if (content.size() > LargestText) AccessError();
    }
    if (stream.bad()) AccessError();
    return content;
}

void DiskFiles::WriteWhole(std::string_view path, std::string_view content) {
    faults_.Pass(service_, fault::PathFileAccess);
    const fs::path target = TargetOf(PathOf(path));
    std::error_code failed;
    const bool replaces = fs::exists(target, failed);
    if (replaces) {
        // What is no plain file is not replaced, and a protected one stays what it is.
        if (!fs::is_regular_file(target, failed)) AccessError();
        if (!std::ofstream(target, std::ios::binary | std::ios::app)) AccessError();
    }
    const fs::path fresh = FreshName(target);
    if (!WriteStream(fresh, content)) {
        fs::remove(fresh, failed);
        AccessError();
    }
    if (waitsForDisk_) Settle(fresh);
    if (replaces) fs::permissions(fresh, fs::status(target, failed).permissions(), failed);
    fs::rename(fresh, target, failed);
    if (failed) {
        std::error_code ignored;
        fs::remove(fresh, ignored);
        AccessError();
    }
}

void DiskFiles::WriteNew(std::string_view path, std::string_view content) {
    faults_.Pass(service_, fault::PathFileAccess);
    const fs::path target = PathOf(path);
    const fs::path fresh = FreshName(target);
    std::error_code failed;
    bool written = WriteStream(fresh, content);
    if (written) {
        fs::rename(fresh, target, failed);
        written = !failed;
    }
    if (written) return;
    fs::remove(fresh, failed);
    AccessError();
}

bool DiskFiles::CanWrite(std::string_view folder) { return access(PathOf(folder).c_str(), W_OK | X_OK) == 0; }

void DiskFiles::Append(std::string_view path, std::string_view content) {
    faults_.Pass(service_, fault::PathFileAccess);
    std::ofstream stream(PathOf(path), std::ios::binary | std::ios::app);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    stream.close();
    if (!stream) AccessError();
}

void DiskFiles::Delete(std::string_view path) {
    faults_.Pass(service_, fault::PathFileAccess);
    std::error_code failed;
    const bool removed = fs::remove(PathOf(path), failed);
    if (failed) AccessError();
    if (!removed) throw RunTimeError(fault::FileNotFound);
}

void DiskFiles::MakeFolder(std::string_view path) {
    faults_.Pass(service_, fault::PathFileAccess);
    std::error_code failed;
    const fs::path folder = PathOf(path);
    fs::create_directories(folder, failed);
    std::error_code ignored;
    if (failed && !fs::is_directory(folder, ignored)) AccessError();
}

// Not among the calls that can be planned to fail: menus look into folders at any time.
std::vector<std::string> DiskFiles::List(std::string_view folder, std::string_view pattern) {
    const std::string_view ending = pattern.substr(pattern.find('*') + 1);
    std::vector<std::string> names;
    std::error_code failed;
    fs::directory_iterator entry(PathOf(folder), failed);
    if (failed && failed != std::errc::no_such_file_or_directory) AccessError();
    for (; !failed && entry != fs::directory_iterator(); entry.increment(failed)) {
        std::error_code ignored;
        std::string name = NameFromSystem(entry->path().filename().string());
        const bool fits = name.size() >= ending.size() &&
                          EqualIgnoringCase(Right(name, static_cast<std::ptrdiff_t>(ending.size())), ending);
        if (fits && entry->is_regular_file(ignored)) names.push_back(std::move(name));
    }
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace kvt
