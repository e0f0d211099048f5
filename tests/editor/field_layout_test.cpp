#include "editor/field_layout.h"

#include "basic/text.h"
#include "support/bench_fixture.h"

namespace kvt::test {

namespace {

// A machine as the layout sees it; the mill has two orientations.
struct Bed {
    const char *Name, *Machine;
    bool Horizontal;
};
constexpr Bed mk2{"MK2", "MK2", false}, mk4{"MK4", "MK4", false}, vertical{"F1 vertical", "F1", false},
    horizontal{"F1 horizontal", "F1", true};
// The orientation is the mill's alone.
constexpr Bed lathes[] = {mk2, mk4, {"MK4 after a mill", "MK4", true}};

// Ranges that several codes share.
struct Named {
    const char *Name, *Inch, *Metric;
};
constexpr Named ranges[] = {{"latheX", "-1999TO1999", "-5999TO5999"},
                            {"latheZ", "-12900TO12900", "-32760TO32760"},
                            {"feed", "2TO199", "2TO499"},
                            {"short", "-3999TO3999", "-9999TO9999"},
                            {"long", "-7999TO7999", "-19999TO19999"},
                            {"tool", "0TO199", "0TO499"},
                            {"radius", "0TO1999", "0TO5999"}};

// What a code shows: label and range of each field in "XI X range, ...". A range is a name from above, or a
// text for both units, or "inch|metric"; "none" for no range.
struct Expected {
    std::vector<const char*> Codes;
    std::vector<Bed> Beds;
    const char* Fields;
    const char* First;
    bool FeedButtons = false;
};

const std::vector<Bed> everyLathe(std::begin(lathes), std::end(lathes));
const std::vector<Bed> everyBed = {mk2, mk4, vertical, horizontal};
const std::vector<Bed> withH = {mk4, vertical, horizontal};
const std::vector<Bed> mill = {vertical, horizontal};

const Expected table[] = {
    {{"G00", "G92"}, everyLathe, "XI X latheX, ZK Z latheZ", "txtXI"},
    {{"G00", "G92"}, {vertical}, "XI X long, YJ Y short, ZK Z long", "txtXI"},
    {{"G00", "G92"}, {horizontal}, "XI X short, YJ Y long, ZK Z long", "txtXI"},
    {{"G01", "G02", "G03"}, everyLathe, "XI X latheX, ZK Z latheZ, FKTL F feed", "txtXI", true},
    {{"G72"}, everyLathe, "XI X latheX, ZK Z latheZ, FKTL F feed", "txtXI", true},
    {{"G01", "G02", "G03", "G72"},
     {vertical},
     "XI X long, YJ Y short, ZK Z long, FKTL F feed",
     "txtXI",
     true},
    {{"G01", "G02", "G03", "G72"},
     {horizontal},
     "XI X short, YJ Y long, ZK Z long, FKTL F feed",
     "txtXI",
     true},
    {{"G26"}, everyLathe, "XI X latheX, ZK Z latheZ, FKTL F feed", "txtXI"},
    {{"G26"}, {vertical}, "XI X long, YJ Y short, ZK Z long, FKTL F feed", "txtXI"},
    {{"G26"}, {horizontal}, "XI X short, YJ Y long, ZK Z long, FKTL F feed", "txtXI"},
    {{"G04"}, everyLathe, "XI X radius", "txtXI"},
    {{"G04"}, mill, "XI X 0TO19999", "txtXI"},
    {{"G23"}, everyBed, "XI X 0TO999, ZK Z 0TO999, FKTL T 0TO499", "txtXI"},
    {{"G25", "G27"}, everyBed, "FKTL Line 0TO221", "txtFKTL"},
    {{"G33"}, everyBed, "ZK Z latheZ, FKTL K feed", "txtZK"},
    {{"G73", "G81", "G82", "G83", "G85", "G89"}, everyLathe, "ZK Z latheZ, FKTL F feed", "txtZK", true},
    {{"G73", "G81", "G82", "G83", "G85", "G89"}, mill, "ZK Z long, FKTL F -7999TO7999|2TO499", "txtZK", true},
    {{"G78"}, {mk2}, "XI X latheX, ZK Z latheZ, FKTL K feed", "txtXI"},
    {{"G78"}, withH, "XI X latheX, ZK Z latheZ, FKTL K feed, H H 0TO999", "txtXI"},
    {{"G84", "G86", "G88"}, {mk2}, "XI X latheX, ZK Z latheZ, FKTL F feed", "txtXI", true},
    {{"G84", "G88"}, withH, "XI X latheX, ZK Z latheZ, FKTL F feed, H H 0TO999", "txtXI", true},
    {{"G86"}, withH, "XI X latheX, ZK Z latheZ, FKTL F feed, H H 10TO999", "txtXI", true},
    {{"M06"}, everyLathe, "XI X latheX, ZK Z latheZ, FKTL T tool", "txtXI"},
    {{"M06"}, {vertical}, "XI D long, YJ S short, ZK Z long, FKTL T tool", "txtXI"},
    {{"M06"}, {horizontal}, "XI D short, YJ S long, ZK Z long, FKTL T tool", "txtXI"},
    {{"M26"}, everyBed, "H H none", "txtH"},
    {{"M98"}, everyLathe, "XI X 0TO999, ZK Z 0TO999", "txtXI"},
    {{"M98"}, mill, "XI X 0TO999, YJ Y 0TO999, ZK Z 0TO999", "txtXI"},
    {{"M99"}, everyLathe, "XI I radius, ZK K 0TO12900|0TO32760", "txtXI"},
    {{"M99"}, {vertical}, "XI I 0TO7999|0TO19999, YJ J 0TO3999|0TO9999, ZK K 0TO7999|0TO19999", "txtXI"},
    {{"M99"}, {horizontal}, "XI I 0TO3999|0TO9999, YJ J 0TO7999|0TO19999, ZK K 0TO7999|0TO19999", "txtXI"},
    {{"M99R"}, everyBed, "XI R radius", "txtXI"},
    {{"G20", "G21", "G22", "G24", "G40", "G45", "G48", "G74", "G90", "G91", "G94", "G95", "M00", "M01", "M03",
      "M17", "M30"},
     everyBed,
     "",
     "txtComment"},
};

class FieldLayoutTest : public BenchTest {
protected:
    // Puts a code into the row as the keyboard does, and lays its fields out.
    std::string Enter(const std::string& mode, const std::string& digits) {
        Bench->Entry.lblGMcode.Caption = mode;
        Bench->Entry.txtGMcode.Text = digits;
        std::string code = digits;
        Bench->Layout.InputFields(code);
        return code;
    }
    void Use(const Bed& bed, bool metric) {
        Bench->Store.Machine = bed.Machine;
        Bench->Store.Horizontal = bed.Horizontal;
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
            shown += std::string(names[i]) + " " + label.Caption.Get() + " " +
                     (box.Tag.Empty() ? "none" : box.Tag.Get());
        }
        return shown;
    }
    static std::string Resolved(std::string fields, bool metric) {
        for (const Named& range : ranges) {
            fields = Replace(fields, std::string(" ") + range.Name,
                             std::string(" ") + (metric ? range.Metric : range.Inch));
        }
        std::string resolved;
        for (const std::string_view field : Split(fields, ", ")) {
            const std::size_t bar = field.find('|');
            if (!resolved.empty()) resolved += ", ";
            if (bar == std::string_view::npos) {
                resolved += field;
            } else {
                resolved += metric ? std::string(field.substr(0, field.rfind(' ') + 1)) +
                                         std::string(field.substr(bar + 1))
                                   : std::string(field.substr(0, bar));
            }
        }
        return resolved;
    }
    std::string Focused() { return Platform.Focus.Focused() ? Platform.Focus.Focused()->Name() : ""; }
};

}  // namespace

TEST_F(FieldLayoutTest, EveryCodeOnEveryMachineInBothUnits) {
    int cases = 0;
    for (const Expected& row : table) {
        for (const char* code : row.Codes) {
            for (const Bed& bed : row.Beds) {
                for (const bool metric : {true, false}) {
                    SCOPED_TRACE(std::string(code) + " " + bed.Name + (metric ? " metric" : " inch"));
                    Use(bed, metric);
                    Platform.Focus.SetFocus(Bench->Store.lvCncProgram);
                    Enter(std::string(1, code[0]), code + 1);
                    EXPECT_EQ(Shown(), Resolved(row.Fields, metric));
                    EXPECT_EQ(Focused(), row.First);
                    EXPECT_EQ(Bench->Entry.cmdFeedA.Enabled, row.FeedButtons);
                    EXPECT_EQ(Bench->Entry.cmdFeedB.Enabled, row.FeedButtons);
                    const std::string text = code;
                    const bool derived =
                        std::string_view(bed.Machine) == "MK2" && (text == "G02" || text == "G03");
                    EXPECT_EQ(Bench->Entry.txtZK.Enabled, !derived);
                    ++cases;
                }
            }
        }
    }
    EXPECT_GT(cases, 400);
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
    Bench->Store.Machine = "mk2";
    EXPECT_EQ(Enter("G", "g02 "), "g02 ");
    EXPECT_FALSE(Bench->Entry.txtZK.Enabled);
}

TEST_F(FieldLayoutTest, TextsStayAndUnitsWaitForTheNextCode) {
    EntryRow& entry = Bench->Entry;
    EXPECT_EQ(entry.lblFKTL.Caption, "F");
    entry.txtXI.Text = "12";
    entry.txtH.Text = "34";
    entry.txtComment.Text = "mine";
    Enter("G", "00");
    EXPECT_EQ(entry.txtXI.Text, "12");
    EXPECT_EQ(entry.txtH.Text, "34");
    EXPECT_EQ(entry.txtComment.Text, "mine");
    Bench->Machine.SetUnits("Imperial");
    EXPECT_EQ(entry.txtXI.Tag, "-5999TO5999");
    EXPECT_EQ(entry.txtXI.ToolTip, "-5999 = Low, Hi = 5999");
    Enter("G", "01");
    EXPECT_EQ(entry.txtXI.ToolTip, "-1999 = Low, Hi = 1999");
    // The disabled limits do not show.
    Bench->Store.DisableLimitsCheck = true;
    Enter("G", "01");
    EXPECT_EQ(entry.txtXI.Tag, "-1999TO1999");
    Bench->Layout.HideInputFields();
    EXPECT_EQ(Shown(), "");
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
    struct Case {
        const char *Machine, *Mode, *Code, *Comment;
    };
    const Case cases[] = {{"MK2", "G", "24", "@  Radius Mode (ABS mode only)"},
                          {"MK2", "M", "01", "old"},
                          {"MK2", "M", "30", "old"},
                          {"MK4", "G", "91", "@  Incremental (radius) Mode"},
                          {"MK4", "M", "06", "@  Tool Change and Compensation"},
                          {"MK4", "M", "20", "old"},
                          {"MK4", "M", "99R", "@  Partial Arc Radius"},
                          {"MK4", "M", "99r", "@  Partial Arc Radius"},
                          {"MK4", "M", "99", "@  Partial Arc Center"},
                          {"F1", "M", "06", "@  Tool Change and Radius"},
                          {"F1", "G", "92", "@  Set XYZ Register (ABS)"},
                          {"F1", "G", "84", "old"},
                          {"f1", "M", "20", "@  Switch output X62 PIN 7 HIGH"},
                          {"MK4", "G", "", "old"}};
    for (const Case& one : cases) {
        Bench->Store.Machine = one.Machine;
        Bench->Entry.lblGMcode.Caption = one.Mode;
        Bench->Entry.txtGMcode.Text = one.Code;
        Bench->Entry.txtComment.Text = "old";
        Bench->Layout.CodeDescription();
        EXPECT_EQ(Bench->Entry.txtComment.Text.Get(), one.Comment)
            << one.Machine << " " << one.Mode << one.Code;
    }
    // A translated entry.
    Bench->Lists.lstF1Gcodes.SetEntry(1, "G01 \t Gerade\tbahn ");
    Bench->Entry.lblGMcode.Caption = "G";
    Bench->Entry.txtGMcode.Text = "01";
    Bench->Store.Machine = "F1";
    Bench->Layout.CodeDescription();
    EXPECT_EQ(Trim(Bench->Entry.txtComment.Text.Get().substr(3)), "Geradebahn");
}

}  // namespace kvt::test
