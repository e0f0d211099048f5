#include "console/output_file.h"

#include <unistd.h>

#include <array>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <vector>

#include "basic/code_page.h"
#include "basic/local_time.h"
#include "basic/number.h"
#include "console/loaded_file.h"
#include "files/folders.h"
#include "system/user_folder.h"

namespace kvt {

namespace {

namespace fs = std::filesystem;

std::string DataFolder() {
    const std::string local = UserDataFolder();
    return local.empty() ? std::string() : FoldersBelow(local).DataFolder;
}

bool MayWrite(const fs::path& path) { return access(path.c_str(), W_OK) == 0; }

std::string WhyNoNewFile(const fs::path& path) {
    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    std::error_code ignored;
    if (!fs::is_directory(folder, ignored)) return "there is no folder " + folder.string();
    return MayWrite(folder) ? std::string() : "its folder cannot be written";
}

// "Received 2024-05-01 12.30.05.cnc", where nothing has that name yet.
std::string NewName(DiskFiles& files, const std::string& folder) {
    const std::tm local = LocalNow();
    std::array<char, 64> stamp = {};
    std::strftime(stamp.data(), stamp.size(), "Received %Y-%m-%d %H.%M.%S", &local);
    std::string name = folder + stamp.data();
    if (!files.Exists(name + ".cnc")) return name + ".cnc";
    int number = 2;
    while (files.Exists(name + " " + PlainNumber(number) + ".cnc")) ++number;
    return name + " " + PlainNumber(number) + ".cnc";
}

}  // namespace

std::string WhyNotWritten(const std::string& out, const std::string& source, SourceUse use) {
    const fs::path path = SystemPath(NameFromSystem(out));
    if (OwnOpenFile(path) >= 0) return {};
    std::error_code ignored;
    const bool isSource =
        !source.empty() && fs::equivalent(path, SystemPath(NameFromSystem(source)), ignored);
    if (isSource && use == SourceUse::Keeps) return "is the program itself, which would be lost";
    if (!isSource && fs::is_symlink(fs::symlink_status(path, ignored)))
        return "is a link to " + fs::read_symlink(path, ignored).string() + "; name that file itself";
    const fs::file_status there = fs::status(path, ignored);
    if (!fs::exists(there)) return WhyNoNewFile(path);
    if (fs::is_directory(there)) return "is a folder";
    if (!fs::is_regular_file(there)) return "is no plain file";
    return MayWrite(path) ? std::string() : "may not be written";
}

void PrepareToWrite(DiskFiles& files) {
    const std::string folder = DataFolder();
    if (folder.empty()) return;
    files.SetDataFolder(folder);
    files.RemoveLeftovers();
}

bool WriteOrKeep(const std::string& out, const std::string& text,
                 const std::function<bool(const std::string& name)>& write) {
    if (write(NameFromSystem(out))) return true;
    DiskFiles files;
    std::error_code failed;
    const fs::path temporary = fs::temp_directory_path(failed);
    std::vector<std::string> folders = {DataFolder()};
    if (!failed) folders.push_back(NameFromSystem(temporary.string()) + "/");
    for (const std::string& folder : folders) {
        if (folder.empty() || !Attempt("kvtc", [&] { files.MakeFolder(folder); })) continue;
        const std::string name = NewName(files, folder);
        if (!write(name)) continue;
        Complain(out, "could not be written; what was received is in " + NameForSystem(name));
        return false;
    }
    Complain(out, "could not be written; what was received goes to standard output");
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
    return false;
}

}  // namespace kvt
