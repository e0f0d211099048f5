#include <gtest/gtest.h>

#include <filesystem>
#include <tuple>

#include "basic/run_time_error.h"
#include "headless/memory_programs.h"
#include "system/system_programs.h"

namespace kvt::test {

namespace {

TEST(Programs, ACommandLineSplitsAtBlanksBehindTheProgram) {
    const auto isProgram = [](const auto& path) { return path == "/pp/my tool.F1" || path == "/pp/a"; };
    const std::tuple<const char*, const char*, const char*, std::vector<std::string>> cases[] = {
        {"/pp/a", "/pp/a", "", {}},
        {"/pp/a /my  parts/x.nc", "/pp/a", "/my  parts/x.nc", {"/my", "parts/x.nc"}},
        {"/pp/my tool.F1  x", "/pp/my tool.F1", " x", {"x"}},
        {"/pp/a \"x y\" $(id)", "/pp/a", "\"x y\" $(id)", {"\"x", "y\"", "$(id)"}},
        {"/pp/b x", "", "", {}},
        {"", "", "", {}},
    };
    for (const auto& [line, program, rest, arguments] : cases) {
        const Command command = SplitCommand(line, isProgram);
        EXPECT_EQ(command.Program, program) << line;
        EXPECT_EQ(command.Arguments, rest) << line;
        EXPECT_EQ(WordsOf(command.Arguments), arguments) << line;
    }
}

TEST(Programs, OneThatHangsIsEndedWithWhatItStarted) {
    MemoryPrograms programs;
    programs.GiveUpAfter = std::chrono::milliseconds{0};
    const int sleeper = programs.Start("/bin/sleep 300", "");
    EXPECT_FALSE(programs.HasEnded(sleeper));
    programs.End(sleeper);
    EXPECT_TRUE(programs.HasEnded(sleeper));
    EXPECT_THROW(programs.Start("/bin/no-such-program x", "x"), RunTimeError);
}

}  // namespace

}  // namespace kvt::test
