#include "web/web_files.h"

#include <algorithm>
#include <charconv>
#include <ctime>

#include "basic/line_end.h"
#include "basic/run_time_error.h"
#include "basic/text.h"

namespace kvt {

namespace {

constexpr std::string_view dataFolder = "/data";
// Of a file that grows the browser's storage, which is small, has the end, in whole lines.
constexpr std::size_t mostGrown = 65536;

std::string Normal(std::string_view path) {
    std::string normal(path);
    std::replace(normal.begin(), normal.end(), '\\', '/');
    return normal;
}

// The user's files have no folder that a browser tells.
bool IsUsers(std::string_view path) { return !path.starts_with('/'); }

bool LiesIn(std::string_view path, std::string_view folder) {
    return path.substr(0, folder.size()) == folder &&
           (path.size() == folder.size() || path[folder.size()] == '/');
}

}  // namespace

std::string WebFiles::PathOf(std::string_view name) { return std::string(ExtractFileName(Normal(name))); }

void WebFiles::Put(std::string_view path, std::optional<std::string> content) {
    files_[Normal(path)] = {std::move(content), std::nullopt};
}

void WebFiles::PutAside(std::string_view path, std::string_view content) {
    files_[Normal(path)] = {std::string(content), system_.Now(), true};
}

void WebFiles::SetWritten(std::string_view path, std::string_view seconds) {
    const auto found = files_.find(Normal(path));
    long long count = 0;
    const char* const end = seconds.data() + seconds.size();
    const auto read = std::from_chars(seconds.data(), end, count);
    if (found == files_.end() || read.ec != std::errc() || read.ptr != end) return;
    const auto time = static_cast<std::time_t>(count);
    std::tm local = {};
    if (localtime_r(&time, &local)) found->second.Written = local;
}

bool WebFiles::Knows(std::string_view path) const { return files_.contains(Normal(path)); }

// A folder is there with what is in it, a file that the page keeps back when it gives it: its user may have to agree.
bool WebFiles::Exists(std::string_view path) {
    const std::string normal = Normal(path);
    if (const auto found = files_.find(normal); found != files_.end())
        return Fetch(found->first, found->second);
    const std::string folder = normal.ends_with('/') ? normal : normal + "/";
    const auto first = files_.lower_bound(folder);
    return !normal.empty() && first != files_.end() && first->first.starts_with(folder);
}

std::optional<std::tm> WebFiles::WrittenAt(std::string_view path) {
    const auto found = files_.find(Normal(path));
    return found == files_.end() ? std::nullopt : found->second.Written;
}

// Asks the page for a content that it has kept back; false where it has none to give now.
bool WebFiles::Fetch(const std::string& path, File& file) {
    if (file.Content) return true;
    const PageEvent answer = system_.Ask(Message("read").Shown("path", path), WebSystem::Meanwhile::Nothing);
    if (answer.Has("content")) file.Content = answer.Bytes("content");
    return file.Content.has_value();
}

std::string WebFiles::ReadWhole(std::string_view path) {
    const auto found = files_.find(Normal(path));
    if (found == files_.end() || !Fetch(found->first, found->second)) throw RunTimeError(fault::FileNotFound);
    if (found->second.Content->size() > LargestText) throw RunTimeError(fault::PathFileAccess);
    return *found->second.Content;
}

// Has the page keep a content, or forget it; error 75 where it does not.
void WebFiles::Keep(const std::string& path, const std::string* content) {
    if (LiesIn(path, dataFolder) && !stores_) return;
    const bool users = IsUsers(path);
    if (!users && !LiesIn(path, dataFolder)) throw RunTimeError(fault::PathFileAccess);
    Message message(users ? "saveFile" : "store");
    message.Shown("path", path).Name("content");
    if (content) {
        message.PutBytes(*content);
    } else {
        message.PutNothing();
    }
    if (!system_.Ask(message, WebSystem::Meanwhile::Nothing).Flag("ok"))
        throw RunTimeError(fault::PathFileAccess);
}

void WebFiles::WriteWhole(std::string_view path, std::string_view content) {
    if (content.size() > LargestText) throw RunTimeError(fault::PathFileAccess);
    const std::string normal = Normal(path);
    const std::string whole(content);
    Keep(normal, &whole);
    files_[normal] = {whole, system_.Now()};
}

void WebFiles::Append(std::string_view path, std::string_view content) {
    std::string whole = Exists(path) ? ReadWhole(path).append(content) : std::string(content);
    if (LiesIn(Normal(path), dataFolder) && whole.size() > mostGrown) {
        const std::size_t end = whole.find(LineEnd, whole.size() - mostGrown);
        if (end != std::string::npos) whole.erase(0, end + LineEnd.size());
    }
    WriteWhole(path, whole);
}

bool WebFiles::CanWrite(std::string_view folder) {
    const std::string normal = Normal(folder);
    return LiesIn(normal, dataFolder) || IsUsers(normal);
}

void WebFiles::Delete(std::string_view path) {
    const auto found = files_.find(Normal(path));
    if (found == files_.end()) throw RunTimeError(fault::FileNotFound);
    if (!found->second.Aside) Keep(found->first, nullptr);
    files_.erase(found);
}

void WebFiles::MakeFolder(std::string_view path) {
    if (!CanWrite(path)) throw RunTimeError(fault::PathFileAccess);
}

std::vector<std::string> WebFiles::List(std::string_view folder, std::string_view pattern) {
    std::string normal = Normal(folder);
    if (!normal.empty() && normal.back() != '/') normal += '/';
    const std::string ending = UpperCase(pattern.substr(pattern.find('*') + 1));
    std::vector<std::string> names;
    for (auto file = files_.lower_bound(normal); file != files_.end() && file->first.starts_with(normal);
         ++file) {
        const std::string name = file->first.substr(normal.size());
        if (name.find('/') == std::string::npos && UpperCase(name).ends_with(ending)) names.push_back(name);
    }
    return names;
}

}  // namespace kvt
