#include "files/program_print.h"

#include "files/paper_table.h"
#include "support/workbench_fixture.h"

namespace kvt::test {
namespace {

class PaperTableTest : public WorkbenchFixture {
protected:
    std::vector<std::string> Lines() { return PaperTable(Workbench->Store, Workbench->Writer, "Units: u"); }
};

// Where a word of a line ends.
std::size_t EndOf(const std::string& line, const std::string& word) {
    return line.find(" " + word) + 1 + word.size();
}

TEST_F(PaperTableTest, HeadsStandOverTheirColumnsHoweverLongTheyAre) {
    ListView& list = Workbench->Store.lvCncProgram;
    list.SetHeaderText(10, "Position of the tool");
    Check("MK4", {{"00", "1000", "", "200", "", "", "one"}, {"M30", "", "", "", "", "", "end"}});
    list.Row(2)[column::Error] = "!a finding that is long";
    list.SetHeaderWidth(9, 1000);
    list.SetHeaderWidth(10, 1000);
    list.SetHeaderWidth(19, 1000);
    list.Row(1)[column::ToolX] = " 1000";
    const std::vector<std::string> lines = Lines();
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(EndOf(lines[0], "N"), EndOf(lines[1], "00")) << lines[0] << '\n' << lines[1];
    EXPECT_EQ(EndOf(lines[0], "X"), EndOf(lines[1], "1000"));
    EXPECT_EQ(EndOf(lines[0], "Z"), EndOf(lines[1], "200"));
    EXPECT_EQ(EndOf(lines[0], "G"), lines[2].find("M30") + 3);
    EXPECT_EQ(EndOf(lines[0], "Position of the tool"), lines[1].rfind(" 1000") + 5);
    EXPECT_EQ(lines[0].find(list.Header(9).Text), lines[2].find("!a"));
    EXPECT_EQ(lines[0].find("Comment"), lines[2].find("end"));
    EXPECT_EQ(lines[1].find("one"), lines[2].find("end"));
    EXPECT_EQ(lines[3], "");
    EXPECT_EQ(lines[4], "   Units: u");
}

TEST_F(PaperTableTest, TheSheetOfEachMachineNamesItsUnits) {
    const std::pair<const char*, const char*> cases[] = {
        {"MK2", "Units: 1/100 mm"}, {"MK4", "Units: 1/100 mm"}, {"F1", "Units: V 1/100 mm"}};
    for (const auto& [machine, units] : cases) {
        Workbench->Store.Horizontal = false;
        Check(machine, {{std::string(machine) == "MK2" ? "22" : "M30"}});
        Workbench->Main.mnuPrintPreview.Click();
        ASSERT_EQ(Platform.Printer.Job.Table.size(), 4U);
        EXPECT_EQ(Platform.Printer.Job.Table.back(), "   " + std::string(units));
    }
}

}  // namespace
}  // namespace kvt::test
