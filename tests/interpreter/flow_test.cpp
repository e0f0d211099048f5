#include <random>

#include "basic/number.h"
#include "basic/text.h"
#include "support/bench_fixture.h"

namespace kvt::test {

namespace {

Line Plain(const char* code) { return {.Code = code}; }
Line To(const char* code, int target) { return {.Code = code, .F = Format(target, "00")}; }

class FlowTest : public BenchTest {
protected:
    std::string Executed() { return Bench->Results.lblPPLinesExe.Caption.Get(); }
    std::string Header() { return Bench->Store.lvCncProgram.Header(ErrorHeader).Text; }
    bool Ran(int line) { return Right(Cell(line, column::ToolX), 1) != "?"; }

    // The run went to the end without a finding, after so many lines.
    void ExpectEnd(int executed) {
        EXPECT_EQ(Executed(), std::to_string(executed));
        EXPECT_EQ(Bench->Store.ErrorRow, 0);
        EXPECT_EQ(Bench->Store.lvCncProgram.Header(ErrorHeader).Width, 0);
    }
    // The run ended at a line with a finding, so many lines before it.
    void ExpectFinding(int line, const char* message, int executed) {
        EXPECT_EQ(Error(line), message);
        EXPECT_EQ(Bench->Store.ErrorRow, line + 1);
        EXPECT_EQ(Bench->Store.ErrorLine, static_cast<float>(line));
        EXPECT_EQ(Header(), "Error in line " + std::to_string(line));
        EXPECT_EQ(Executed(), executed == 0 ? "xxx" : std::to_string(executed));
    }
    void ExpectSubscriptErrors(std::size_t count) {
        const auto& records = Bench->Log.Records();
        ASSERT_EQ(records.size(), count);
        for (const ErrorLog::Record& record : records) {
            EXPECT_EQ(record.Number, 9);
            EXPECT_EQ(record.Description, "Subscript out of range");
            EXPECT_EQ(record.Procedure, "Interpreter");
        }
    }
};

TEST_F(FlowTest, SubroutineTargets) {
    const struct {
        int Target;
        const char* Message;
    } refused[] = {{0, "!Invalid SUB"},
                   {5, "!Invalid SUB"},
                   {6, "!Invalid SUB"},
                   {9, "!Line doesn't exist"},
                   {99, "!Line doesn't exist"}};
    for (const auto& one : refused) {
        std::vector<Line> lines(9, Plain("21"));
        lines[5] = To("25", one.Target);
        Check("MK4", lines);
        ExpectFinding(5, one.Message, 5);
        EXPECT_FALSE(Ran(5));
        EXPECT_FALSE(Ran(6));
    }
    // The last line is a target, and the return goes to the line behind the call.
    for (const int target : {7, 8}) {
        std::vector<Line> lines(9, Plain("M17"));
        std::fill_n(lines.begin(), 5, Plain("21"));
        lines[5] = To("25", target);
        lines[6] = Plain("M30");
        Check("MK4", lines);
        ExpectEnd(8);
        EXPECT_EQ(Ran(7), target == 7);
        EXPECT_EQ(Ran(8), target == 8);
    }
}

// Line 2k calls line 2k + 2, and line 2k + 1 returns.
std::vector<Line> Nested(int calls) {
    std::vector<Line> lines;
    for (int call = 0; call < calls; ++call) {
        lines.push_back(To("25", 2 * call + 2));
        lines.push_back(Plain(call == 0 ? "M30" : "M17"));
    }
    lines.push_back(Plain("M17"));
    lines.push_back(Plain("M17"));
    return lines;
}

TEST_F(FlowTest, FiveLevelsReturnAndTheSixthFallsThrough) {
    Check("MK4", Nested(5));
    ExpectEnd(11);
    ExpectSubscriptErrors(0);
    // The sixth call is not stored: its return stays, and the line behind it returns from level five.
    Check("MK4", Nested(6));
    ExpectEnd(13);
    ExpectSubscriptErrors(2);
    EXPECT_FALSE(Ran(11));
    EXPECT_TRUE(Ran(13));
}

TEST_F(FlowTest, SeventhLevelIsRefused) {
    const std::pair<int, const char*> targets[] = {
        {14, "!Max 5 nested SUBs"}, {99, "!Max 5 nested SUBs"}, {13, "!Invalid SUB"}};
    std::size_t records = 0;
    for (const auto& [target, message] : targets) {
        std::vector<Line> lines = Nested(7);
        lines[12] = To("25", target);
        Check("F1", lines);
        ExpectFinding(12, message, 6);
        ExpectSubscriptErrors(++records);
    }
}

TEST_F(FlowTest, ReturnNeedsACall) {
    Check("MK4", {Plain("21"), Plain("M17")});
    ExpectFinding(1, "!RETURN without SUB", 1);
    // Once returned, the way through the subroutine is one return too many.
    Check("MK4", {To("25", 2), Plain("21"), Plain("M17"), Plain("M30")});
    ExpectFinding(2, "!RETURN without SUB", 3);
}

TEST_F(FlowTest, Jumps) {
    Check("MK4", {To("27", 3), Plain("21"), To("27", 4), To("27", 1), Plain("M30")});
    ExpectEnd(5);  // back onto a line that was jumped over
    Check("MK4", {To("27", 2), Plain("21"), Plain("21")});
    ExpectEnd(2);
    EXPECT_FALSE(Ran(1));
    Check("MK4", {Plain("21"), To("27", 3), Plain("21")});
    ExpectFinding(1, "!Line doesn't exist", 1);
    Check("MK4", {{.Code = "27", .F = "03", .Comment = "cmdSKIP"}, Plain("21"), Plain("21")});
    ExpectFinding(0, "!Line doesn't exist", 0);
}

TEST_F(FlowTest, EndlessLoopCrossesTheLinesBetween) {
    std::vector<Line> lines(11, Plain("21"));
    lines[9] = To("27", 5);
    Check("MK4", lines);
    ExpectFinding(9, "!Endless loop", 9);
    EXPECT_EQ(Bench->Results.lblPPMachineTime.Caption.Get(), "xx:xx:xx");
    for (int line = 1; line < 11; ++line) {
        const bool crossed = line >= 5 && line <= 9;
        const std::string tool = crossed ? " xxxxx" : line < 10 ? "     0" : "     ?";
        EXPECT_EQ(Cell(line, column::ToolX), tool) << line;
        EXPECT_EQ(Cell(line, column::ToolY), tool) << line;
        EXPECT_EQ(Cell(line, column::ToolZ), tool) << line;
        EXPECT_EQ(Cell(line, column::Angle), crossed ? " xx" : "   ") << line;
        EXPECT_EQ(Error(line), crossed ? "!Endless loop" : "") << line;
        EXPECT_EQ(Cell(line, column::CenterX), "      ") << line;
    }
    // The selected line gets the crosses of the header.
    EXPECT_EQ(Cell(0, column::ToolX), " xxxxx");
    EXPECT_EQ(Cell(0, column::Time), " xxxxx");
    EXPECT_EQ(Error(0), "");
}

TEST_F(FlowTest, EndlessLoopsWithoutLinesBetween) {
    // Onto itself: the first time it has not run yet.
    Check("MK4", {Plain("21"), To("27", 1), Plain("21")});
    ExpectFinding(1, "!Endless loop", 2);
    EXPECT_EQ(Cell(1, column::ToolX), " xxxxx");
    // Forward onto a line that has run: the header alone tells.
    Check("MK4", {To("27", 2), To("27", 3), To("27", 3), To("27", 1)});
    EXPECT_EQ(Header(), "Error in line 1");
    EXPECT_EQ(Bench->Store.ErrorRow, 2);
    EXPECT_EQ(Executed(), "3");
    EXPECT_EQ(Bench->Results.lblPPMachineTime.Caption.Get(), "xx:xx:xx");
    for (int line = 0; line < 4; ++line) EXPECT_EQ(Error(line), "") << line;
    EXPECT_EQ(Cell(2, column::ToolX), "     0");
    // The crosses of an earlier finding take the mark of a line that has not run.
    Check("MK4", {To("27", 2), Plain("21"), {.Code = "00", .X = "6000"}});
    Bench->Store.lvCncProgram.Select(3);
    Bench->Interpreter.Interpreter();
    EXPECT_EQ(Executed(), "xxx");
    EXPECT_EQ(Bench->Store.ErrorRow, 1);
    EXPECT_EQ(Header(), "Error in line 2");
}

TEST_F(FlowTest, JumpBelowLine0GoesOnWithTheNextLine) {
    std::size_t records = 0;
    for (const char* cell : {"L-01", "L-99"}) {
        Check("MK4", {To("27", 0), Plain("21")});
        Bench->Store.lvCncProgram.Row(1)[column::F] = std::string_view(cell);
        Bench->Interpreter.Interpreter();
        ExpectSubscriptErrors(++records);
        EXPECT_EQ(Executed(), "2");
        EXPECT_EQ(Error(0), "!L= 0 minimum");
        EXPECT_EQ(Bench->Results.lblPPMachineTime.Caption.Get(), "00:00:00");
    }
}

TEST_F(FlowTest, EndCodeInTheMiddle) {
    for (const char* end : {"22", "M30"}) {
        Check("MK4", {{.Code = "04", .X = "200"}, Plain(end), {.Code = "04", .X = "500"}});
        ExpectEnd(2);
        EXPECT_EQ(Bench->Results.lblPPMachineTime.Caption.Get(), "00:00:02");
        EXPECT_EQ(Bench->Results.lblPPLines.Caption.Get(), "3");
        EXPECT_TRUE(Ran(1));
        EXPECT_FALSE(Ran(2));
        EXPECT_TRUE(Bench->Store.EndCodePresent);
    }
    // An end code that is never reached counts as present.
    Check("MK4", {To("27", 2), Plain("M30"), Plain("21")});
    EXPECT_TRUE(Bench->Store.EndCodePresent);
    Check("MK4", {Plain("21")});
    EXPECT_FALSE(Bench->Store.EndCodePresent);
}

TEST_F(FlowTest, RadiusModeMustComeFirst) {
    const std::pair<std::vector<Line>, bool> programs[] = {
        {{Plain("24"), Plain("90")}, true},
        {{Plain("91"), Plain("24")}, true},
        {{Plain("90"), Plain("91"), Plain("24")}, true},
        {{Plain("90"), Plain("24")}, false},
        {{Plain("92"), Plain("24")}, false},
    };
    for (const auto& [lines, good] : programs) {
        Check("MK4", lines);
        Bench->Interpreter.Interpreter();  // the mode of the run before does not count
        if (good) {
            ExpectEnd(static_cast<int>(lines.size()));
            EXPECT_TRUE(Bench->Store.RadiusMode);
        } else {
            ExpectFinding(1, "!G24 must precede G90/G92", 1);
            EXPECT_FALSE(Bench->Store.RadiusMode);
        }
    }
}

// Five levels of subroutines, each called so many times by the level above.
std::vector<Line> Multiplied(int calls) {
    std::vector<Line> lines;
    for (int level = 0; level < 5; ++level) {
        for (int call = 0; call < calls; ++call) lines.push_back(To("25", (level + 1) * (calls + 1)));
        lines.push_back(Plain(level == 0 ? "M30" : "M17"));
    }
    lines.push_back(Plain("M17"));
    return lines;
}

TEST_F(FlowTest, NestedCallsEndAtAMillionLines) {
    Check("MK4", Multiplied(10));
    ExpectEnd(11 * 11111 + 100000);
    Check("MK4", Multiplied(16));
    EXPECT_EQ(Executed(), "1000000");
    EXPECT_TRUE(Bench->Store.ErrorFlagged);
    EXPECT_EQ(Bench->Results.lblPPMachineTime.Caption.Get(), "xx:xx:xx");
    int told = 0;
    for (int line = 0; line < 86; ++line) told += Error(line) == "!Too many lines executed" ? 1 : 0;
    EXPECT_EQ(told, 1);
    EXPECT_EQ(Error(Bench->Store.ErrorRow - 1), "!Too many lines executed");
}

TEST_F(FlowTest, TooManyLines) {
    constexpr const char* message = "Maximum number of lines has been reached";
    const struct {
        const char* Machine;
        int Lines;
        int EndCodeAt;  // -1 for none
        int AtLoad;     // the line that has the message, -1 for none
        int AfterEdit;
        int HeaderAfterEdit;
    } cases[] = {
        {"MK2", 159, -1, -1, -1, -1},
        {"MK2", 160, -1, 158, 159, 159},
        {"MK4", 209, -1, -1, -1, -1},
        {"MK4", 210, -1, 208, 209, 209},
        {"F1", 210, 209, -1, -1, -1},
        {"F1", 211, 210, 209, 210, 210},
        // Behind an end code the open line decides whether the test meets the last row.
        {"MK4", 211, 100, -1, 100, 210},
    };
    for (const auto& one : cases) {
        std::vector<Line> lines(static_cast<std::size_t>(one.Lines), Plain("21"));
        const auto expect = [&](int line, const char* when) {
            for (int n = 0; n < Bench->Store.LineCount(); ++n) {
                EXPECT_EQ(Error(n), n == line ? message : "") << one.Machine << one.Lines << when << n;
            }
            EXPECT_EQ(Bench->Store.ErrorFlagged, line >= 0);
            EXPECT_NE(Bench->Results.lblPPMachineTime.Caption.Get(), "xx:xx:xx");
        };
        if (one.EndCodeAt >= 0) lines[static_cast<std::size_t>(one.EndCodeAt)] = Plain("M30");
        Check(one.Machine, lines);
        expect(one.AtLoad, " load ");
        // An edit of the first line.
        Bench->Store.lvCncProgram.Select(1);
        Bench->Entry.lblGMcode.Caption = "G";
        Bench->Entry.txtGMcode.Text = "21";
        Bench->Lines.LineEdit();
        expect(one.AfterEdit, " edit ");
        if (one.AfterEdit >= 0) {
            EXPECT_EQ(Header(), "Error in line " + std::to_string(one.HeaderAfterEdit));
        }
        Bench->Store.DisableLimitsCheck = true;
        Bench->Interpreter.Interpreter();
        expect(-1, " disabled ");
        Bench->Store.DisableLimitsCheck = false;
        Bench->Store.ProgramChanged = false;
    }
}

// A position can grow past every whole number: the count of a cycle's cuts fails, and the run goes on.
TEST_F(FlowTest, OverflowIsReportedAndTheRunGoesOn) {
    Check("MK4",
          {Plain("00"), Plain("00"), Plain("90"), {.Code = "84", .F = "100", .H = "10"}, Plain("M30")});
    for (int row = 1; row <= 2; ++row) Bench->Store.lvCncProgram.Row(row)[column::X] = "2000000000";
    EXPECT_NO_THROW(Bench->Interpreter.Interpreter());
    EXPECT_EQ(Executed(), "5");
    ASSERT_FALSE(Bench->Log.Records().empty());
    EXPECT_EQ(Bench->Log.Records()[0].Number, 6);
    EXPECT_EQ(Bench->Log.Records()[0].Procedure, "Interpreter");
}

// Whatever the jumps and calls, a run comes to an end, tells one and finds the same again.
TEST_F(FlowTest, EveryProgramComesToAnEnd) {
    std::mt19937 random(20240229);
    const auto below = [&](auto count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    constexpr std::string_view codes[] = {" 25 ", " 25 ", " 25 ", " 27 ", "M17 ",
                                          "M17 ", "M30 ", " 00 ", " 00 "};
    ListView& list = Bench->Store.lvCncProgram;
    int ended = 0;
    int found = 0;
    for (int program = 0; program < 300; ++program) {
        const int count = 2 + below(program % 2 == 0 ? 12 : 60);
        Bench->Store.Machine = Machines()[static_cast<std::size_t>(program % 3)].Model;
        list.Clear();
        for (int line = 0; line < count; ++line) {
            // Most targets lie just ahead, so that calls are taken.
            const int target = below(4) == 0 ? below(count + 2) : line + 2 + below(6);
            ListRow& row = list.AddRow();
            row[column::Code] = codes[below(std::size(codes))];
            row[column::F] = "L" + RightPad(Format(target, "#00"), 3);
        }
        Bench->Store.AddBlankLine(false);

        std::string results[2];
        int ran = 0;
        for (std::string& result : results) {
            Bench->Interpreter.Interpreter();
            ran = 0;
            for (int line = 0; line < count; ++line) {
                for (int c = column::Error; c <= column::Time; ++c) result += Cell(line, c) + "|";
                ran += Ran(line) ? 1 : 0;
            }
            result += Header() + Executed();
        }
        EXPECT_EQ(results[0], results[1]) << program;
        EXPECT_LE(Val(Executed()), 1000000) << program;
        EXPECT_LE(Bench->Store.ErrorRow, count) << program;
        EXPECT_EQ(Bench->Store.ErrorRow > 0, Bench->Store.ErrorFlagged) << program;
        (Bench->Store.ErrorFlagged ? found : ended) += 1;
        if (!Bench->Store.ErrorFlagged) {
            EXPECT_NE(Bench->Results.lblPPMachineTime.Caption.Get(), "xx:xx:xx") << program;
            EXPECT_LE(ran, Val(Executed())) << program;
        }
    }
    EXPECT_GT(ended, 20);
    EXPECT_GT(found, 20);
}

}  // namespace

}  // namespace kvt::test
