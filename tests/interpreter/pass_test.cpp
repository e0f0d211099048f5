#include "basic/number.h"
#include "support/workbench_fixture.h"

namespace kvt::test {

namespace {

Line Plain(const char* code) { return {.Code = code}; }

class PassTest : public WorkbenchFixture {
protected:
    ListView& List() { return Workbench->Store.lvCncProgram; }
    InterpreterControls& Shown() { return Workbench->Results; }
    std::string Executed() { return Shown().lblPPLinesExe.Caption.Get(); }
    std::string MachineTime() { return Shown().lblPPMachineTime.Caption.Get(); }
    std::string Header() { return List().Header(ErrorHeader).Text; }
    int ErrorWidth() { return List().Header(ErrorHeader).Width; }
    void Run() { Workbench->Interpreter.Interpreter(); }
};

TEST_F(PassTest, EmptyProgram) {
    for (const bool blankLine : {false, true}) {
        Check("MK4", {{.Code = "00", .X = "6000", .Z = "100"}, Plain("M17")});
        ASSERT_NE(Shown().lblXAxisMax.Caption.Get(), "0");
        ASSERT_GT(ErrorWidth(), 0);
        List().Clear();
        if (blankLine) Workbench->Store.AddBlankLine(true);
        Workbench->Store.ProgramChanged = true;
        Workbench->Store.ArcPresent = true;
        Run();
        EXPECT_EQ(Shown().lblPPLines.Caption.Get(), "0");
        EXPECT_EQ(Executed(), "xxx");
        EXPECT_EQ(MachineTime(), "xx:xx:xx");
        EXPECT_EQ(ErrorWidth(), 0);
        EXPECT_FALSE(Workbench->Store.ErrorFlagged);
        EXPECT_FALSE(Workbench->Store.ProgramChanged);
        EXPECT_FALSE(Workbench->Store.ArcPresent);
        for (const Label* label : {&Shown().lblXAxisMin, &Shown().lblXAxisMax, &Shown().lblXAxisTravel,
                                   &Shown().lblZAxisMin, &Shown().lblZAxisMax, &Shown().lblZAxisTravel}) {
            EXPECT_EQ(label->Caption.Get(), "0") << label->Name();
        }
    }
}

TEST_F(PassTest, ResultCellsAreClearedAndAFlowErrorLeavesTheRest) {
    Check("MK4", {{.Code = "04", .X = "150"}, Plain("21"), Plain("21")});
    EXPECT_EQ(MachineTime(), "00:00:02");
    for (int row = 1; row <= 3; ++row) {
        for (int c = column::Error; c <= column::Time; ++c) List().Row(row)[c] = "of a run before";
    }
    List().Row(2)[column::Code] = "M17 ";
    List().Select(4);
    Run();
    EXPECT_EQ(Error(1), "!RETURN without SUB");
    EXPECT_EQ(Cell(1, column::ToolX), "     ?");
    EXPECT_EQ(Cell(2, column::Error), std::string(15, ' '));
    for (const int c : {column::ToolX, column::ToolY, column::ToolZ}) EXPECT_EQ(Cell(2, c), "     ?");
    for (int c = column::CenterX; c <= column::Radius; ++c) EXPECT_EQ(Cell(2, c), std::string(6, ' '));
    EXPECT_EQ(Cell(2, column::Angle), std::string(3, ' '));
    EXPECT_EQ(Cell(2, column::Time), std::string(8, ' '));
    // Time and header as they were before and at the error; the open line gets no crosses.
    EXPECT_EQ(MachineTime(), "00:00:02");
    EXPECT_EQ(Cell(0, column::Time), "00:00:02");
    EXPECT_EQ(Executed(), "1");
    EXPECT_EQ(Shown().lblPPLines.Caption.Get(), "3");
    EXPECT_EQ(ErrorWidth(), 3885);
    EXPECT_EQ(Cell(3, column::ToolX), " ");
    EXPECT_EQ(List().SelectedRow(), 4);
}

// Stepping: the wait takes the events that a test has queued.
class StepTest : public PassTest {
protected:
    void Then(std::function<void()> event) { Platform.System.Events.push_back(std::move(event)); }
    void ThenStep() {
        Then([this] {
            Seen.push_back(std::to_string(List().SelectedRow()) + " " + Executed());
            Shown().cmdStep.Click();
        });
    }
    void ExpectLeft() {
        EXPECT_FALSE(Workbench->Store.EditorRunMode);
        EXPECT_TRUE(Shown().cmdRun.Visible);
    }
    std::vector<std::string> Seen;
};

// The line that waits is in sight, and the end code keeps the selection.
TEST_F(StepTest, EndCodeKeepsTheSelection) {
    std::vector<Line> lines(61, Plain("21"));
    lines[59] = Plain("M30");
    Check("F1", lines);
    for (int line = 0; line < 60; ++line) ThenStep();
    Shown().cmdRun.Click();
    EXPECT_EQ(List().SelectedRow(), 60);
    EXPECT_LE(List().TopRow(), 60);
    EXPECT_GT(List().TopRow() + List().VisibleRows(), 60);
    EXPECT_EQ(Executed(), "60");
    EXPECT_FALSE(Shown().cmdStep.Enabled);
    // Outside of stepping the end code selects nothing.
    List().Select(3);
    Run();
    EXPECT_EQ(List().SelectedRow(), 3);
}

TEST_F(StepTest, AnEditGivesTheWaitingPassUp) {
    Check("MK4", {Plain("21"), Plain("21"), Plain("21")});
    ThenStep();
    Then([this] {
        List().Select(1);
        Workbench->Entry.lblGMcode.Caption = "M";
        Workbench->Entry.txtGMcode.Text = "17";
        Workbench->Lines.LineEdit();
    });
    ThenStep();
    Shown().cmdRun.Click();
    ExpectLeft();
    EXPECT_TRUE(Shown().cmdStep.Enabled);
    EXPECT_EQ(Platform.System.Events.size(), 1U);
    EXPECT_EQ(Error(0), "!RETURN without SUB");
    EXPECT_EQ(Executed(), "xxx");
    for (int line = 1; line < 3; ++line) EXPECT_EQ(Cell(line, column::ToolX), "     ?") << line;
    EXPECT_EQ(List().SelectedRow(), 1);
}

TEST_F(StepTest, OtherWaysOutOfTheWait) {
    // The program goes away under the wait.
    Check("MK4", {Plain("21"), Plain("21")});
    ThenStep();
    Then([this] { Workbench->Calls.ClearProgram_Click(); });
    Shown().cmdRun.Click();
    ExpectLeft();
    EXPECT_EQ(List().Count(), 0);
    EXPECT_EQ(Shown().lblPPLines.Caption.Get(), "0");
    EXPECT_EQ(Executed(), "xxx");
    // The mode is left without a new run.
    Check("MK4", {Plain("21"), Plain("21")});
    ThenStep();
    Then([this] { Workbench->Interpreter.EndStepRun(); });
    Shown().cmdRun.Click();
    ExpectLeft();
    EXPECT_EQ(Executed(), "1");
    EXPECT_EQ(Cell(1, column::ToolX), "     ?");
    // Nothing can come any more.
    ThenStep();
    Shown().cmdRun.Click();
    EXPECT_EQ(Executed(), "1");
    EXPECT_EQ(Cell(1, column::ToolX), "     ?");
    Shown().cmdStop.Click();
    ExpectLeft();
    EXPECT_EQ(Executed(), "2");
    EXPECT_EQ(Cell(1, column::ToolX), "     0");
}

TEST_F(StepTest, AFlowErrorStaysInTheMode) {
    Check("MK4", {Plain("21"), Plain("M17"), Plain("21")});
    ThenStep();
    ThenStep();
    Shown().cmdRun.Click();
    EXPECT_TRUE(Workbench->Store.EditorRunMode);
    EXPECT_FALSE(Shown().cmdRun.Visible);
    EXPECT_EQ(Error(1), "!RETURN without SUB");
    // The line is the selected one, so it has the crosses too, and the selection is not given back.
    EXPECT_EQ(Cell(1, column::ToolX), " xxxxx");
    EXPECT_EQ(List().SelectedRow(), 2);
    Shown().cmdStop.Click();
    ExpectLeft();
    EXPECT_EQ(Executed(), "1");
}

}  // namespace

}  // namespace kvt::test
