#include "headless/temporary_folder.h"

#include <cstdlib>
#include <string>

#include "basic/failure.h"

namespace kvt {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
    std::error_code failed;
    std::string pattern = (fs::temp_directory_path(failed) / "kvtc-XXXXXX").string();
    if (failed || !mkdtemp(pattern.data())) {
        const char* const named = std::getenv("TMPDIR");
        throw Failure(std::string("no temporary folder can be made in ") + (named ? named : "/tmp"));
    }
    path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

}  // namespace kvt
