#include "support/workbench_fixture.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "basic/text.h"

namespace kvt::test {

std::vector<std::string> SampleFiles() {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(KVT_SOURCE_DIR "/samples"))
        if (entry.path().extension() == ".cnc") files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

WorkbenchFixture::WorkbenchFixture() {
    std::string pattern = (std::filesystem::temp_directory_path() / "kvt-test-XXXXXX").string();
    Folder = mkdtemp(pattern.data());
    // What commands keep of the user's is kept there too.
    setenv("XDG_DATA_HOME", Path("user").c_str(), 1);
    Workbench = std::make_unique<kvt::Workbench>(Platform.Services);
}

WorkbenchFixture::~WorkbenchFixture() {
    Workbench.reset();
    std::error_code ignored;
    std::filesystem::remove_all(Folder, ignored);
}

std::string WorkbenchFixture::Put(const std::string& name, const std::string& text) {
    Platform.Files.WriteWhole(Path(name), text);
    return Path(name);
}

LoadResult WorkbenchFixture::Load(const std::string& text, const std::string& name) {
    std::string path = Put(name, text);
    return Workbench->Reader.LoadFile(path);
}

void WorkbenchFixture::Check(const std::string& machine, const std::vector<Line>& lines,
                             const std::string& units) {
    ASSERT_EQ(Load(FileText(machine, lines, units)), LoadResult::Loaded);
}

std::string WorkbenchFixture::Cell(int line, int column) const {
    return std::string(Workbench->Store.lvCncProgram.Row(line + 1)[column].View());
}

std::string WorkbenchFixture::Error(int line) const {
    return std::string(Trim(Workbench->Store.lvCncProgram.Row(line + 1)[column::Error]));
}

std::string WorkbenchFixture::FileContent(const std::string& name) {
    return Platform.Files.ReadWhole(Path(name));
}

}  // namespace kvt::test
