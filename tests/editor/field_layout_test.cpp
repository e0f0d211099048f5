#include "editor/field_layout.h"

#include "basic/text.h"
#include "support/bench_fixture.h"
#include "support/table.h"

namespace kvt::test {

namespace {

// Ranges that several codes share: name, inch, metric.
const char* const ranges[] = {
    "latheX|-1999TO1999|-5999TO5999", "latheZ|-12900TO12900|-32760TO32760", "feed|2TO199|2TO499",
    "short|-3999TO3999|-9999TO9999", "long|-7999TO7999|-19999TO19999", "tool|0TO199|0TO499",
    "radius|0TO1999|0TO5999", "depth|0TO12900|0TO32760", "shortOffset|0TO3999|0TO9999",
    "longOffset|0TO7999|0TO19999", "boringFeed|0TO999|2TO499",
    // Y has four digits, also where the axis is the long one.
    "longY|-7999TO7999|-9999TO9999", "longOffsetY|0TO7999|0TO9999"};

// Codes|machines|first field|feed buttons|what is shown: field, label and range of each. The machines are 2 (MK2),
// 4 (MK4), V and H (F1 in its two orientations); a range is a name from above, or the same in both units.
const char* const table[] = {
    "G00 G92|24|txtXI||XI X latheX, ZK Z latheZ",
    "G00 G92|V|txtXI||XI X long, YJ Y short, ZK Z long",
    "G00 G92|H|txtXI||XI X short, YJ Y longY, ZK Z long",
    "G01 G02 G03 G72|24|txtXI|feed|XI X latheX, ZK Z latheZ, FKTL F feed",
    "G01 G02 G03 G72|V|txtXI|feed|XI X long, YJ Y short, ZK Z long, FKTL F feed",
    "G01 G02 G03 G72|H|txtXI|feed|XI X short, YJ Y longY, ZK Z long, FKTL F feed",
    "G26|24|txtXI||XI X latheX, ZK Z latheZ, FKTL F feed",
    "G26|V|txtXI||XI X long, YJ Y short, ZK Z long, FKTL F feed",
    "G26|H|txtXI||XI X short, YJ Y longY, ZK Z long, FKTL F feed",
    "G04|24|txtXI||XI X radius",
    "G04|VH|txtXI||XI X 0TO19999",
    "G23|24VH|txtXI||XI X 0TO999, ZK Z 0TO999, FKTL T 0TO499",
    "G25 G27|24VH|txtFKTL||FKTL Line 0TO221",
    "G33|24VH|txtZK||ZK Z latheZ, FKTL K feed",
    "G73 G81 G82 G83 G85 G89|24|txtZK|feed|ZK Z latheZ, FKTL F feed",
    "G73 G81 G82 G83 G85 G89|VH|txtZK|feed|ZK Z long, FKTL F boringFeed",
    "G78|2|txtXI||XI X latheX, ZK Z latheZ, FKTL K feed",
    "G78|4VH|txtXI||XI X latheX, ZK Z latheZ, FKTL K feed, H H 0TO999",
    "G84 G86 G88|2|txtXI|feed|XI X latheX, ZK Z latheZ, FKTL F feed",
    "G84 G88|4VH|txtXI|feed|XI X latheX, ZK Z latheZ, FKTL F feed, H H 0TO999",
    "G86|4VH|txtXI|feed|XI X latheX, ZK Z latheZ, FKTL F feed, H H 10TO999",
    "M06|24|txtXI||XI X latheX, ZK Z latheZ, FKTL T tool",
    "M06|V|txtXI||XI D longOffset, YJ S shortOffset, ZK Z long, FKTL T tool",
    "M06|H|txtXI||XI D shortOffset, YJ S longOffsetY, ZK Z long, FKTL T tool",
    "M26|24|txtH||H H 0TO999",
    "M26|VH|txtH||H H 0TO9999",
    "M98|24|txtXI||XI X 0TO999, ZK Z 0TO999",
    "M98|VH|txtXI||XI X 0TO999, YJ Y 0TO999, ZK Z 0TO999",
    "M99|24|txtXI||XI I radius, ZK K depth",
    "M99|V|txtXI||XI I longOffset, YJ J shortOffset, ZK K longOffset",
    "M99|H|txtXI||XI I shortOffset, YJ J longOffsetY, ZK K longOffset",
    "M99R|24VH|txtXI||XI R radius",
    "G20 G21 G22 G24 G40 G45 G48 G74 G90 G91 G94 G95 M00 M01 M03 M17 M30|24VH|txtComment||",
};

class FieldLayoutTest : public BenchTest {
protected:
    // Puts a code into the row as the keyboard does, and lays its fields out.
    std::string Enter(std::string_view mode, std::string_view digits) {
        Bench->Entry.lblGMcode.Caption = mode;
        Bench->Entry.txtGMcode.Text = digits;
        std::string code(digits);
        Bench->Layout.InputFields(code);
        return code;
    }
    void Use(char machine, bool metric) {
        Bench->Store.Machine = machine == '2'   ? MachineModel::MK2
                               : machine == '4' ? MachineModel::MK4
                                                : MachineModel::F1;
        // The orientation is the mill's alone: MK4 stands for a lathe after a horizontal mill.
        Bench->Store.Horizontal = machine == 'H' || machine == '4';
        Bench->Store.Metric = metric;
    }
    // The visible fields with labels and ranges.
    std::string Shown() {
        static const char* const names[] = {"XI", "YJ", "ZK", "FKTL", "H"};
        std::string shown;
        const auto fields = Bench->Entry.Fields();
        for (std::size_t i = 0; i < fields.size(); ++i) {
            const auto& [label, box] = fields[i];
            EXPECT_EQ(label.Visible, box.Visible) << names[i];
            EXPECT_EQ(box.ToolTip.Get(), Replace(box.Tag, "TO", " = Low, Hi = ")) << names[i];
            if (!box.Visible) {
                EXPECT_EQ(box.Tag.Get(), "") << names[i];
                continue;
            }
            if (!shown.empty()) shown += ", ";
            shown += std::string(names[i]) + " " + label.Caption.Get() + " " + box.Tag.Get();
        }
        return shown;
    }
    // The table's ranges by name, in one of the units.
    static std::string Resolved(std::string_view fields, bool metric) {
        std::string resolved;
        for (const std::string_view field : Split(fields, ", ")) {
            const std::size_t at = field.rfind(' ') + 1;
            std::string range(field.substr(at));
            for (const char* named : ranges) {
                if (range == Fields(named)[0]) range = Fields(named)[metric ? 2 : 1];
            }
            resolved += (resolved.empty() ? "" : ", ") + std::string(field.substr(0, at)) + range;
        }
        return resolved;
    }
    std::string Focused() { return Platform.Focus.Focused() ? Platform.Focus.Focused()->Name() : ""; }
};

}  // namespace

TEST_F(FieldLayoutTest, EveryCodeOnEveryMachineInBothUnits) {
    for (const char* line : table) {
        const auto row = Fields(line);
        for (const std::string_view code : Split(row[0], " ")) {
            for (const char machine : row[1]) {
                for (const bool metric : {true, false}) {
                    SCOPED_TRACE(std::string(code) + " " + machine + (metric ? " metric" : " inch"));
                    Use(machine, metric);
                    Platform.Focus.SetFocus(Bench->Store.lvCncProgram);
                    Enter(code.substr(0, 1), code.substr(1));
                    EXPECT_EQ(Shown(), Resolved(row[4], metric));
                    EXPECT_EQ(Focused(), row[2]);
                    EXPECT_EQ(Bench->Entry.cmdFeedA.Enabled, row[3] == "feed");
                    EXPECT_EQ(Bench->Entry.cmdFeedB.Enabled, row[3] == "feed");
                    EXPECT_EQ(Bench->Entry.txtZK.Enabled, machine != '2' || (code != "G02" && code != "G03"));
                }
            }
        }
    }
}

TEST_F(FieldLayoutTest, ACodeIsBroughtIntoItsFourCharacters) {
    EXPECT_EQ(Enter("G", "01"), "G01 ");
    EXPECT_EQ(Enter("M", "99R"), "M99R");
    EXPECT_EQ(Shown(), "XI R 0TO5999");
    EXPECT_EQ(Enter("M", "01"), "M01 ");
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(Enter("G", "m06 "), "m06 ");
    EXPECT_EQ(Shown(), "XI X -5999TO5999, ZK Z -32760TO32760, FKTL T 0TO499");
    // Only two digits get the blank.
    EXPECT_EQ(Enter("G", "G01"), "G01");
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(Enter("G", "1"), "G1");
    EXPECT_EQ(Enter("G", ""), "G");
    EXPECT_EQ(Shown(), "");
    Bench->Store.Machine = MachineModel::MK2;
    EXPECT_EQ(Enter("G", "g02 "), "g02 ");
    EXPECT_FALSE(Bench->Entry.txtZK.Enabled);
}

TEST_F(FieldLayoutTest, TheFirstFieldTakesTheInitialText) {
    EntryRow& entry = Bench->Entry;
    Enter("G", "25");
    Bench->Layout.FirstFieldFocus("7");
    EXPECT_EQ(entry.txtFKTL.Text, "7");
    entry.txtComment.Text = "mine";
    Enter("G", "90");
    Bench->Layout.FirstFieldFocus("7");
    EXPECT_EQ(Focused(), "txtComment");
    EXPECT_EQ(entry.txtComment.Text, "mine");
    // The target becomes visible, whatever the layout shows.
    entry.txtGMcode.Text = "81";
    Bench->Layout.FirstFieldFocus("");
    EXPECT_TRUE(entry.txtZK.Visible);
    EXPECT_EQ(Focused(), "txtZK");

    for (Property<bool>* off : {&entry.txtComment.Visible, &entry.txtComment.Enabled}) {
        Platform.Focus.SetFocus(entry.txtGMcode);
        Bench->Layout.HideInputFields();
        *off = false;
        Bench->Layout.FirstFieldFocus("9");
        EXPECT_FALSE(entry.txtZK.Visible);
        EXPECT_NE(entry.txtZK.Text, "9");
        EXPECT_NE(Focused(), "txtZK");
        *off = true;
    }
}

TEST_F(FieldLayoutTest, TheDescriptionComesFromTheListOfTheMachineAndMode) {
    for (const char* line :
         {"MK2|G|24|@  Radius Mode (ABS mode only)", "MK2|M|01|old", "MK2|M|30|old",
          "MK4|G|91|@  Incremental (radius) Mode", "MK4|M|06|@  Tool Change and Compensation", "MK4|M|20|old",
          "MK4|M|99R|@  Partial Arc Radius", "MK4|M|99r|@  Partial Arc Radius",
          "MK4|M|99|@  Partial Arc Center", "F1|M|06|@  Tool Change and Radius",
          "F1|G|92|@  Set XYZ Register (ABS)", "F1|G|84|old", "f1|M|20|@  Switch output X62 PIN 7 HIGH",
          "MK4|G||old"}) {
        const auto one = Fields(line);
        Bench->Store.Machine = MachineNamed(one[0]).value();
        Bench->Entry.lblGMcode.Caption = one[1];
        Bench->Entry.txtGMcode.Text = one[2];
        Bench->Entry.txtComment.Text = "old";
        Bench->Layout.CodeDescription();
        EXPECT_EQ(Bench->Entry.txtComment.Text.Get(), one[3]) << line;
    }
    // A translated entry.
    Bench->Lists.lstF1Gcodes.SetEntry(1, "G01 \t Gerade\tbahn ");
    Bench->Entry.lblGMcode.Caption = "G";
    Bench->Entry.txtGMcode.Text = "01";
    Bench->Store.Machine = MachineModel::F1;
    Bench->Layout.CodeDescription();
    EXPECT_EQ(Trim(Bench->Entry.txtComment.Text.Get().substr(3)), "Geradebahn");
}

}  // namespace kvt::test
