#include "system/pre_processor_copies.h"

#include <sys/stat.h>

#include <fstream>
#include <iterator>

#include "basic/number.h"

namespace kvt {

namespace {

namespace fs = std::filesystem;

// Another installed file has another one, so that nothing is read while nothing changes.
std::string StampOf(const fs::path& file) {
    struct stat facts = {};
    if (stat(file.c_str(), &facts) != 0) return {};
    return PlainNumber(std::int64_t{facts.st_size}) + "," + PlainNumber(std::int64_t{facts.st_mtim.tv_sec}) +
           "," + PlainNumber(std::int64_t{facts.st_mtim.tv_nsec});
}

std::string ContentOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

bool Copy(const fs::path& from, const fs::path& to) {
    std::error_code failed;
    const fs::path fresh = to.string() + ".new";
    fs::copy_file(from, fresh, fs::copy_options::overwrite_existing, failed);
    if (!failed) fs::rename(fresh, to, failed);
    std::error_code ignored;
    if (failed) fs::remove(fresh, ignored);
    return !failed;
}

}  // namespace

void BringPreProcessors(const fs::path& installed, const fs::path& folder, SuppliedRecord& record) {
    std::error_code failed;
    for (fs::directory_iterator entry(installed, failed); !failed && entry != fs::directory_iterator();
         entry.increment(failed)) {
        const fs::path& source = entry->path();
        const std::string name = source.filename().string();
        const fs::path copy = folder / name;
        const std::string stamp = StampOf(source);
        std::error_code ignored;
        const bool present = fs::exists(copy, ignored);
        if (present && !stamp.empty() && record.StampOf(name) == stamp) continue;
        const std::string content = ContentOf(source);
        const std::string there = present ? ContentOf(copy) : std::string();
        if (there == content) {
            record.Note(name, content, stamp);
        } else if (present && !record.IsUntouched(name, there)) {
            record.Note(name, {}, stamp);
        } else {
            fs::create_directories(folder, ignored);
            if (Copy(source, copy)) record.Note(name, content, stamp);
        }
    }
}

}  // namespace kvt
