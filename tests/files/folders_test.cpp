#include "files/folders.h"

#include <filesystem>
#include <fstream>

#include "support/bench_fixture.h"

namespace kvt::test {

namespace {

class FoldersTest : public BenchTest {
protected:
    std::vector<std::string> Reported() const {
        std::vector<std::string> all;
        for (const ErrorLog::Record& record : Bench->Log.Records()) {
            all.push_back(std::to_string(record.Number) + " " + record.Procedure);
        }
        return all;
    }
    const std::vector<std::string> threeFailures{3, "75 Form_Load"};
};

}  // namespace

TEST_F(FoldersTest, EachVersionHasItsOwn) {
    const Folders folders = FoldersBelow("/home/user/.local/share");
    EXPECT_EQ(folders.DataFolder, "/home/user/.local/share/EMCO/KVT_100/");
    EXPECT_EQ(folders.SettingsFolder, "/home/user/.local/share/EMCO/KVT_100/Settings/");
    EXPECT_EQ(folders.PreProcessorFolder, "/home/user/.local/share/EMCO/KVT_100/PreProcessors/");
}

TEST_F(FoldersTest, AreMadeWithTheirParentsAndLeftWhereTheyAre) {
    const Folders folders = FoldersBelow(Path("deep/down"));
    MakeFolders(folders, Platform.Files, "Form_Load");
    EXPECT_TRUE(std::filesystem::is_directory(folders.SettingsFolder));
    EXPECT_TRUE(std::filesystem::is_directory(folders.PreProcessorFolder));
    Platform.Files.WriteWhole(folders.SettingsFolder + "SettingsEditor.txt", "kept");
    MakeFolders(folders, Platform.Files, "Form_Load");
    EXPECT_EQ(Platform.Files.ReadWhole(folders.SettingsFolder + "SettingsEditor.txt"), "kept");
    EXPECT_TRUE(Reported().empty());
}

TEST_F(FoldersTest, AFailureIsReportedForEachOfThem) {
    Platform.Files.WriteWhole(Path("file"), "in the way");
    MakeFolders(FoldersBelow(Path("file")), Platform.Files, "Form_Load");
    EXPECT_EQ(Reported(), threeFailures);
}

// Failures that the system itself cannot look behind.
TEST_F(FoldersTest, ANameThatIsTooLongIsAFailureLikeAnyOther) {
    MakeFolders(FoldersBelow(Path(std::string(300, 'x'))), Platform.Files, "Form_Load");
    EXPECT_EQ(Reported(), threeFailures);
}

TEST_F(FoldersTest, ALinkThatLeadsNowhereIsAFailureLikeAnyOther) {
    std::filesystem::create_symlink(Path("round"), Path("round"));
    MakeFolders(FoldersBelow(Path("round")), Platform.Files, "Form_Load");
    EXPECT_EQ(Reported(), threeFailures);
}

}  // namespace kvt::test
