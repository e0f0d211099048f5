#include "basic/number.h"
#include "basic/run_time_error.h"
#include "support/workbench_fixture.h"

namespace kvt::test {

namespace {

Line Plain(const char* code) { return {.Code = code}; }
Line To(const char* code, int target) { return {.Code = code, .F = Format(target, "00")}; }

class FlowTest : public WorkbenchFixture {
protected:
    std::string Executed() { return Workbench->Results.lblPPLinesExe.Caption.Get(); }
    std::string Header() { return Workbench->Store.lvCncProgram.Header(ErrorHeader).Text; }
};

TEST_F(FlowTest, JumpBelowLine0GoesOnWithTheNextLine) {
    std::size_t records = 0;
    for (const char* cell : {"L-01", "L-99"}) {
        Check("MK4", {To("27", 0), Plain("21")});
        Workbench->Store.lvCncProgram.Row(1)[column::F] = std::string_view(cell);
        Workbench->Interpreter.Interpreter();
        ASSERT_EQ(Workbench->Log.Records().size(), ++records);
        EXPECT_EQ(Workbench->Log.Records().back().Number, fault::SubscriptOutOfRange);
        EXPECT_EQ(Executed(), "2");
        EXPECT_EQ(Error(0), "!L= 0 minimum");
        EXPECT_EQ(Workbench->Results.lblPPMachineTime.Caption.Get(), "00:00:00");
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
    EXPECT_EQ(Executed(), std::to_string(11 * 11111 + 100000));
    EXPECT_EQ(Workbench->Store.ErrorRow, 0);
    Check("MK4", Multiplied(16));
    EXPECT_EQ(Executed(), "1000000");
    EXPECT_TRUE(Workbench->Store.ErrorFlagged);
    EXPECT_EQ(Workbench->Results.lblPPMachineTime.Caption.Get(), "xx:xx:xx");
    int told = 0;
    for (int line = 0; line < 86; ++line) told += Error(line) == "!Too many lines executed" ? 1 : 0;
    EXPECT_EQ(told, 1);
    EXPECT_EQ(Error(Workbench->Store.ErrorRow - 1), "!Too many lines executed");
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
            for (int n = 0; n < Workbench->Store.LineCount(); ++n)
                EXPECT_EQ(Error(n), n == line ? message : "") << one.Machine << one.Lines << when << n;
            EXPECT_EQ(Workbench->Store.ErrorFlagged, line >= 0);
            EXPECT_NE(Workbench->Results.lblPPMachineTime.Caption.Get(), "xx:xx:xx");
        };
        if (one.EndCodeAt >= 0) lines[static_cast<std::size_t>(one.EndCodeAt)] = Plain("M30");
        Check(one.Machine, lines);
        expect(one.AtLoad, " load ");
        // An edit of the first line.
        Workbench->Store.lvCncProgram.Select(1);
        Workbench->Entry.lblGMcode.Caption = "G";
        Workbench->Entry.txtGMcode.Text = "21";
        Workbench->Lines.LineEdit();
        expect(one.AfterEdit, " edit ");
        if (one.AfterEdit >= 0) {
            EXPECT_EQ(Header(), "Error in line " + std::to_string(one.HeaderAfterEdit));
        }
        Workbench->Store.DisableLimitsCheck = true;
        Workbench->Interpreter.Interpreter();
        expect(-1, " disabled ");
        Workbench->Store.DisableLimitsCheck = false;
        Workbench->Store.ProgramChanged = false;
    }
}

// A position can grow past every whole number: the count of a cycle's cuts fails, and the run goes on.
TEST_F(FlowTest, OverflowIsReportedAndTheRunGoesOn) {
    Check("MK4",
          {Plain("00"), Plain("00"), Plain("90"), {.Code = "84", .F = "100", .H = "10"}, Plain("M30")});
    for (int row = 1; row <= 2; ++row) Workbench->Store.lvCncProgram.Row(row)[column::X] = "2000000000";
    EXPECT_NO_THROW(Workbench->Interpreter.Interpreter());
    EXPECT_EQ(Executed(), "5");
    ASSERT_FALSE(Workbench->Log.Records().empty());
    EXPECT_EQ(Workbench->Log.Records()[0].Number, 6);
    EXPECT_EQ(Workbench->Log.Records()[0].Procedure, "Interpreter");
}

}  // namespace

}  // namespace kvt::test
