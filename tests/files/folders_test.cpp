#include "files/folders.h"

#include <filesystem>

#include "support/workbench_fixture.h"

namespace kvt::test {

namespace {

class FoldersTest : public WorkbenchFixture {
protected:
    // Makes the folders below one, and gives the failures that were reported.
    std::string Make(const std::string& below) {
        MakeFolders(FoldersBelow(below), Platform.Files, "Form_Load");
        std::string reported;
        for (const ErrorLog::Record& record : Workbench->Log.Records()) {
            reported += std::to_string(record.Number) + " " + record.Procedure + ", ";
        }
        return reported;
    }
    const std::string threeFailures = "75 Form_Load, 75 Form_Load, 75 Form_Load, ";
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
    EXPECT_EQ(Make(Path("deep/down")), "");
    EXPECT_TRUE(std::filesystem::is_directory(folders.PreProcessorFolder));
    Platform.Files.WriteWhole(folders.SettingsFolder + "SettingsEditor.txt", "kept");
    EXPECT_EQ(Make(Path("deep/down")), "");
    EXPECT_EQ(Platform.Files.ReadWhole(folders.SettingsFolder + "SettingsEditor.txt"), "kept");
}

TEST_F(FoldersTest, AFileInTheWayIsReportedForEachOfThem) {
    Platform.Files.WriteWhole(Path("file"), "in the way");
    EXPECT_EQ(Make(Path("file")), threeFailures);
}

TEST_F(FoldersTest, ANameThatIsTooLongIsAFailureLikeAnyOther) {
    EXPECT_EQ(Make(Path(std::string(300, 'x'))), threeFailures);
}

TEST_F(FoldersTest, ALinkThatLeadsInACircleIsAFailureLikeAnyOther) {
    std::filesystem::create_symlink(Path("round"), Path("round"));
    EXPECT_EQ(Make(Path("round")), threeFailures);
}

}  // namespace kvt::test
