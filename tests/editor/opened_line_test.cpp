#include "editor/opened_line.h"

#include <algorithm>
#include <map>

#include "basic/number.h"
#include "basic/text.h"
#include "platform/keys.h"
#include "support/program_generator.h"
#include "support/workbench_fixture.h"

namespace kvt::test {

namespace {

class OpenedLineTest : public WorkbenchFixture {
protected:
    // Every cell of every row, trimmed.
    std::vector<std::string> Cells() const {
        std::vector<std::string> cells;
        for (int row = 1; row <= List.Count(); ++row) {
            for (int c = column::Number; c <= column::Comment; ++c)
                cells.emplace_back(Trim(List.Row(row)[c].View()));
        }
        return cells;
    }
    // Opens a line as a click does and presses Enter through the row up to the code field.
    void Pass(int row) {
        List.Select(row);
        Platform.Focus.SetFocus(List);
        List.Click();
        int keys = 0;
        do {
            Platform.System.Press(key::Enter);
        } while (Platform.Focus.Focused() != &Workbench->Entry.txtGMcode && ++keys < 10);
        ASSERT_LT(keys, 10);
    }
    // Passes every line of the program that is loaded.
    void PassAll() {
        const std::string before = Workbench->Writer.GenerateAll();
        const int lines = Workbench->Store.LineCount();
        ASSERT_GT(lines, 0);
        for (int row = 1; row <= lines; ++row) {
            // The crosses of an error stand in the row that is selected.
            List.Select(row);
            Workbench->Interpreter.Interpreter();
            const std::vector<std::string> cells = Cells();
            Pass(row);
            const std::vector<std::string> after = Cells();
            const auto at = std::mismatch(cells.begin(), cells.end(), after.begin(), after.end());
            ASSERT_TRUE(at.first == cells.end() && at.second == after.end())
                << "line " << row - 1 << " changes line " << (at.first - cells.begin()) / column::Comment
                << ": \"" << *at.first << "\" to \"" << *at.second << "\"";
            ++Passed;
        }
        ASSERT_EQ(Workbench->Writer.GenerateAll(), before);
        // What the check of a program with a fault reports is its own.
        for (const auto& record : Workbench->Log.Records()) ASSERT_EQ(record.Procedure, "Interpreter");
    }

    ListView& List = Workbench->Store.lvCncProgram;
    int Passed = 0;
};

}  // namespace

TEST_F(OpenedLineTest, PassingALineOfASampleChangesNothing) {
    for (const std::string& file : SampleFiles()) {
        for (const int view : {0, 1}) {
            SCOPED_TRACE(file + (view ? " with codes" : ""));
            Workbench->View.chkViewGcode.Value = view;
            Workbench->Store.ProgramChanged = false;
            Load(Platform.Files.ReadWhole(file));
            PassAll();
            if (HasFatalFailure()) return;
        }
    }
    // The one first value of a line that is beyond its range.
    EXPECT_EQ(Platform.Dialogs.Shown.size(), 2u);
}

TEST_F(OpenedLineTest, PassingALineOfAGeneratedProgramChangesNothing) {
    const int programs = GeneratedPrograms(2);
    for (const Setting& setting : AllSettings()) {
        for (int i = 0; i < programs; ++i) {
            SCOPED_TRACE(std::string(setting.Machine) + (setting.Metric ? " mm" : " inch") +
                         (setting.Horizontal ? " horizontal " : " ") + std::to_string(i));
            std::mt19937 random(static_cast<unsigned>(i));
            const std::string file = GeneratedFile(*Workbench, setting, random, 25);
            Workbench->View.chkViewGcode.Value = i % 2;
            Platform.Dialogs.Shown.clear();  // the generator asks the entry row, too
            Load(file);
            PassAll();
            ASSERT_TRUE(Platform.Dialogs.Shown.empty()) << Platform.Dialogs.Shown.front().Text;
            if (HasFatalFailure()) return;
            Workbench->Store.ProgramChanged = false;
        }
    }
    RecordProperty("lines", Passed);
}

TEST_F(OpenedLineTest, ACellHoldsWhatWasTypedOrTheValueIsRefused) {
    const int rounds = GeneratedPrograms(2);
    int refused = 0;
    int written = 0;
    for (const Setting& setting : AllSettings()) {
        std::mt19937 random(7);
        for (int i = 0; i < rounds; ++i) {
            Use(*Workbench, setting);
            for (const std::string& code : CodesOf(*Workbench)) {
                SCOPED_TRACE(std::string(setting.Machine) + (setting.Metric ? " mm " : " inch ") +
                             (setting.Horizontal ? "horizontal " : "") + code);
                const std::vector<GeneratedField> fields = FieldsOf(*Workbench, code);
                Workbench->Layout.ClearEntryFields();
                Platform.Focus.SetFocus(Workbench->Entry.txtGMcode);
                const std::string mode = Workbench->Store.IsMK2() ? "" : code.substr(0, 1);
                for (const char key : mode + std::string(Trim(code.substr(1))) + "\r")
                    Platform.System.Type(key);
                std::map<std::size_t, int> typed;
                for (const GeneratedField& field : fields) {
                    ASSERT_EQ(Platform.Focus.Focused(), &Workbench->Entry.Fields()[field.Place].Box);
                    // Now and then one too many, by one or by a digit.
                    int value = field.Value(random);
                    const int more = static_cast<int>(random() % 6);
                    if (more == 0) value = random() % 2 == 0 ? field.High + 1 : field.Low - 1;
                    if (more == 1) value = (random() % 2 == 0 ? 10 : -10) * field.High;
                    // A feed below 2 takes the preset; one range begins below it.
                    if (field.Label == "F" && value >= 0 && value < 2 && field.Low < 2) value = 2;
                    const std::size_t messages = Platform.Dialogs.Shown.size();
                    for (const char key : std::to_string(value) + "\r") Platform.System.Type(key);
                    const bool fits = value >= field.Low && value <= field.High;
                    ASSERT_EQ(Platform.Dialogs.Shown.size() == messages, fits) << field.Label << value;
                    if (!fits) {
                        ++refused;
                        value = field.Value(random);
                        if (field.Label == "F" && value < 2) value = 2;
                        for (const char key : std::to_string(value) + "\r") Platform.System.Type(key);
                    }
                    typed[field.Place] = value;
                }
                const int row = List.SelectedRow();
                Platform.System.Press(key::Enter);
                ASSERT_EQ(List.Count(), row + 1);
                for (const GeneratedField& field : fields) {
                    const bool inColumnF = field.Label == "H" && Workbench->Store.IsF1();
                    const int c =
                        inColumnF ? static_cast<int>(column::F) : column::X + static_cast<int>(field.Place);
                    std::string cell(List.Row(row)[c].View());
                    const bool letter = field.Label.find_first_of("XYZFH") != 0;
                    if (letter) {
                        ASSERT_EQ(cell[0], field.Label[0]);
                        cell.erase(0, 1);
                    }
                    ASSERT_EQ(Val(cell), typed[field.Place]) << cell;
                    ++written;
                }
            }
        }
    }
    EXPECT_GT(refused, 100);
    EXPECT_GT(written, refused);
    RecordProperty("written", written);
    RecordProperty("refused", refused);
}

}  // namespace kvt::test
