// What the rules say about many short programs, kept as text for review. tools/make_golden.sh writes the files anew.

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "basic/number.h"
#include "basic/text.h"
#include "draw/draw_fixture.h"
#include "interpreter/parameter_checks.h"
#include "support/program_generator.h"

namespace kvt::test {

namespace {

std::string FileOf(const std::string& name) { return KVT_SOURCE_DIR "/tests/golden/" + name; }

std::string ReadGolden(const std::string& name) {
    std::ifstream stream(FileOf(name), std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

// Compares line by line, so that a failure shows the place; or writes, for KVT_GOLDEN=write.
void Expect(const std::string& name, const std::string& text) {
    const char* const mode = std::getenv("KVT_GOLDEN");
    if (mode && std::string_view(mode) == "write") {
        std::ofstream(FileOf(name), std::ios::binary) << text;
        return;
    }
    std::istringstream kept(ReadGolden(name)), made(text);
    std::string before, now;
    for (int line = 1; std::getline(made, now); ++line) {
        ASSERT_TRUE(std::getline(kept, before)) << name << ":" << line << " is new: " << now;
        ASSERT_EQ(now, before) << name << ":" << line;
    }
    EXPECT_FALSE(std::getline(kept, before)) << name << " goes on: " << before;
}

class GoldenTest : public DrawTest {
protected:
    // Goes through a file of cases, "> MACHINE UNITS: PROGRAM", and replaces what follows each.
    template <class Answer>
    void ExpectCases(const std::string& name, Answer answer) {
        std::istringstream kept(ReadGolden(name));
        std::string text;
        int cases = 0;
        for (std::string line; std::getline(kept, line);) {
            if (line.starts_with("  ")) continue;
            text += line + "\n";
            if (!line.starts_with("> ")) continue;
            const std::size_t colon = line.find(": ");
            std::istringstream head(line.substr(2, colon - 2));
            std::string machine, units;
            head >> machine >> units;
            logged_ = Workbench->Log.Records().size();
            text += answer(machine, units, Program(line.substr(colon + 2)));
            ++cases;
        }
        EXPECT_GT(cases, 20);
        Expect(name, text);
    }
    std::string LogText() const {
        std::string text;
        const auto& records = Workbench->Log.Records();
        for (std::size_t i = logged_; i < records.size(); ++i)
            text += "  log " + std::to_string(records[i].Number) + " " + records[i].Procedure + "\n";
        return text;
    }

    // "  00 01: tool 0 0 -100, angle L45.0, time 00:00:06 !finding @ comment", an incremental line with "i".
    std::string RowText(int line) const {
        const ListRow& row = Workbench->Store.lvCncProgram.Row(line + 1);
        const auto cells = [&](const char* what, int first, int last) {
            std::string text;
            for (int c = first; c <= last; ++c) text += " " + std::string(Trim(row[c]));
            return Trim(text).empty() ? std::string() : std::string(", ") + what + text;
        };
        std::string text = "  " + Format(line, "00") + " " + std::string(Trim(row[column::Code])) +
                           (row.ForeColor == Workbench->Store.IncrColor ? " i" : "");
        // Z is derived on one machine.
        if (Workbench->Store.IsMK2()) text += cells("Z", column::Z, column::Z);
        text +=
            cells("tool", column::ToolX, column::ToolZ) + cells("centre", column::CenterX, column::CenterZ) +
            cells("radius", column::Radius, column::Radius) + cells("angle", column::Angle, column::Angle) +
            cells("time", column::Time, column::Time) + cells("comment", column::Comment, column::Comment);
        const std::string error = Error(line);
        return text + (error.empty() ? "" : " " + error) + "\n";
    }
    std::string CheckText() const {
        const ProgramStore& store = Workbench->Store;
        const InterpreterControls& shown = Workbench->Results;
        std::string text;
        for (int line = 0; line < store.LineCount(); ++line) text += RowText(line);
        text += "  executed " + shown.lblPPLinesExe.Caption.Get() + ", time " +
                shown.lblPPMachineTime.Caption.Get() + ", plane " + store.ActivePlane;
        for (const auto& [axis, min, max, travel] :
             {std::tuple("X", &shown.lblXAxisMin, &shown.lblXAxisMax, &shown.lblXAxisTravel),
              std::tuple("Y", &shown.lblYAxisMin, &shown.lblYAxisMax, &shown.lblYAxisTravel),
              std::tuple("Z", &shown.lblZAxisMin, &shown.lblZAxisMax, &shown.lblZAxisTravel)})
            text += std::string(", ") + axis + " " + min->Caption.Get() + " " + max->Caption.Get() + " " +
                    travel->Caption.Get();
        if (store.RadiusMode) text += ", radius mode";
        if (store.EndCodePresent) text += ", end code";
        if (store.ArcPresent) text += ", arcs";
        if (store.ErrorRow > 0)
            text +=
                ", row " + PlainNumber(store.ErrorRow) + ": " + store.lvCncProgram.Header(ErrorHeader).Text;
        return text + "\n" + LogText();
    }

private:
    std::size_t logged_ = 0;
};

}  // namespace

TEST_F(GoldenTest, Check) {
    ExpectCases("check.txt", [this](const std::string& machine, const std::string& units,
                                    const std::vector<Line>& program) {
        Check(machine, program, units);
        return CheckText();
    });
}

TEST_F(GoldenTest, Draw) {
    ExpectCases("draw.txt",
                [this](const std::string& machine, const std::string&, const std::vector<Line>& program) {
                    Controls().frmDraw.Visible = false;
                    Check(machine, program);
                    Controls().frmDraw.Visible = true;
                    State().ZeroX = State().ZeroY = 1000;
                    State().DrawScale = 1;
                    State().FitNext = false;
                    Draw().Redraw();
                    const std::string path = Path();
                    std::string text;
                    for (const std::string_view stroke : Split(path, "|"))
                        text += "  " + std::string(stroke) + "\n";
                    for (const MessageBox& box : Platform.Dialogs.Shown)
                        text += "  message " + box.Text + "\n";
                    Platform.Dialogs.Shown.clear();
                    Controls().cmdStop.Click();
                    return text + LogText();
                });
}

// The fields of every code that has some, by machine, units and orientation: "first field [feed buttons]: fields with labels and ranges".
TEST_F(GoldenTest, EntryFields) {
    std::string text;
    for (const Setting& setting : AllSettings()) {
        Use(*Workbench, setting);
        text += std::string(setting.Machine) + (setting.Metric ? " mm" : " inch") +
                (setting.Horizontal ? " horizontal" : "") + "\n";
        std::map<std::string, std::string> codesOf;
        for (int number = 0; number < 201; ++number) {
            const std::string code =
                number == 200 ? "M99R" : (number < 100 ? "G" : "M") + Format(number % 100, "00") + " ";
            Platform.Focus.SetFocus(Workbench->Store.lvCncProgram);
            std::string fields;
            for (const GeneratedField& field : FieldsOf(*Workbench, code)) {
                const TextBox& box = Workbench->Entry.Fields()[field.Place].Box;
                fields += ", " + box.Name() + " " + field.Label + " " + box.Tag.Get();
                EXPECT_EQ(box.ToolTip.Get(), Replace(box.Tag, "TO", " = Low, Hi = ")) << code;
            }
            if (fields.empty()) continue;
            const EntryRow& entry = Workbench->Entry;
            EXPECT_EQ(entry.cmdFeedA.Enabled.Get(), entry.cmdFeedB.Enabled.Get());
            const Control* const focused = Platform.Focus.Focused();
            codesOf[(focused ? focused->Name() : "") + (entry.cmdFeedA.Enabled ? " with feed buttons" : "") +
                    fields] += " " + std::string(Trim(code));
        }
        for (const auto& [fields, codes] : codesOf) text += "  first " + fields + ":" + codes + "\n";
    }
    Expect("fields.txt", text);
}

namespace {

// The messages of one parameter over all its values, each from the first value that has it on. What is looked for
// between two of the starting values has one change at most.
std::string RangesOf(const ParameterChecks& checks, CodeKey key, std::int32_t RowValues::*field) {
    const auto at = [&](int value) {
        RowValues values{0, 0, 0, 50, 99};
        values.*field = value;
        return checks.Message(key, values);
    };
    std::string text;
    const int places[] = {-200'000, -50'000, -5'000, -1, 0, 5, 50, 500, 5'000, 50'000, 200'000};
    for (std::size_t i = 0; i + 1 < std::size(places); ++i) {
        int low = places[i], high = places[i + 1];
        const std::string before = at(low), after = at(high);
        if (before == after) continue;
        while (high - low > 1) (at((low + high) / 2) == before ? low : high) = (low + high) / 2;
        text += " " + (before.empty() ? "" : before + " ") + std::to_string(low) + "|" +
                std::to_string(high) + (after.empty() ? "" : " " + after);
    }
    return text;
}

}  // namespace

TEST_F(GoldenTest, Limits) {
    constexpr std::int32_t RowValues::*fields[] = {&RowValues::X, &RowValues::Y, &RowValues::Z, &RowValues::F,
                                                   &RowValues::H};
    std::string text;
    for (const bool widened : {false, true}) {
        for (const Setting& setting : AllSettings()) {
            Use(*Workbench, setting);
            ProgramStore& store = Workbench->Store;
            store.LimitValues.Fill(widened);
            text += std::string(setting.Machine) + (setting.Metric ? " mm" : " inch") +
                    (setting.Horizontal ? " horizontal" : "") + (widened ? " without limits" : "") + "\n";
            const ParameterChecks checks(store, Workbench->Language);
            std::map<std::string, std::string> codesOf;
            for (int number = 0; number < 202; ++number) {
                std::string code = (number < 100 ? " " : "M") + Format(number % 100, "00") + " ";
                if (number >= 200) code = number == 200 ? "M99R" : "M9R ";
                for (std::size_t i = 0; i < std::size(fields); ++i) {
                    const std::string ranges = RangesOf(checks, KeyOf(code), fields[i]);
                    if (!ranges.empty()) codesOf["XYZFH"[i] + ranges] += " " + std::string(Trim(code));
                }
            }
            for (const auto& [ranges, codes] : codesOf) text += "  " + ranges + ":" + codes + "\n";
        }
    }
    Expect("limits.txt", text);
}

}  // namespace kvt::test
