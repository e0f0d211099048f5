#include "headless/guarded_files.h"

#include <algorithm>

#include "basic/run_time_error.h"
#include "system/file_names.h"

namespace kvt {

namespace fs = std::filesystem;

void OwnFolders::Add(const fs::path& folder) { folders_.push_back(ResolvedPath(folder)); }

bool OwnFolders::Hold(const fs::path& path) const {
    const fs::path resolved = ResolvedPath(path);
    return std::any_of(folders_.begin(), folders_.end(),
                       [&](const fs::path& folder) { return IsWithin(resolved, folder); });
}

namespace {

[[noreturn]] void Refuse(const GuardedFiles::Refusal& told, const fs::path& path) {
    if (told) told(ResolvedPath(path).string());
    throw RunTimeError(fault::PathFileAccess);
}

}  // namespace

void GuardedFiles::Demand(const fs::path& path) const {
    if (!folders_.Hold(path)) Refuse(OnRefused, path);
}

void GuardedFiles::WriteWhole(std::string_view path, std::string_view content) {
    Demand(SystemPath(path));
    files_.WriteWhole(path, content);
}

void GuardedFiles::Append(std::string_view path, std::string_view content) {
    Demand(SystemPath(path));
    files_.Append(path, content);
}

// What goes is the name: a link of the own folders goes, wherever it leads.
void GuardedFiles::Delete(std::string_view path) {
    const fs::path named = SystemPath(path);
    if (!folders_.Hold(named.has_parent_path() ? named.parent_path() : fs::path(".")))
        Refuse(OnRefused, named);
    files_.Delete(path);
}

void GuardedFiles::MakeFolder(std::string_view path) {
    Demand(SystemPath(path));
    files_.MakeFolder(path);
}

FileService& GuardedFiles::InBackground() {
    if (!background_) {
        background_ = std::make_unique<GuardedFiles>(files_.InBackground(), folders_);
        background_->OnRefused = OnRefused;
    }
    return *background_;
}

int GuardedPrograms::Start(std::string_view commandLine, std::string_view file) {
    if (!folders_.Hold(SystemPath(file))) Refuse(OnRefused, SystemPath(file));
    return programs_.Start(commandLine, file);
}

}  // namespace kvt
