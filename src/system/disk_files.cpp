#include "system/disk_files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "basic/code_page.h"
#include "basic/run_time_error.h"
#include "basic/text.h"

namespace kvt {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void AccessError() { throw RunTimeError(fault::PathFileAccess); }

}  // namespace

bool DiskFiles::Exists(std::string_view path) {
    if (path.empty()) return false;
    std::error_code failed;
    // What may not be looked at is there, as far as one can tell: reading it says why not.
    return fs::exists(SystemPath(path), failed) || failed == std::errc::permission_denied;
}

std::optional<std::tm> DiskFiles::WrittenAt(std::string_view path) {
    struct stat found = {};
    std::tm local = {};
    if (stat(SystemPath(path).c_str(), &found) != 0 || !localtime_r(&found.st_mtime, &local))
        return std::nullopt;
    return local;
}

FileService& DiskFiles::InBackground() {
    if (!background_) {
        background_ = std::make_unique<DiskFiles>();
        background_->writing_ = writing_;
        // Twice a second, while somebody types.
        background_->writing_.WaitForDisk(false);
    }
    return *background_;
}

void DiskFiles::SetDataFolder(std::string_view folder) {
    writing_.SetDataFolder(ResolvedPath(SystemPath(folder)));
    if (background_) background_->SetDataFolder(folder);
}

std::string DiskFiles::ReadWhole(std::string_view path) {
    const fs::path file = SystemPath(path);
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
    const fs::path named = SystemPath(path);
    const int own = OwnOpenFile(named);
    const bool written = own >= 0 ? WriteAll(own, content) : writing_.Write(ResolvedPath(named), content);
    if (!written) AccessError();
}

void DiskFiles::WriteNew(std::string_view path, std::string_view content) {
    if (!writing_.WriteNew(SystemPath(path), content)) AccessError();
}

bool DiskFiles::CanWrite(std::string_view folder) {
    return access(SystemPath(folder).c_str(), W_OK | X_OK) == 0;
}

void DiskFiles::Append(std::string_view path, std::string_view content) {
    std::ofstream stream(SystemPath(path), std::ios::binary | std::ios::app);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    stream.close();
    if (!stream) AccessError();
}

void DiskFiles::Delete(std::string_view path) {
    std::error_code failed;
    const bool removed = fs::remove(SystemPath(path), failed);
    if (failed) AccessError();
    if (!removed) throw RunTimeError(fault::FileNotFound);
}

void DiskFiles::MakeFolder(std::string_view path) {
    std::error_code failed;
    const fs::path folder = SystemPath(path);
    fs::create_directories(folder, failed);
    std::error_code ignored;
    if (failed && !fs::is_directory(folder, ignored)) AccessError();
}

std::vector<std::string> DiskFiles::List(std::string_view folder, std::string_view pattern) {
    const std::string_view ending = pattern.substr(pattern.find('*') + 1);
    std::vector<std::string> names;
    std::error_code failed;
    fs::directory_iterator entry(SystemPath(folder), failed);
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
