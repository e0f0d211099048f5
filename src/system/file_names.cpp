#include "system/file_names.h"

#include <algorithm>
#include <charconv>
#include <deque>

#include "basic/code_page.h"
#include "basic/run_time_error.h"
#include "basic/text.h"

namespace kvt {

namespace {

namespace fs = std::filesystem;

constexpr int mostLinks = 40;

bool IsThere(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

fs::path PlainPath(const std::string& name) {
    if (name.find('\\') == std::string::npos) return name;
    std::string path;
    bool first = true;
    for (std::string_view piece : Split(name, "/")) {
        if (!std::exchange(first, false)) path += '/';
        const std::size_t begin = path.size();
        path += piece;
        const bool isName = piece.find('\\') != std::string_view::npos && IsThere(path);
        if (!isName) std::replace(path.begin() + static_cast<std::ptrdiff_t>(begin), path.end(), '\\', '/');
    }
    return path;
}

}  // namespace

fs::path SystemPath(std::string_view name) {
    const fs::path bytes = PlainPath(std::string(name));
    if (IsUtf8(name)) {
        const bool codePageHoldsIt = ToUtf8(FromUtf8(name)) == name;
        return codePageHoldsIt ? PlainPath(ToUtf8(name)) : bytes;
    }
    std::error_code ignored;
    const fs::path coded = PlainPath(ToUtf8(name));
    return !fs::exists(coded, ignored) && fs::exists(bytes, ignored) ? bytes : coded;
}

std::string NameForSystem(std::string_view name) { return SystemPath(name).string(); }

fs::path ResolvedPath(const fs::path& path) {
    std::error_code ignored;
    const fs::path whole = fs::absolute(path, ignored);
    std::deque<fs::path> left(whole.begin(), whole.end());
    fs::path resolved;
    for (int links = 0; !left.empty();) {
        const fs::path next = left.front();
        left.pop_front();
        if (next.empty() || next == ".") continue;
        if (next == "..") {
            resolved = resolved.parent_path();
            continue;
        }
        const fs::path named = resolved / next;
        if (!fs::is_symlink(fs::symlink_status(named, ignored))) {
            resolved = named;
            continue;
        }
        if (++links > mostLinks) throw RunTimeError(fault::PathFileAccess);
        const fs::path target = fs::read_symlink(named, ignored);
        left.insert(left.begin(), target.begin(), target.end());
    }
    return resolved;
}

int OwnOpenFile(fs::path path) {
    std::error_code failed;
    const fs::path own = fs::canonical("/proc/self/fd", failed);
    if (failed) return -1;
    for (int links = 0; links < mostLinks; ++links) {
        const std::string name = path.filename().string();
        int number = -1;
        const auto read = std::from_chars(name.data(), name.data() + name.size(), number);
        const bool isNumber = read.ec == std::errc() && read.ptr == name.data() + name.size();
        if (isNumber && fs::canonical(path.parent_path(), failed) == own) return number;
        const fs::path target = fs::read_symlink(path, failed);
        if (failed) return -1;
        path = path.parent_path() / target;
    }
    return -1;
}

bool IsWithin(const fs::path& path, const fs::path& folder) {
    return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

}  // namespace kvt
