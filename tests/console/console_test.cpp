#include <rapidjson/document.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "basic/text.h"
#include "console/commands.h"
#include "console/state.h"
#include "support/table.h"
#include "support/workbench_fixture.h"

namespace kvt::test {

namespace {

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

class ConsoleTest : public WorkbenchFixture {
protected:
    int Run(const std::vector<std::string>& words, bool colour = false) {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int result = RunConsole(words, {colour});
        Out = testing::internal::GetCapturedStdout();
        Errors = testing::internal::GetCapturedStderr();
        return result;
    }
    // The n-th line of the output as JSON.
    void Parse(rapidjson::Document& state, std::size_t line = 0) {
        const std::vector<std::string> lines = LinesOf(Out);
        ASSERT_LT(line, lines.size());
        state.Parse<rapidjson::kParseValidateEncodingFlag>(lines[line].c_str());
        ASSERT_FALSE(state.HasParseError()) << lines[line];
    }

    const std::string good = FileText("MK4",
                                      {{"92", "2000", "", "500", "", "", "Bezug \xE4\xF6\xFC \x80\x81"},
                                       {"01", "2100", "", "-100", "100"},
                                       {"M30"}},
                                      "M", "note \xDF");
    // The feed and the X of line 1 are beyond what the lathe takes; the X of line 2 too.
    const std::string bad =
        FileText("MK4", {{"91"}, {"01", "100", "", "0", "900"}, {"00", "9999", "", "0"}, {"M30"}});
    std::string Out, Errors;
};

}  // namespace

TEST_F(ConsoleTest, TheWorstFileGivesTheStatus) {
    const std::string well = Put("well.cnc", good);
    const std::string wrong = Put("wrong.cnc", bad);
    Put("strange.cnc", "%");
    Put("module.txt", "[Kestrel Vise Toolkit, Language Resource]\r\n");
    const std::string picture = Put("p.svg", good);
    std::filesystem::create_symlink("p.svg", Path("link"));
    std::filesystem::create_symlink("well.cnc", Path("own"));
    std::filesystem::create_hard_link(picture, Path("hard.svg"));
    // What is called, "@" for the folder; the status, and how many complaints there are.
    const std::string_view cases =
        "check @/well.cnc|0|0; check @/well.cnc @/wrong.cnc @/well.cnc|1|0; "
        "check @/wrong.cnc @/strange.cnc @/well.cnc|2|1; check @/missing @ @/module.txt @/strange.cnc|2|4; "
        "check --json @/well.cnc @/wrong.cnc|1|0; check --json @/missing @/wrong.cnc|2|1; "
        "format @/wrong.cnc -o @/out1|1|0; format @/well.cnc -o @/out2|0|0; "
        "format @/strange.cnc -o @/out3|2|1; format @/well.cnc -o @|2|1; "
        "format @/well.cnc -o @/none/out|2|1; format @/well.cnc -o |2|1; |2|1; check|2|1; "
        "forge @/well.cnc|2|1; check --strange @/well.cnc|2|1; format @/well.cnc|2|1; "
        "format @/well.cnc @/wrong.cnc -o @/out4|2|1; format @/well.cnc -o @/link|2|1; "
        "format @/well.cnc -o @/own|0|0; format @/own -o @/own|0|0; language -o @/link|2|1; "
        "draw @/p.svg -o @/p.svg|2|1; draw @/p.svg -o @/hard.svg|2|1; receive @/link --port /dev/null|2|1; "
        "machine --receive @/none/out|2|1; machine --send @/well.cnc --receive @/well.cnc|2|1; "
        "machine --drop-after -7|2|1; receive @/out5 --port /dev/null --idle -1|2|1; "
        "check -- @/strange.cnc\n\x1B[1m|2|1; --help|0|0; --version|0|0";
    for (const std::string_view line : Split(cases, "; ")) {
        const auto one = Fields(line);
        const std::string call = Replace(one[0], "@", Folder);
        const auto words = Split(call, " ");
        EXPECT_EQ(Run({words.begin(), words.end()}), std::stoi(one[1])) << call;
        EXPECT_EQ(LinesOf(Errors).size(), std::stoul(one[2])) << call << Errors;
    }
    EXPECT_FALSE(Platform.Files.Exists(Path("out3")));
    EXPECT_EQ(FileContent("p.svg"), good);
    EXPECT_TRUE(std::filesystem::is_symlink(Path("own")));
    // What cannot be read is named, and the files around it are still listed.
    EXPECT_EQ(Run({"check", well, Path("missing"), wrong}), 2);
    EXPECT_NE(Errors.find(Path("missing")), std::string::npos);
    EXPECT_NE(Out.find("well.cnc"), std::string::npos);
    EXPECT_NE(Out.find("wrong.cnc"), std::string::npos);
}

TEST_F(ConsoleTest, TheListingShowsNotesAndTextsInUtf8) {
    // Long notes are no text that stands in place.
    std::string notes;
    for (int i = 0; i < 50; ++i) notes += "Zeile " + std::to_string(i) + " gr\xFC\337e\r\n";
    EXPECT_EQ(Run({"check", Put("well.cnc", notes + good)}), 0);
    EXPECT_NE(Out.find("\n  Zeile 0 gr\xC3\xBC\xC3\237e\n  Zeile 1 gr"), std::string::npos) << Out;
    EXPECT_NE(Out.find("\n  Zeile 49 gr\xC3\xBC\xC3\237e\n  note \xC3\x9F\n"), std::string::npos) << Out;
    EXPECT_NE(Out.find("Bezug \xC3\xA4\xC3\xB6\xC3\xBC \xE2\x82\xAC"), std::string::npos) << Out;
    EXPECT_TRUE(Out.ends_with("\nNo errors.\n")) << Out;
    // A terminal takes no orders from a file.
    Run({"check", Put("sly.cnc",
                      FileText("MK4", {{"M30", "", "", "", "", "", "a\x1b[2Jb\rc"}}, "M", "n\x1b[2J\x07"))});
    EXPECT_EQ(Out.find_first_of("\x1b\r\x07"), std::string::npos);
    // A file with no line of a program in it says so.
    Run({"check", Put("bare.cnc", FileText("MK4", {}))});
    EXPECT_NE(Out.find("no program line"), std::string::npos) << Out;
}

TEST_F(ConsoleTest, TheStateTellsMessagesAndLog) {
    // A mark at the very start: the notes fail. Then a save that asks, and one that has nothing to save.
    ASSERT_EQ(Load(FileText("MK4", {{"M30"}}).substr(3)), LoadResult::Loaded);
    Put("there", "");
    Platform.Dialogs.FileAnswers = {{false, Path("there")}};
    Platform.Dialogs.Answers = {Answer::Cancel};
    Workbench->Writer.mnuSaveAs_Click();
    Load("no program", "b\xF6se \".txt");
    std::FILE* file = std::tmpfile();
    {
        JsonSink sink(file);
        WriteState(sink, "given", *Workbench, Platform.Dialogs);
    }
    std::rewind(file);
    for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) Out += static_cast<char>(c);
    std::fclose(file);
    rapidjson::Document state;
    ASSERT_NO_FATAL_FAILURE(Parse(state));
    ASSERT_EQ(state["messages"].Size(), 2u);
    const auto& asked = state["messages"][0];
    EXPECT_STREQ(asked["text"].GetString(), "Overwrite there?");
    EXPECT_STREQ(asked["buttons"].GetString(), "yesnocancel");
    EXPECT_STREQ(asked["icon"].GetString(), "none");
    const auto& told = state["messages"][1];
    EXPECT_STREQ(told["text"].GetString(),
                 "The file \"b\xC3\xB6se \".txt\"  does not appear to be an Emco CNC formatted file");
    EXPECT_STREQ(told["title"].GetString(), "File Recognizing Problem");
    EXPECT_STREQ(told["icon"].GetString(), "exclamation");
    EXPECT_STREQ(told["buttons"].GetString(), "ok");
    ASSERT_EQ(state["log"].Size(), 1u);
    EXPECT_EQ(state["log"][0]["number"].GetInt(), 5);
    EXPECT_STREQ(state["log"][0]["description"].GetString(), "Invalid procedure call or argument");
    EXPECT_STREQ(state["log"][0]["procedure"].GetString(), "LoadFile");
}

TEST_F(ConsoleTest, NamesGoThroughAsTheyWereGiven) {
    for (const std::string name : {"Gr\xC3\xB6\xC3\237e \xE2\x82\xAC.cnc", "\xC5\x82\xF0\x9F\x98\x80.cnc",
                                   "'q' \"q\".cnc", "check", "a=b"}) {
        const std::string file = Path(name);
        std::FILE* out = std::fopen(file.c_str(), "wb");
        std::fwrite(good.data(), 1, good.size(), out);
        std::fclose(out);
        ASSERT_EQ(Run({"check", "--json", file}), 0) << file << Errors;
        rapidjson::Document state;
        ASSERT_NO_FATAL_FAILURE(Parse(state));
        EXPECT_EQ(state["file"].GetString(), file);
        // And the other way round, into a new file of that name.
        std::filesystem::remove(file);
        ASSERT_EQ(Run({"format", Put("source.cnc", good), "-o", file}), 0) << file << Errors;
        EXPECT_TRUE(std::filesystem::exists(file)) << file;
        std::filesystem::remove(file);
    }
    // A name that is no UTF-8 still gives a line that parses.
    const std::string odd = Path("lat\xE4.cnc");
    std::FILE* out = std::fopen(odd.c_str(), "wb");
    std::fwrite(good.data(), 1, good.size(), out);
    std::fclose(out);
    EXPECT_EQ(Run({"check", "--json", odd}), 0);
    rapidjson::Document state;
    ASSERT_NO_FATAL_FAILURE(Parse(state));
}

TEST_F(ConsoleTest, FormatWritesTheLayoutAndTheEndCode) {
    const std::string head = "    N` G`   X `    Z `  F`  H \r\n";
    const std::string source =
        Put("a.cnc", "old\r\n%\r\n" + head + "xx 7   91  1     1     1   1    c\r\n   M\r\nrest");
    EXPECT_EQ(Run({"format", source, "-o", Path("b.cnc")}), 0);
    EXPECT_EQ(Out, "");
    EXPECT_EQ(FileContent("b.cnc"), "old\r\n\r\n%\r\n" + head +
                                        "    07 91    01     01  01  01  c\r\n    01M30" +
                                        std::string(23, ' ') + "\r\n   M\r\n");
    // Onto itself, and once more without a change where there are no notes.
    const std::string plain = Put("p.cnc", FileText("MK2", {{"91", "", "", "", "", "", "c"}}, "\""));
    EXPECT_EQ(Run({"format", plain, "-o", plain}), 0);
    const std::string once = FileContent("p.cnc");
    EXPECT_NE(once.find("   N01 G22"), std::string::npos);
    EXPECT_EQ(Run({"format", plain, "-o", plain}), 0);
    EXPECT_EQ(FileContent("p.cnc"), once);
    // A file whose lines do not end as the control's do holds no program line: it must not be emptied.
    std::string unix = good;
    std::erase(unix, '\r');
    const std::string lf = Put("lf.cnc", unix);
    EXPECT_NE(Run({"format", lf, "-o", lf}), 0);
    EXPECT_EQ(FileContent("lf.cnc"), unix);
}

// A command draws with the built-in values, whatever lies in the folder that it is called in, and leaves nothing there.
TEST_F(ConsoleTest, DrawingKnowsNoSettings) {
    const std::string source = Put("a.cnc", good);
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(Folder);
    EXPECT_EQ(Run({"draw", "--json", source}), 0);
    const std::string plain = Out;
    EXPECT_FALSE(std::filesystem::exists("SettingsDraw.txt"));
    Put("SettingsDraw.txt", "Background=True\r\nGrid=False\r\n");
    EXPECT_EQ(Run({"draw", "--json", source}), 0);
    std::filesystem::current_path(before);
    EXPECT_EQ(Out, plain);
    EXPECT_EQ(plain.substr(0, 25), "[{\"op\":\"clear\",\"color\":0}");
}

TEST_F(ConsoleTest, APictureOfEachKindAndNeverOverTheProgram) {
    const std::string source = Put("a.svg", good);
    for (const auto& [name, beginning] : {std::pair("b.svg", "<svg"), std::pair("b.PDF", "%PDF"),
                                          std::pair("b.png", "\x89PNG"), std::pair("b.bmp", "BM")}) {
        const std::string picture = Folder + "/" + name;
        EXPECT_EQ(Run({"draw", source, "-o", picture}), 0) << Errors;
        EXPECT_TRUE(Platform.Files.ReadWhole(picture).starts_with(beginning)) << name;
    }
    EXPECT_EQ(Run({"draw", source, "-o", Folder + "/b.gif"}), 2);
    EXPECT_NE(Errors.find(".svg, .pdf, .png or .bmp"), std::string::npos) << Errors;
    // Nor over another one, by a link.
    std::filesystem::create_symlink(Put("c.cnc", good), Folder + "/c.png");
    EXPECT_EQ(Run({"draw", source, "-o", Folder + "/c.png"}), 2);
    EXPECT_EQ(Platform.Files.ReadWhole(Folder + "/c.cnc"), good);
}

TEST_F(ConsoleTest, EveryFailureIsToldInOneLine) {
    const std::string well = Put("well.cnc", good);
    const char* const before = std::getenv("TMPDIR");
    const std::string kept = before ? before : "";
    setenv("TMPDIR", "/nonexistent", 1);
    testing::internal::CaptureStderr();
    for (const char* command : {"send", "receive"}) {
        const std::vector<std::string> words = {command, well, "--port", "/dev/null"};
        EXPECT_EQ(RunMain("kvtc", 2, [&] { return RunConsole(words, {}); }), 2);
    }
    EXPECT_EQ(RunMain("a\nb", 3, []() -> int { throw RunTimeError(fault::Overflow); }), 3);
    EXPECT_EQ(RunMain("c", 0, [] { return 4; }), 4);
    const std::string temporary = "kvtc: no temporary folder can be made in /nonexistent\n";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), temporary + temporary + "a.b: Overflow\n");
    if (before) {
        setenv("TMPDIR", kept.c_str(), 1);
    } else {
        unsetenv("TMPDIR");
    }
}

}  // namespace kvt::test
