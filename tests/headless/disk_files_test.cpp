#include "headless/disk_files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>

#include "basic/code_page.h"
#include "headless/faulty_files.h"

namespace kvt::test {

namespace {

namespace fs = std::filesystem;

class DiskFilesTest : public ::testing::Test {
protected:
    DiskFilesTest() {
        std::string pattern = (fs::temp_directory_path() / "kvt-disk-XXXXXX").string();
        Folder = mkdtemp(pattern.data());
    }
    ~DiskFilesTest() override {
        std::error_code ignored;
        fs::remove_all(Folder, ignored);
    }
    std::string Path(const std::string& name) const { return Folder + "/" + name; }
    // What the disk itself holds, by the name's plain bytes.
    std::string OnDisk(const std::string& name) const {
        std::ifstream stream(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    std::size_t Entries() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(Folder), fs::directory_iterator()));
    }
    template <class Call>
    static int ErrorOf(Call call) {
        try {
            call();
        } catch (const RunTimeError& error) {
            return error.Number;
        }
        return 0;
    }

    std::string Folder;
    DiskFiles Files;
};

}  // namespace

TEST_F(DiskFilesTest, BytesComeBackAsTheyWere) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    all += "\r\n\n\r";
    Files.WriteWhole(Path("a"), all);
    EXPECT_EQ(Files.ReadWhole(Path("a")), all);
    Files.WriteWhole(Path("a"), "");
    EXPECT_EQ(Files.ReadWhole(Path("a")), "");
    Files.Append(Path("log"), "one\r\n");
    Files.Append(Path("log"), "two\r\n");
    EXPECT_EQ(OnDisk("log"), "one\r\ntwo\r\n");
}

TEST_F(DiskFilesTest, NamesAreOfTheCodePageOrPlainBytes) {
    // As the system gives it, as the program holds it.
    const struct {
        const char *System, *Held;
    } names[] = {
        {"Gr\xC3\xB6\xC3\x9F"
         "e \xE2\x82\xAC.cnc",
         "Gr\xF6\xDF"
         "e \x80.cnc"},
        {"\xC5\x82.cnc", "\xC5\x82.cnc"},                  // a letter that the code page lacks
        {"a\xCC\x88.cnc", "a\xCC\x88.cnc"},                // a combining mark
        {"lat\xE4.cnc", "lat\xE4.cnc"},                    // no UTF-8
        {"\xF0\x9F\x98\x80.cnc", "\xF0\x9F\x98\x80.cnc"},  // four bytes
    };
    for (const auto& name : names) {
        EXPECT_EQ(NameFromSystem(name.System), name.Held);
        std::ofstream(Path(name.System)) << "text of " << name.System;
        ASSERT_TRUE(Files.Exists(Path(name.Held))) << name.System;
        EXPECT_EQ(Files.ReadWhole(Path(name.Held)), std::string("text of ") + name.System);
    }
    const std::size_t before = Entries();
    for (const auto& name : names) Files.WriteWhole(Path(name.Held), "new");
    EXPECT_EQ(Entries(), before);
    EXPECT_EQ(OnDisk(names[0].System), "new");
}

TEST_F(DiskFilesTest, ANewFileGetsTheNameThatWasGiven) {
    for (const std::string name : {"Gr\xC3\xB6\xC3\x9F"
                                   "e.cnc",
                                   "\xC5\x82.cnc", "\xF0\x9F\x98\x80.cnc", "a\xCC\x88.cnc"}) {
        Files.WriteWhole(NameFromSystem(Path(name)), name);
        EXPECT_EQ(OnDisk(name), name);
    }
}

TEST_F(DiskFilesTest, BothSeparatorsLeadIntoFolders) {
    Files.MakeFolder(Path("a\\b/c"));
    Files.MakeFolder(Path("a/b\\c"));
    ASSERT_TRUE(fs::is_directory(Path("a/b/c")));
    Files.WriteWhole(Folder + "\\a\\b\\c\\x.cnc", "x");
    EXPECT_EQ(OnDisk("a/b/c/x.cnc"), "x");
    EXPECT_TRUE(Files.Exists(Path("a\\b\\c\\x.cnc")));
    EXPECT_EQ(ErrorOf([&] { Files.MakeFolder(Path("a/b/c/x.cnc")); }), fault::PathFileAccess);
}

TEST_F(DiskFilesTest, FailuresHaveTheirNumbers) {
    fs::create_directory(Path("folder"));
    ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
    EXPECT_FALSE(Files.Exists(""));
    EXPECT_FALSE(Files.Exists(Path("missing")));
    EXPECT_EQ(ErrorOf([&] { Files.ReadWhole(Path("missing")); }), fault::FileNotFound);
    EXPECT_EQ(ErrorOf([&] { Files.Delete(Path("missing")); }), fault::FileNotFound);
    // What never ends, or never begins.
    for (const std::string& odd :
         {Path("folder"), Path("pipe"), std::string("/dev/zero"), std::string("/dev/null")}) {
        EXPECT_EQ(ErrorOf([&] { Files.ReadWhole(odd); }), fault::PathFileAccess) << odd;
    }
    for (const std::string& odd : {Path("folder"), Path("pipe"), Path("none/x"), std::string("/dev/null")}) {
        EXPECT_EQ(ErrorOf([&] { Files.WriteWhole(odd, "x"); }), fault::PathFileAccess) << odd;
    }
    EXPECT_EQ(ErrorOf([&] { Files.Append(Path("folder"), "x"); }), fault::PathFileAccess);
    std::ofstream(Path("folder/inside")) << "x";
    EXPECT_EQ(ErrorOf([&] { Files.Delete(Path("folder")); }), fault::PathFileAccess);
    EXPECT_EQ(Entries(), 2u);
    Files.Delete(Path("folder/inside"));
    EXPECT_FALSE(Files.Exists(Path("folder/inside")));
}

TEST_F(DiskFilesTest, ATextHasALargestLength) {
    std::ofstream(Path("large")) << "";
    fs::resize_file(Path("large"), std::uintmax_t{64} << 20);
    EXPECT_EQ(Files.ReadWhole(Path("large")).size(), std::size_t{64} << 20);
    fs::resize_file(Path("large"), (std::uintmax_t{64} << 20) + 1);
    EXPECT_EQ(ErrorOf([&] { Files.ReadWhole(Path("large")); }), fault::PathFileAccess);
}

TEST_F(DiskFilesTest, AnOldFileStaysUntilTheNewOneIsWhole) {
    Files.WriteWhole(Path("a"), "old");
    fs::permissions(Path("a"), fs::perms(0640));
    // A reader that has the old file open keeps it: the new one takes its place and is not written into it.
    std::ifstream reader(Path("a"), std::ios::binary);
    Files.WriteWhole(Path("a"), "longer than before");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "old");
    EXPECT_EQ(OnDisk("a"), "longer than before");
    EXPECT_EQ(fs::status(Path("a")).permissions(), fs::perms(0640));
    EXPECT_EQ(Entries(), 1u);
    // A link stays one, and what it points at is replaced.
    fs::create_directory(Path("far"));
    Files.WriteWhole(Path("far/b"), "old");
    fs::create_symlink("far/b", Path("link"));
    Files.WriteWhole(Path("link"), "new");
    EXPECT_TRUE(fs::is_symlink(Path("link")));
    EXPECT_EQ(OnDisk("far/b"), "new");
}

TEST_F(DiskFilesTest, AWriteTouchesNoOtherFile) {
    // A neighbour may have any name, and a name may be as long as the system allows.
    Files.WriteWhole(Path("a.~new"), "neighbour");
    Files.WriteWhole(Path("a"), "text");
    EXPECT_EQ(OnDisk("a.~new"), "neighbour");
    const std::string longest(255, 'n');
    EXPECT_EQ(ErrorOf([&] { Files.WriteWhole(Path(longest), "text"); }), 0);
    EXPECT_EQ(OnDisk(longest), "text");
    // A link whose target is yet to come brings it about.
    fs::create_symlink("coming", Path("link"));
    Files.WriteWhole(Path("link"), "text");
    EXPECT_TRUE(fs::is_symlink(Path("link")));
    EXPECT_EQ(OnDisk("coming"), "text");
}

TEST_F(DiskFilesTest, EachCallCanBeMadeToFail) {
    FaultPlan faults;
    FaultyFiles files(Files, faults);
    const std::function<void()> calls[] = {
        [&] { files.WriteWhole(Path("a"), "x"); }, [&] { files.ReadWhole(Path("a")); },
        [&] { files.Append(Path("a"), "y"); }, [&] { files.MakeFolder(Path("f")); },
        [&] { files.Delete(Path("a")); }};
    for (std::size_t failing = 1; failing < std::size(calls); ++failing) {
        faults.Fail("file", static_cast<int>(failing) + 1);
        for (std::size_t i = 0; i < std::size(calls); ++i) {
            // Looking is no call that can fail, and other services do not count.
            files.Exists(Path("a"));
            faults.Pass("clipboard", fault::InvalidCall);
            EXPECT_EQ(ErrorOf(calls[i]), i == failing ? fault::PathFileAccess : 0) << i << " of " << failing;
        }
    }
}

}  // namespace kvt::test
