#include "console/report.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "console/command_line.h"
#include "console/commands.h"
#include "console/manual.h"
#include "console/watch.h"
#include "support/workbench_fixture.h"

namespace kvt::test {

namespace {

// Texts that would do something where they were not taken for texts.
constexpr const char* hostileName = "<img src=x onerror=alert(1)> \"$(touch done)`touch done`' & .cnc";
constexpr const char* hostileNotes = "</p><script>alert(2)</script>";

class ReportTest : public WorkbenchFixture {
protected:
    static std::size_t Count(const std::string& text, const std::string& part) {
        std::size_t count = 0;
        for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
        return count;
    }
    const std::string good = FileText(
        "MK4", {{"92", "2000", "", "500"}, {"01", "2100", "", "-100", "100"}, {"M30"}}, "M", hostileNotes);
    const std::string bad = FileText("F1", {{"91"}, {"00", "99999"}, {"00", "99999"}, {"M30"}});
};

TEST_F(ReportTest, APageHasARowForEachFileAndNothingInItActs) {
    const std::string page = Path("page.html");
    testing::internal::CaptureStderr();
    EXPECT_EQ(RunConsole({"check", "--report", page, Put(hostileName, good), Put("bad.cnc", bad)}, {}),
              status::Finding);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    const std::string text = FileContent("page.html");
    EXPECT_EQ(Count(text, "<tr class="), 2u);
    EXPECT_EQ(Count(text, "<svg "), 2u);
    EXPECT_NE(text.find("2 programs: 1 without errors, 1 with errors."), std::string::npos);
    EXPECT_NE(text.find("<b>2 lines have errors</b>"), std::string::npos);
    EXPECT_NE(text.find("N01: !X="), std::string::npos);
    EXPECT_NE(text.find("X goes farther than this code allows"), std::string::npos);
    // The page's own script and none besides; nothing comes from outside.
    EXPECT_EQ(Count(text, "<script"), 1u);
    EXPECT_EQ(Count(text, "<img"), 0u);
    EXPECT_EQ(Count(text, "href="), 0u);
    EXPECT_NE(text.find("&lt;img src=x onerror=alert(1)&gt; &quot;$(touch"), std::string::npos);
    EXPECT_NE(text.find("&lt;/p&gt;&lt;script&gt;alert(2)"), std::string::npos);
    // Each drawing has patterns of its own.
    EXPECT_EQ(Count(text, "id=\"hatch1\""), 1u);
    EXPECT_EQ(Count(text, "id=\"hatch2\""), 1u);
}

TEST_F(ReportTest, AFileThatIsNoneIsToldInItsRow) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(RunConsole({"check", Path("none.cnc"), Put("a.cnc", good), "--report", Path("page.html")}, {}),
              status::Usage);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("none.cnc: no such file"), std::string::npos);
    EXPECT_NE(FileContent("page.html").find("<b>Not read</b>"), std::string::npos);
}

TEST_F(ReportTest, ThePageTakesNoProgramsPlace) {
    const std::string file = Put("a.cnc", good);
    testing::internal::CaptureStderr();
    EXPECT_EQ(RunConsole({"check", file, "--report", file}, {}), status::Usage);
    EXPECT_EQ(RunConsole({"check", file, "--json", "--report", Path("page.html")}, {}), status::Usage);
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(FileContent("a.cnc"), good);
    EXPECT_FALSE(std::filesystem::exists(Path("page.html")));
}

TEST_F(ReportTest, ALineOfTheWatchSteersNoTerminal) {
    Put("a\x1b[2J\nb.cnc", good);
    EXPECT_EQ(WatchLine(Folder, "a\x1b[2J\nb.cnc", {}), "a.[2J.b.cnc: No errors. Time 00:00:04");
    Put("bad.cnc", bad);
    EXPECT_EQ(WatchLine(Folder, "bad.cnc", {true}).find("bad.cnc: \x1b[31mFirst error in line N01: !"), 0u);
    Put("text.txt", "no program");
    EXPECT_EQ(WatchLine(Folder, "text.txt", {}), "text.txt: is not recognised as a CNC program");
}

// Every command and option stands in the manual page and in the completion.
TEST_F(ReportTest, TheManualTellsAllOfTheCommandLine) {
    for (const ProgramUsage& usage : {WindowUsage(), ConsoleUsage(), PreProcessorUsage()}) {
        const std::string page = ManualPage(usage);
        std::vector<UsageOption> options = usage.Options;
        for (const UsageCommand& command : usage.Commands) {
            EXPECT_NE(page.find(".SS " + usage.Name + " " + command.Name), std::string::npos);
            options.insert(options.end(), command.Options.begin(), command.Options.end());
        }
        EXPECT_GT(options.size(), 2u);
        for (const UsageOption& option : options) {
            EXPECT_FALSE(option.Text.empty()) << option.Names;
            EXPECT_NE(option.Text.back(), '.') << option.Names;
            EXPECT_NE(BashCompletion(usage).find(option.Names.substr(0, option.Names.find(','))),
                      std::string::npos);
        }
    }
    ProgramUsage odd;
    odd.Name = "odd";
    odd.Sections = {{"NOTES", ".so /etc/passwd\n\n'a \\fB-b"}};
    EXPECT_NE(ManualPage(odd).find("\\&.so /etc/passwd\n.PP\n\\&'a \\efB\\-b"), std::string::npos);
}

TEST_F(ReportTest, CompletionOffersWordsAndNamesAndRunsNone) {
    Put("kvtc", BashCompletion(ConsoleUsage()));
    Put(hostileName, good);
    const auto completed = [&](const std::string& words, int at) {
        const std::string script = "cd '" + Folder + "' && source ./kvtc && compopt() { :; }; COMP_WORDS=(" +
                                   words + "); COMP_CWORD=" + std::to_string(at) +
                                   "; _kvtc; printf '%s|' \"${COMPREPLY[@]}\" > offered";
        Put("script", script);
        EXPECT_EQ(std::system(("bash '" + Path("script") + "'").c_str()), 0);
        return FileContent("offered");
    };
    EXPECT_EQ(completed("kvtc ''", 1), "check|watch|format|language|draw|script|send|receive|machine|");
    EXPECT_EQ(completed("kvtc machine --machine M", 3), "MK2|MK4|");
    EXPECT_EQ(completed("kvtc check --", 2), "--report|--json|");
    EXPECT_EQ(completed("kvtc check --report '<'", 3), std::string(hostileName) + "|");
    EXPECT_EQ(completed("kvtc watch '<'", 2), "|");
    EXPECT_FALSE(std::filesystem::exists(Path("done")));
}

}  // namespace

}  // namespace kvt::test
