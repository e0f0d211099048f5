#include "system/disk_files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>

#include "basic/code_page.h"
#include "headless/faulty_files.h"
#include "headless/guarded_files.h"
#include "support/table.h"
#include "system/fresh_file.h"
#include "system/temporary_folder.h"

namespace kvt::test {

namespace {

namespace fs = std::filesystem;

class DiskFilesTest : public ::testing::Test {
protected:
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

    const TemporaryFolder temporary;
    const std::string Folder = temporary.Path();
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
    const std::pair<const char*, const char*> names[] = {
        {"Gr\xC3\xB6\xC3\237e \xE2\x82\xAC.cnc", "Gr\xF6\337e \x80.cnc"},
        {"\xC5\x82.cnc", "\xC5\x82.cnc"},                  // a letter that the code page lacks
        {"a\xCC\x88.cnc", "a\xCC\x88.cnc"},                // a combining mark
        {"lat\xE4.cnc", "lat\xE4.cnc"},                    // no UTF-8
        {"\xF0\x9F\x98\x80.cnc", "\xF0\x9F\x98\x80.cnc"},  // four bytes
    };
    for (const auto& [system, held] : names) {
        EXPECT_EQ(NameFromSystem(system), held);
        std::ofstream(Path(system)) << "text of " << system;
        ASSERT_TRUE(Files.Exists(Path(held))) << system;
        EXPECT_EQ(Files.ReadWhole(Path(held)), std::string("text of ") + system);
    }
    const std::size_t before = Entries();
    for (const auto& name : names) Files.WriteWhole(Path(name.second), "new");
    EXPECT_EQ(Entries(), before);
    EXPECT_EQ(OnDisk(names[0].first), "new");
}

TEST_F(DiskFilesTest, BothSeparatorsLeadIntoFolders) {
    Files.MakeFolder(Path("a\\b/c"));
    Files.MakeFolder(Path("a/b\\c"));
    ASSERT_TRUE(fs::is_directory(Path("a/b/c")));
    Files.WriteWhole(Folder + "\\a\\b\\c\\x.cnc", "x");
    EXPECT_EQ(OnDisk("a/b/c/x.cnc"), "x");
    EXPECT_TRUE(Files.Exists(Path("a\\b\\c\\x.cnc")));
    EXPECT_EQ(ErrorOf([&] { Files.MakeFolder(Path("a/b/c/x.cnc")); }), fault::PathFileAccess);
    // What has a "\\" in its own name goes before.
    std::ofstream(Path("a\\b")) << "file";
    EXPECT_EQ(Files.ReadWhole(Path("a\\b")), "file");
    fs::create_directory(Path("c\\d"));
    Files.WriteWhole(Path("c\\d/y.cnc"), "y");
    EXPECT_EQ(OnDisk("c\\d/y.cnc"), "y");
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
         {Path("folder"), Path("pipe"), std::string("/dev/zero"), std::string("/dev/null")})
        EXPECT_EQ(ErrorOf([&] { Files.ReadWhole(odd); }), fault::PathFileAccess) << odd;
    for (const std::string& odd : {Path("folder"), Path("pipe"), Path("none/x"), std::string("/dev/null")})
        EXPECT_EQ(ErrorOf([&] { Files.WriteWhole(odd, "x"); }), fault::PathFileAccess) << odd;
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

namespace {

// The effective user without rights of its own while it stands, so that modes count; nothing where the tests run as one.
class WithoutRights {
public:
    static constexpr uid_t Nobody = 65534;
    WithoutRights() { Took = before_ == 0 && seteuid(Nobody) == 0; }
    ~WithoutRights() {
        if (Took) static_cast<void>(seteuid(before_));
    }
    WithoutRights(const WithoutRights&) = delete;
    WithoutRights& operator=(const WithoutRights&) = delete;
    bool Took = false;

private:
    uid_t before_ = geteuid();
};

struct stat StateOf(const std::string& path) {
    struct stat state = {};
    EXPECT_EQ(stat(path.c_str(), &state), 0) << path;
    return state;
}

}  // namespace

TEST_F(DiskFilesTest, AFolderThatTakesNoNewFileLetsItBeWrittenInPlace) {
    fs::create_directory(Path("closed"));
    Files.WriteWhole(Path("closed/a"), "the old text");
    const bool root = geteuid() == 0;
    if (root) {
        ASSERT_EQ(chown(Path("closed/a").c_str(), WithoutRights::Nobody, 0), 0);
    }
    fs::permissions(Folder, fs::perms(0755));
    fs::permissions(Path("closed"), fs::perms(0555));
    fs::create_directory(Path("data"));
    fs::permissions(Path("data"), fs::perms(0777));
    const ino_t before = StateOf(Path("closed/a")).st_ino;
    int withoutData = 0, withData = 0, newOne = 0;
    {
        const WithoutRights without;
        withoutData = ErrorOf([&] { Files.WriteWhole(Path("closed/a"), "new"); });
        EXPECT_EQ(OnDisk("closed/a"), "the old text");
        Files.SetDataFolder(Path("data") + "/");
        withData = ErrorOf([&] { Files.WriteWhole(Path("closed/a"), "new"); });
        newOne = ErrorOf([&] { Files.WriteWhole(Path("closed/b"), "new"); });
    }
    fs::permissions(Path("closed"), fs::perms(0755));
    EXPECT_EQ(withoutData, fault::PathFileAccess);
    EXPECT_EQ(withData, 0);
    EXPECT_EQ(newOne, fault::PathFileAccess);
    EXPECT_EQ(OnDisk("closed/a"), "new");
    EXPECT_EQ(StateOf(Path("closed/a")).st_ino, before);
    std::vector<std::string> kept;
    for (const auto& file : fs::recursive_directory_iterator(Path("data")))
        if (file.is_regular_file()) kept.push_back(file.path());
    ASSERT_EQ(kept.size(), 1u);
    EXPECT_EQ(StateOf(kept[0]).st_mode & 0777U, 0600U);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(std::ifstream(kept[0]).rdbuf()), {}),
              "the old text");
}

TEST_F(DiskFilesTest, OwnerGroupAndModeStayAndNoProgramRunsAsItsOwner) {
    Files.WriteWhole(Path("a"), "old");
    if (geteuid() == 0) {
        ASSERT_EQ(chown(Path("a").c_str(), 12, 34), 0);
    }
    const struct stat before = StateOf(Path("a"));
    ASSERT_EQ(chmod(Path("a").c_str(), 06751), 0);
    Files.WriteWhole(Path("a"), "new");
    const struct stat after = StateOf(Path("a"));
    EXPECT_EQ(after.st_mode & 07777U, 0751U);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
}

TEST_F(DiskFilesTest, WhatAKilledRunHasLeftGoesAtTheNextStart) {
    fs::create_directory(Path("data"));
    fs::create_directory(Path("far"));
    const pid_t child = fork();
    if (child == 0) {
        // One in the folder of data, one elsewhere, both unfinished; and one that took its place.
        FreshFile inData(Path("data/settings"), Path("data"));
        FreshFile elsewhere(Path("far/program"), Path("data"));
        WriteAll(elsewhere.Handle(), "half");
        FreshFile(Path("far/whole"), Path("data")).ReplaceTarget();
        kill(getpid(), SIGKILL);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    std::ofstream(Path("far/.~kvt-own")) << "somebody's";
    // One that is being written now.
    Files.SetDataFolder(Path("data"));
    FreshFile now(Path("far/other"), Path("data"));
    std::vector<mode_t> modes;
    for (const auto& file : fs::directory_iterator(Path("far")))
        if (file.path().filename().string().find("kvt-") != std::string::npos && file.file_size() == 4)
            modes.push_back(StateOf(file.path()).st_mode & 0777U);
    EXPECT_EQ(modes, std::vector<mode_t>{0600U});
    Files.RemoveLeftovers();
    EXPECT_EQ(std::distance(fs::directory_iterator(Path("far")), fs::directory_iterator()), 3);
    EXPECT_EQ(std::distance(fs::directory_iterator(Path("data")), fs::directory_iterator()), 1);
    EXPECT_TRUE(now.ReplaceTarget());
}

TEST_F(DiskFilesTest, AnOpenFileOfTheProgramIsWrittenAsItStandsOpen) {
    std::ofstream(Path("all")) << "first, ";
    const int handle = open(Path("all").c_str(), O_WRONLY | O_APPEND);
    fs::create_symlink("/proc/self/fd/" + std::to_string(handle), Path("link"));
    Files.WriteWhole("/dev/fd/" + std::to_string(handle), "second");
    Files.WriteWhole(Path("link"), ", third");
    close(handle);
    EXPECT_EQ(OnDisk("all"), "first, second, third");
    EXPECT_EQ(ErrorOf([&] { Files.WriteWhole("/dev/fd/" + std::to_string(handle), "x"); }),
              fault::PathFileAccess);
}

TEST_F(DiskFilesTest, GuardedOnesChangeTheirOwnFoldersAlone) {
    for (const char* folder : {"own", "own/below", "other"}) fs::create_directory(Path(folder));
    std::ofstream(Path("other/kept")) << "kept";
    fs::create_directory_symlink("../other", Path("own/out"));
    fs::create_symlink("../other/kept", Path("own/kept"));
    fs::create_symlink("dangling2", Path("own/dangling"));
    fs::create_symlink("../other/new", Path("own/dangling2"));
    fs::create_directory_symlink("own/below", Path("in"));
    OwnFolders folders;
    folders.Add(Path("own"));
    GuardedFiles guarded(Files, folders);
    std::vector<std::string> refused;
    guarded.OnRefused = [&](const std::string& path) { refused.push_back(path.substr(Folder.size())); };
    // A path, and the place where that is refused.
    for (const char* line :
         {"own/a|", "own/below/../b|", "in/c|", "own\\below\\d|", "own/../other/a|/other/a",
          "own/out/a|/other/a", "own/kept|/other/kept", "own/dangling|/other/new",
          "own/out/../escaped|/escaped", "ownbeside|/ownbeside", "other/kept|/other/kept"}) {
        const std::string path = Path(Fields(line)[0]), place = Fields(line)[1];
        refused.clear();
        const std::function<void()> calls[] = {[&] { guarded.WriteWhole(path, "x"); },
                                               [&] { guarded.InBackground().Append(path, "y"); },
                                               [&] { guarded.MakeFolder(path + "/f"); }};
        const bool done = place.empty();
        for (std::size_t i = 0; i < (done ? 2 : std::size(calls)); ++i)
            EXPECT_EQ(ErrorOf(calls[i]), done ? 0 : fault::PathFileAccess) << line;
        if (done) continue;
        EXPECT_EQ(refused, (std::vector<std::string>{place, place, place + "/f"})) << line;
    }
    EXPECT_EQ(ErrorOf([&] { guarded.Delete(Path("own/out/kept")); }), fault::PathFileAccess);
    EXPECT_EQ(ErrorOf([&] { guarded.Delete(Path("in")); }), fault::PathFileAccess);
    // The link goes, and not what it leads to.
    EXPECT_EQ(ErrorOf([&] { guarded.Delete(Path("own/kept")); }), 0);
    EXPECT_EQ(OnDisk("other/kept"), "kept");
    EXPECT_EQ(std::distance(fs::directory_iterator(Path("other")), fs::directory_iterator()), 1);
}

}  // namespace kvt::test
