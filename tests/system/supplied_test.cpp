#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "basic/failure.h"
#include "platform/supplied_record.h"
#include "system/disk_files.h"
#include "system/folder_watch.h"
#include "system/pre_processor_copies.h"
#include "system/temporary_folder.h"

namespace kvt::test {

namespace {

namespace fs = std::filesystem;

class SuppliedTest : public ::testing::Test {
protected:
    SuppliedTest() { fs::create_directories(Path("installed")); }
    std::string Path(const std::string& name) const { return Folder + "/" + name; }
    void Put(const std::string& name, const std::string& text) {
        fs::create_directories(fs::path(Path(name)).parent_path());
        Files.WriteWhole(Path(name), text);
    }
    std::string Content(const std::string& name) { return Files.ReadWhole(Path(name)); }
    // What the start of the program does.
    void Start() {
        SuppliedRecord record(Files, Path("record"));
        BringPreProcessors(Path("installed"), Path("own"), record);
        record.Renew("Reset.txt", Path("Reset.txt"), resetText);
        record.Write();
    }

    const TemporaryFolder temporary;
    const std::string Folder = temporary.Path();
    std::string resetText = "first";
    DiskFiles Files;
};

TEST_F(SuppliedTest, CopiesFollowTheInstallationUntilTheUserChangesThem) {
    Put("installed/tool.MK4", "one");
    Put("installed/tool.F1", "one");
    fs::permissions(Path("installed/tool.MK4"), fs::perms::owner_all);
    Start();
    EXPECT_EQ(Content("own/tool.MK4"), "one");
    EXPECT_EQ(fs::status(Path("own/tool.MK4")).permissions(), fs::perms::owner_all);
    Put("own/tool.F1", "the user's");
    Put("own/other.F1", "the user's");
    Put("installed/tool.MK4", "two");
    Put("installed/tool.F1", "two");
    Put("installed/other.F1", "two");
    resetText = "second";
    Start();
    EXPECT_EQ(Content("own/tool.MK4"), "two");
    EXPECT_EQ(Content("own/tool.F1"), "the user's");
    EXPECT_EQ(Content("own/other.F1"), "the user's");
    EXPECT_EQ(Content("Reset.txt"), "second");
    Put("Reset.txt", "a school's");
    resetText = "third";
    fs::remove(Path("own/tool.F1"));
    Start();
    EXPECT_EQ(Content("own/tool.F1"), "two");
    EXPECT_EQ(Content("Reset.txt"), "a school's");
    EXPECT_EQ(std::distance(fs::directory_iterator(Path("own")), fs::directory_iterator()), 3);
}

// Then every file that differs counts as the user's.
TEST_F(SuppliedTest, ARecordThatIsNoneOverwritesNothing) {
    for (const char* record : {"", "=\n", "tool.MK4=\r\n\r\n=x y z", "\x01\xFFtool.MK4"}) {
        Put("record", record);
        Put("installed/tool.MK4", "new");
        Put("own/tool.MK4", "old");
        Put("Reset.txt", "old");
        Start();
        EXPECT_EQ(Content("own/tool.MK4"), "old") << record;
        EXPECT_EQ(Content("Reset.txt"), "old") << record;
    }
}

TEST_F(SuppliedTest, AWatchTellsOnceOfAFileThatIsWhole) {
    using Names = std::vector<std::string>;
    Put("before.cnc", "1");
    FolderWatch watch(Folder);
    EXPECT_EQ(watch.Look(), Names{});
    Put("b.cnc", "1");
    Put("a.cnc", "1");
    Put(".hidden", "1");
    Put("a.cnc~", "1");
    mkfifo(Path("pipe").c_str(), 0600);
    EXPECT_EQ(watch.Look(), Names{});
    // Still being written.
    Files.Append(Path("b.cnc"), "2");
    EXPECT_EQ(watch.Look(), Names{"a.cnc"});
    EXPECT_EQ(watch.Look(), Names{"b.cnc"});
    EXPECT_EQ(watch.Look(), Names{});
    Put("before.cnc", "1");  // saved as it was
    fs::remove(Path("a.cnc"));
    watch.Look();
    EXPECT_EQ(watch.Look(), Names{"before.cnc"});
    fs::remove_all(Folder);
    EXPECT_THROW(watch.Look(), Failure);
    EXPECT_THROW(FolderWatch(Path("none")), Failure);
}

}  // namespace

}  // namespace kvt::test
