#include "console/script.h"

#include <filesystem>

#include "console/commands.h"
#include "support/workbench_fixture.h"
#include "system/confinement.h"

namespace kvt::test {

namespace {

class ScriptTest : public WorkbenchFixture {
protected:
    int Run(const std::vector<std::string>& words) {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int result = RunConsole(words, {});
        Out = testing::internal::GetCapturedStdout();
        Errors = testing::internal::GetCapturedStderr();
        return result;
    }
    int RunText(const std::string& script, std::vector<std::string> options = {}) {
        Platform.Files.WriteWhole(Script, script);
        options.insert(options.begin(), "script");
        options.push_back(Script);
        return Run(options);
    }

    const std::string Script = Path("story.kvts");
    const std::string program =
        FileText("MK4", {{"92", "2000", "500"}, {"00", "1000", "200"}, {"M30"}}, "M", "first\r\nsecond");
    std::string Out, Errors;
};

}  // namespace

TEST_F(ScriptTest, AFailureIsCountedAndTheScriptGoesOn) {
    EXPECT_EQ(RunText("start\nexpect state.machine MK2\n\nexpect cell 1 1 \" N\\tN\"\nexpect cell 9 1 NN\n"
                      "expect message Hello\nexpect focus lvCncProgram\nshow state.machine\n"),
              1);
    EXPECT_EQ(Errors, Script + ":2: expected \"MK2\", got \"MK4\"\n" + Script +
                          ":4: expected \" N\\tN\", got \"NN\"\n" + Script +
                          ":5: expected \"NN\", got no such row\n" + Script +
                          ":6: expected \"Hello\", got no message box\n" + Script +
                          ":7: expected \"lvCncProgram\", got \"txtGMcode\"\n");
    EXPECT_EQ(Out, "state.machine = MK4\n");
    EXPECT_EQ(RunText("start\nexpect state.machine MK4\n# expect nothing\n   # foo\n"), 2);
    EXPECT_EQ(RunText("\xEF\xBB\xBFstart\r\nexpect state.machine MK4\r\n"), 0) << Errors;
    EXPECT_EQ(RunText(""), 0);
    EXPECT_EQ(Errors, "");
}

TEST_F(ScriptTest, TheCallGoesBeforeTheOptionsInTheScript) {
    const std::string script =
        "# options: --screen 20000 12000\nstart\nmaximise frmMain\nshow frmMain.width\n";
    EXPECT_EQ(RunText(script, {"--screen", "16000", "9000"}), 0) << Errors;
    EXPECT_EQ(Out, "frmMain.width = 16000\n");
}

TEST_F(ScriptTest, AWriteElsewhereEndsTheScriptAndIsNotDone) {
    namespace fs = std::filesystem;
    const std::string source = Path("p.cnc");
    fs::create_directory(Path("free"));
    // A line behind "start", and what it would write.
    const std::pair<std::string, std::string> cases[] = {
        {"write " + Path("new") + " x", "new"},
        {"write ${TMP}/../../" + fs::path(Folder).filename().string() + "/new x", "new"},
        {"program " + source + " x", "p.cnc"},
        {"delete " + source, "p.cnc"},
        {"notes changed\nadvance 1000\nclick mnuSave", "p.cnc"},
        {"file " + Path("as.cnc") + "\nclick mnuSaveAs", "as.cnc"},
        {"click mnuDraw\nclick frmDraw.mnuSaveBMP", "p.BMP"},
        {"file " + source + "\nclick mnuPP 0", "p.cnc"},
    };
    for (const auto& [line, elsewhere] : cases) {
        Platform.Files.WriteWhole(source, program);
        EXPECT_EQ(RunText("program ${PP}/x.MK4 #!/bin/sh\\n\nstart " + source + "\n" + line +
                          "\nexpect nomessage\nshow state.machine\n"),
                  2)
            << line;
        const std::string where = Path(elsewhere) + "\n";
        EXPECT_TRUE(Errors.size() > where.size() && Errors.ends_with(where)) << line << ": " << Errors;
        EXPECT_EQ(Errors.rfind(Script + ":", 0), 0u) << Errors;
        EXPECT_EQ(Out, "") << line;
        EXPECT_EQ(FileContent("p.cnc"), program) << line;
        EXPECT_EQ(fs::exists(Path(elsewhere)), elsewhere == "p.cnc") << line;
    }
    // The call allows a folder, and the script does not.
    const std::string writes = "write " + Path("free/x") + " y\n";
    const std::string own = "--writes " + Path("free") + "\n";
    EXPECT_EQ(RunText("# options: " + own + writes), 2);
    EXPECT_EQ(RunText("# options: --data " + Path("free/data") + "\nstart\n"), 2);
    EXPECT_TRUE(fs::is_empty(Path("free")));
    EXPECT_EQ(RunText(writes, {"--writes", Path("free")}), 0) << Errors;
    EXPECT_EQ(FileContent("free/x"), "y");
    EXPECT_EQ(RunText("", {"--writes", Path("none")}), 2);
}

TEST_F(ScriptTest, AProgramThatAScriptStartsWritesInItsFoldersAlone) {
    if (!CanConfine()) GTEST_SKIP() << "the kernel has no rules for it";
    Platform.Files.WriteWhole(Path("kept"), "kept");
    const std::string evil = "#!/bin/sh\\nrm -f " + Path("kept") + "\\necho x > " + Path("new") +
                             "\\nmv \"$1\" " + Path("moved") + "\\necho done > \"$1.~ppERR\"\\n";
    EXPECT_EQ(RunText("program ${PP}/x.MK4 " + evil + "\nwrite ${TMP}/source x\nstart\nfile ${TMP}/source\n" +
                      "click mnuPP 0\nexpect frmPreProcessor.visible true\nexpect file ${TMP}/source x\n"),
              0)
        << Errors;
    EXPECT_EQ(FileContent("kept"), "kept");
    for (const char* name : {"new", "moved"}) EXPECT_FALSE(std::filesystem::exists(Path(name))) << name;
}

}  // namespace kvt::test
