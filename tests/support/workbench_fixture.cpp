#include "support/workbench_fixture.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "basic/number.h"
#include "basic/text.h"
#include "files/cnc_format.h"

namespace kvt::test {

namespace {

// The cell as wide as its column, the first character the prefix.
std::string Wide(const std::string& cell, std::size_t width) {
    if (cell.empty()) return std::string(width, ' ');
    if (cell.size() == width) return cell;
    const bool prefixed = !(cell[0] >= '0' && cell[0] <= '9');
    const std::string digits = prefixed ? cell.substr(1) : cell;
    return (prefixed ? cell.substr(0, 1) : " ") + RightPad(digits, width - 1);
}

}  // namespace

std::string FileText(const std::string& machine, const std::vector<Line>& lines, const std::string& units,
                     const std::string& notes) {
    std::string text = notes.empty() ? "" : notes + "\r\n";
    text += "%\r\n";
    if (machine == "MK4") text += std::string(cnc::HeaderMK4) + "\r\n";
    if (machine == "F1") text += std::string(cnc::HeaderF1) + "\r\n";
    int number = 0;
    for (const Line& line : lines) {
        const std::string code =
            std::string(line.Code).size() == 2 ? " " + std::string(line.Code) : line.Code;
        const std::string n = RightPad(Format(number, "00"), machine == "MK2" ? 2 : 3);
        ++number;
        if (machine == "MK2") {
            text += "   N" + n + " G" + code.substr(1) + " X" + Wide(line.X, 5) + " Z" + Wide(line.Z, 6) +
                    " F" + RightPad(line.F, 3) + " " + line.Comment;
        } else if (machine == "MK4") {
            text += "   " + n + code + " " + Wide(line.X, 5) + " " + Wide(line.Z, 6) + Wide(line.F, 4) + " " +
                    RightPad(line.H, 3) + "  " + line.Comment;
        } else {
            text += "   " + n + code + Wide(line.X, 6) + Wide(line.Y, 5) + Wide(line.Z, 6) + Wide(line.F, 4) +
                    " " + line.Comment;
        }
        text += "\r\n";
    }
    return text + "   " + units + "\r\n";
}

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
