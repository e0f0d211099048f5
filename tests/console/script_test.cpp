#include "console/script.h"

#include <rapidjson/document.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "console/commands.h"
#include "support/bench_fixture.h"
#include "system/confinement.h"

namespace kvt::test {

namespace {

class ScriptTest : public BenchTest {
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

TEST_F(ScriptTest, WhatIsUnknownEndsTheScript) {
    const struct {
        const char* Line;
        const char* Complaint;
    } cases[] = {
        {"foo 1", "unknown action \"foo\""},
        {"Start", "unknown action \"Start\""},
        {"click cmdNone", "unknown name \"cmdNone\""},
        {"click cmdTopButtons", "unknown name \"cmdTopButtons\""},
        {"click cmdTopButtons 99", "unknown name \"cmdTopButtons 99\""},
        {"show frmNone.cmdRun.enabled", "unknown name \"frmNone.cmdRun\""},
        {"show txtGMcode.colour", "unknown property \"colour\""},
        {"show txtGMcode.caption", "\"txtGMcode\" has no property \"caption\""},
        {"expect state.rows x", "unknown property \"rows\""},
        {"expect focus cmdNone", "unknown name \"cmdNone\""},
        {"expect sunshine", "not NAME.PROPERTY: \"sunshine\""},
        {"press Hyper", "unknown key \"Hyper\""},
        {"press A", "unknown key \"A\""},
        {"answer maybe", "unknown answer \"maybe\""},
        {"fails disk 1", "unknown service \"disk\""},
        {"fails file 0", "calls are counted from 1"},
        {"during 0 start", "waits are counted from 1"},
        {"row", "an argument is missing"},
        {"row 1x", "not a whole number: \"1x\""},
        {"row 1 2", "what is this: \"2\""},
        {"pick txtGMcode 1", "\"txtGMcode\" is no list"},
        {"set cmdRun x", "\"cmdRun\" is no field"},
        {"close txtGMcode", "\"txtGMcode\" is no window"},
        {"expect header 20 x", "column headers count from 1 to 19"},
        {"start", "the program is running already"},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(RunText("start\n" + std::string(one.Line) + "\nshow state.machine\n"), 2) << one.Line;
        EXPECT_EQ(Errors, Script + ":2: " + one.Complaint + "\n");
        EXPECT_EQ(Out, "") << one.Line;
    }
    // In the middle of a wait too, and whatever has failed before.
    Platform.Files.WriteWhole(Path("p.cnc"), program);
    EXPECT_EQ(RunText("start " + Path("p.cnc") +
                      "\nexpect state.lineCount 9\nclick cmdRun\nclick cmdStep\nfoo\nexpect clock 1\n"),
              2);
    EXPECT_EQ(Errors, Script + ":2: expected \"9\", got \"3\"\n" + Script + ":5: unknown action \"foo\"\n");
}

TEST_F(ScriptTest, NotesTellWhatDidNotHappen) {
    Platform.Files.WriteWhole(Path("p.cnc"), program);
    Platform.Files.WriteWhole(Path("strange.cnc"), "x");
    // At the end of the script nothing waits any longer.
    EXPECT_EQ(
        RunText("start " + Path("p.cnc") + "\nclick cmdStop\nrow 9\nfile " + Path("strange.cnc") +
                "\nclick mnuOpen\nduring 3 press Esc\nclick chkViewToolPos\nclick cmdRun\nclick cmdStep\n"),
        0);
    EXPECT_EQ(Errors,
              Script + ":2: note: cmdStop: not to be seen\n" + Script + ":3: note: there is no such row\n" +
                  Script +
                  ":5: note: no answer for the message box \"The file \"strange.cnc\"  does not appear "
                  "to be an Emco CNC formatted file\", it takes its default\n" +
                  Script + ":7: note: wait 3 did not come, line 6 was not done\n");
}

TEST_F(ScriptTest, TheCallGoesBeforeTheOptionsInTheScript) {
    const std::string script =
        "# a story\n# options: --screen 20000 12000 --workarea 11000\nstart\n# options: --screen 1 1\n"
        "maximise frmMain\nshow frmMain.width\nshow frmMain.height\n";
    EXPECT_EQ(RunText(script), 0) << Errors;
    EXPECT_EQ(Out, "frmMain.width = 20000\nfrmMain.height = 11000\n");
    EXPECT_EQ(RunText(script, {"--screen", "16000", "9000"}), 0);
    EXPECT_EQ(Out, "frmMain.width = 16000\nfrmMain.height = 11000\n");
    for (const char* wrong : {"# options: --screen 1\n", "# options: --colour\n", "# options: more.kvts\n"}) {
        EXPECT_EQ(RunText(wrong), 2);
        EXPECT_EQ(Errors.rfind("kvtc: " + Script + ": ", 0), 0u) << Errors;
    }
    EXPECT_EQ(Run({"script"}), 2);
    EXPECT_EQ(Run({"script", Path("missing.kvts")}), 2);
    EXPECT_EQ(Errors, "kvtc: " + Path("missing.kvts") + ": no such file\n");
    EXPECT_EQ(Run({"script", Folder}), 2);
    EXPECT_EQ(RunText("start", {"--data", Script}), 2);
}

TEST_F(ScriptTest, StandardInputIsAScript) {
    std::FILE* const typed = std::tmpfile();
    std::fputs("start\nexpect state.machine F1\n", typed);
    std::rewind(typed);
    const int before = dup(STDIN_FILENO);
    dup2(fileno(typed), STDIN_FILENO);
    EXPECT_EQ(Run({"script", "-"}), 1);
    dup2(before, STDIN_FILENO);
    close(before);
    std::fclose(typed);
    std::clearerr(stdin);
    EXPECT_EQ(Errors, "-:2: expected \"F1\", got \"MK4\"\n");
}

TEST_F(ScriptTest, TheFoldersOfARunGoWithIt) {
    namespace fs = std::filesystem;
    for (const char* end : {"", "foo\n"}) {
        RunText("write ${TMP}/p.cnc x\nwrite ${TMP}/p.cnc ${DATA}\nstart ${TMP}/p.cnc\nshow state.file\n" +
                std::string(end));
        ASSERT_EQ(Out.rfind("state.file = ", 0), 0u) << Out << Errors;
        const fs::path file = Out.substr(13, Out.find('\n') - 13);
        EXPECT_EQ(file.filename(), "p.cnc");
        EXPECT_FALSE(fs::exists(file.parent_path()));
        EXPECT_FALSE(fs::exists(file.parent_path().parent_path()));
    }
    // The folder of the call stays, with what was put there.
    const std::vector<std::string> kept = {"--data", Path("kept") + "/"};
    EXPECT_EQ(RunText("write ${SETTINGS}/own.txt of the first run\nstart\n", kept), 0) << Errors;
    EXPECT_EQ(FileContent("kept/EMCO/KVT_100/Settings/own.txt"), "of the first run");
    EXPECT_EQ(RunText("expect file ${DATA}/Settings/own.txt of the first run\n", kept), 0) << Errors;
}

TEST_F(ScriptTest, AWriteElsewhereEndsTheScriptAndIsNotDone) {
    namespace fs = std::filesystem;
    const std::string source = Path("p.cnc");
    fs::create_directory(Path("free"));
    const struct {
        std::string Line;  // behind "start"
        std::string Elsewhere;
    } cases[] = {
        {"write " + Path("new") + " x", "new"},
        {"write ${TMP}/../../" + fs::path(Folder).filename().string() + "/new x", "new"},
        {"program " + source + " x", "p.cnc"},
        {"delete " + source, "p.cnc"},
        {"notes changed\nadvance 1000\nclick mnuSave", "p.cnc"},
        {"file " + Path("as.cnc") + "\nclick mnuSaveAs", "as.cnc"},
        {"click mnuDraw\nclick frmDraw.mnuSaveBMP", "p.BMP"},
        {"file " + source + "\nclick mnuPP 0", "p.cnc"},
    };
    for (const auto& one : cases) {
        Platform.Files.WriteWhole(source, program);
        EXPECT_EQ(RunText("program ${PP}/x.MK4 #!/bin/sh\\n\nstart " + source + "\n" + one.Line +
                          "\nexpect nomessage\nshow state.machine\n"),
                  2)
            << one.Line;
        const std::string where = Path(one.Elsewhere) + "\n";
        EXPECT_TRUE(Errors.size() > where.size() && Errors.ends_with(where)) << one.Line << ": " << Errors;
        EXPECT_EQ(Errors.rfind(Script + ":", 0), 0u) << Errors;
        EXPECT_EQ(Out, "") << one.Line;
        EXPECT_EQ(FileContent("p.cnc"), program) << one.Line;
        EXPECT_EQ(fs::exists(Path(one.Elsewhere)), one.Elsewhere == "p.cnc") << one.Line;
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

TEST_F(ScriptTest, TheDumpListsFocusAndControls) {
    Platform.Files.WriteWhole(Path("p.cnc"), program);
    ASSERT_EQ(RunText("start " + Path("p.cnc") +
                      "\nanswer ok\nanswer yes\nshow txtFileNotes.text\ntype 77\nfocus txtFeedA\ndump\n"
                      "messages\nmessages\n"),
              0)
        << Errors;
    const std::size_t first = Out.find('\n') + 1;
    const std::size_t second = Out.find('\n', first) + 1;
    EXPECT_EQ(Out.substr(0, first), "txtFileNotes.text = first\\r\\nsecond\\r\\n\n");
    const std::string box =
        R"([{"text":"G77 Unknown code","title":"Kestrel Vise Toolkit","icon":"none","buttons":"ok"}])"
        "\n[]\n";
    EXPECT_EQ(Out.substr(second), box);

    rapidjson::Document state;
    state.Parse(Out.substr(first, second - first).c_str());
    ASSERT_FALSE(state.HasParseError());
    EXPECT_EQ(state["file"].GetString(), Path("p.cnc"));
    EXPECT_EQ(state["rows"].Size(), 4u);
    EXPECT_STREQ(state["focus"].GetString(), "txtGMcode");
    const auto& controls = state["controls"];
    const auto membersOf = [&](const char* name) {
        std::vector<std::string> names;
        for (const auto& member : controls[name].GetObject()) names.emplace_back(member.name.GetString());
        return names;
    };
    using Names = std::vector<std::string>;
    EXPECT_EQ(membersOf("frmMain"),
              (Names{"caption", "visible", "windowState", "left", "top", "width", "height"}));
    EXPECT_EQ(membersOf("txtGMcode"), (Names{"text", "visible", "enabled", "tag", "toolTip", "left", "top",
                                             "width", "height", "selStart", "selLength"}));
    EXPECT_EQ(membersOf("mnuOpen"), (Names{"caption", "visible", "enabled", "tag", "checked"}));
    EXPECT_EQ(membersOf("lstMK4Gcodes"), (Names{"text", "visible", "enabled", "tag", "toolTip", "listIndex",
                                                "left", "top", "width", "height"}));
    EXPECT_EQ(controls["chkViewToolPos"]["value"].GetInt(), 1);
    EXPECT_TRUE(controls["optSettingsMK4"]["value"].GetBool());
    EXPECT_STREQ(controls["cmdTopButtons(3)"]["toolTip"].GetString(), "Print File");
    EXPECT_FALSE(controls["txtYJ"]["visible"].GetBool());
}

}  // namespace kvt::test
