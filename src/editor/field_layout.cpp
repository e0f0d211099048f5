#include "editor/field_layout.h"

#include <algorithm>
#include <initializer_list>

#include "basic/number.h"
#include "basic/text.h"
#include "editor/field_format.h"

namespace kvt {

namespace {

// One range in both units, as the limit strings hold it.
struct Range {
    const char* Inch;
    const char* Metric;
};

constexpr Range Both(const char* range) { return {range, range}; }

// A range that may follow the orientation of the mill.
struct Limits {
    Range Vertical;
    Range Horizontal;
    constexpr Limits(Range always) : Vertical(always), Horizontal(always) {}
    constexpr Limits(Range vertical, Range horizontal) : Vertical(vertical), Horizontal(horizontal) {}
};

constexpr Range latheX{"-1999TO1999", "-5999TO5999"};
constexpr Range latheZ{"-12900TO12900", "-32760TO32760"};
constexpr Range feed{"2TO199", "2TO499"};
constexpr Range shortAxis{"-3999TO3999", "-9999TO9999"};
constexpr Range longAxis{"-7999TO7999", "-19999TO19999"};
constexpr Range shortOffset{"0TO3999", "0TO9999"};
constexpr Range longOffset{"0TO7999", "0TO19999"};
constexpr Range upTo999 = Both("0TO999");
constexpr Range unlimited = Both("");

// The mill has a short axis and two long ones; the orientation decides whether X or Y is the short one.
constexpr Limits millX{longAxis, shortAxis};
constexpr Limits millY{shortAxis, longAxis};
constexpr Limits millZ{longAxis};

enum FieldIndex { XI, YJ, ZK, FKTL, H };

struct ShownField {
    FieldIndex Field;
    const char* Label;
    Limits Range;
};

constexpr unsigned mk2 = 1, mk4 = 2, f1 = 4, lathes = mk2 | mk4, withH = mk4 | f1, all = lathes | f1;

struct LayoutRow {
    std::initializer_list<const char*> Codes;
    unsigned Machines;
    std::initializer_list<ShownField> Fields;
    bool FeedButtons = false;
};

const LayoutRow layoutTable[] = {
    {{"G00 ", "G92 "}, lathes, {{XI, "X", latheX}, {ZK, "Z", latheZ}}},
    {{"G00 ", "G92 "}, f1, {{XI, "X", millX}, {YJ, "Y", millY}, {ZK, "Z", millZ}}},
    {{"G01 ", "G02 ", "G03 ", "G72 "},
     lathes,
     {{XI, "X", latheX}, {ZK, "Z", latheZ}, {FKTL, "F", feed}},
     true},
    {{"G01 ", "G02 ", "G03 ", "G72 "},
     f1,
     {{XI, "X", millX}, {YJ, "Y", millY}, {ZK, "Z", millZ}, {FKTL, "F", feed}},
     true},
    {{"G26 "}, lathes, {{XI, "X", latheX}, {ZK, "Z", latheZ}, {FKTL, "F", feed}}},
    {{"G26 "}, f1, {{XI, "X", millX}, {YJ, "Y", millY}, {ZK, "Z", millZ}, {FKTL, "F", feed}}},
    {{"G04 "}, lathes, {{XI, "X", Range{"0TO1999", "0TO5999"}}}},
    {{"G04 "}, f1, {{XI, "X", Both("0TO19999")}}},
    {{"G23 "}, all, {{XI, "X", upTo999}, {ZK, "Z", upTo999}, {FKTL, "T", Both("0TO499")}}},
    {{"G25 ", "G27 "}, all, {{FKTL, "Line", Both("0TO221")}}},
    {{"G33 "}, all, {{ZK, "Z", latheZ}, {FKTL, "K", feed}}},
    {{"G73 ", "G81 ", "G82 ", "G83 ", "G85 ", "G89 "}, lathes, {{ZK, "Z", latheZ}, {FKTL, "F", feed}}, true},
    // The inch range of this feed is deliberate.
    {{"G73 ", "G81 ", "G82 ", "G83 ", "G85 ", "G89 "},
     f1,
     {{ZK, "Z", longAxis}, {FKTL, "F", Range{"-7999TO7999", "2TO499"}}},
     true},
    {{"G78 "}, mk2, {{XI, "X", latheX}, {ZK, "Z", latheZ}, {FKTL, "K", feed}}},
    {{"G78 "}, withH, {{XI, "X", latheX}, {ZK, "Z", latheZ}, {FKTL, "K", feed}, {H, "H", upTo999}}},
    {{"G84 ", "G88 ", "G86 "}, mk2, {{XI, "X", latheX}, {ZK, "Z", latheZ}, {FKTL, "F", feed}}, true},
    {{"G84 ", "G88 "},
     withH,
     {{XI, "X", latheX}, {ZK, "Z", latheZ}, {FKTL, "F", feed}, {H, "H", upTo999}},
     true},
    {{"G86 "},
     withH,
     {{XI, "X", latheX}, {ZK, "Z", latheZ}, {FKTL, "F", feed}, {H, "H", Both("10TO999")}},
     true},
    {{"M06 "}, lathes, {{XI, "X", latheX}, {ZK, "Z", latheZ}, {FKTL, "T", Range{"0TO199", "0TO499"}}}},
    {{"M06 "},
     f1,
     {{XI, "D", millX}, {YJ, "S", millY}, {ZK, "Z", millZ}, {FKTL, "T", Range{"0TO199", "0TO499"}}}},
    {{"M26 "}, all, {{H, "H", unlimited}}},
    {{"M98 "}, lathes, {{XI, "X", upTo999}, {ZK, "Z", upTo999}}},
    {{"M98 "}, f1, {{XI, "X", upTo999}, {YJ, "Y", upTo999}, {ZK, "Z", upTo999}}},
    {{"M99 "}, lathes, {{XI, "I", Range{"0TO1999", "0TO5999"}}, {ZK, "K", Range{"0TO12900", "0TO32760"}}}},
    {{"M99 "},
     f1,
     {{XI, "I", {longOffset, shortOffset}}, {YJ, "J", {shortOffset, longOffset}}, {ZK, "K", longOffset}}},
    {{"M99R"}, all, {{XI, "R", Range{"0TO1999", "0TO5999"}}}},
};

bool Holds(const std::initializer_list<const char*>& codes, std::string_view code) {
    for (const char* one : codes) {
        if (EqualIgnoringCase(code, one)) return true;
    }
    return false;
}

// The first row that holds a code on a machine; null for a code without fields.
const LayoutRow* RowOf(std::string_view code, unsigned machine) {
    for (const LayoutRow& row : layoutTable) {
        if ((row.Machines & machine) != 0 && Holds(row.Codes, code)) return &row;
    }
    return nullptr;
}

// A range without what its column can't hold: numbers with more digits, and a sign that a letter takes the place of.
std::string HeldRange(std::string_view range, const ShownField& shown, bool mill) {
    const std::int32_t largest = FieldFormats[shown.Field].Largest(mill);
    std::int32_t low = KeepsSign(shown.Label) ? -largest : 0;
    std::int32_t high = largest;
    const std::vector<std::string_view> bounds = Split(range, "TO");
    if (bounds.size() == 2) {
        low = std::max(low, ToLong(Val(bounds[0])));
        high = std::min(high, ToLong(Val(bounds[1])));
    }
    return PlainNumber(low) + "TO" + PlainNumber(high);
}

// The first field of a code; codes that are not here begin with the comment.
struct FirstField {
    FieldIndex Field;
    std::initializer_list<const char*> Codes;
};

const FirstField firstFields[] = {
    {XI,
     {"G00 ", "G01 ", "G02 ", "G03 ", "G04 ", "G23 ", "G26 ", "G72 ", "G78 ", "G84 ", "G86 ", "G88 ", "G92 ",
      "M06 ", "M98 ", "M99 ", "M99R"}},
    {FKTL, {"G25 ", "G27 "}},
    {ZK, {"G33 ", "G73 ", "G81 ", "G82 ", "G83 ", "G85 ", "G89 "}},
    {H, {"M26 "}},
};

}  // namespace

FieldLayout::FieldLayout(EntryRow& entry, const ProgramStore& store, const CodeLists& lists,
                         const Texts& texts, FocusService& focus)
    : entry_(entry), store_(store), lists_(lists), texts_(texts), focus_(focus) {}

unsigned FieldLayout::MachineBit() const { return store_.IsMK2() ? mk2 : store_.IsMK4() ? mk4 : f1; }

void FieldLayout::InputFields(std::string& code) {
    // 1., 2. The four-character form.
    if (code.size() == 2) code += ' ';
    const char letter = code.empty() ? '\0' : UpperChar(code[0]);
    if (letter != 'G' && letter != 'M') code.insert(0, entry_.lblGMcode.Caption.Get());
    // 3., 4., 5.
    entry_.cmdFeedA.Enabled = false;
    entry_.cmdFeedB.Enabled = false;
    HideInputFields();
    entry_.txtZK.Enabled = true;
    // 6. The first row of the table that holds the code.
    const unsigned machine = MachineBit();
    auto fields = entry_.Fields();
    if (const LayoutRow* const row = RowOf(code, machine)) {
        for (const ShownField& shown : row->Fields) {
            const EntryRow::Field& field = fields[shown.Field];
            const Range& range = store_.Horizontal ? shown.Range.Horizontal : shown.Range.Vertical;
            field.Caption.Caption = shown.Label;
            field.Caption.Visible = true;
            field.Box.Visible = true;
            field.Box.Tag = HeldRange(store_.Metric ? range.Metric : range.Inch, shown, machine == f1);
        }
        entry_.cmdFeedA.Enabled = row->FeedButtons;
        entry_.cmdFeedB.Enabled = row->FeedButtons;
        // The control of that machine derives the Z of an arc.
        if (machine == mk2 && Holds({"G02 ", "G03 "}, code)) entry_.txtZK.Enabled = false;
    }
    laidOut_ = code;
    NameCode();
    // 7.
    FirstFieldFocus("");
    // 8.
    for (const EntryRow::Field& field : fields) {
        if (!field.Box.Tag.Empty()) field.Box.ToolTip = Replace(field.Box.Tag, "TO", " = Low, Hi = ");
    }
}

void FieldLayout::HideInputFields() {
    for (const EntryRow::Field& field : entry_.Fields()) {
        field.Caption.Visible = false;
        field.Box.Visible = false;
        field.Box.Tag = "";
        field.Box.ToolTip = "";
    }
    laidOut_.clear();
}

bool FieldLayout::FitsCode() const { return EqualIgnoringCase(laidOut_, CodeInRow()); }

void FieldLayout::RefreshFeedButtons() {
    const LayoutRow* const row = RowOf(CodeInRow(), MachineBit());
    entry_.cmdFeedA.Enabled = row && row->FeedButtons;
    entry_.cmdFeedB.Enabled = row && row->FeedButtons;
}

void FieldLayout::NameCode() {
    const std::string* const entry = ListEntry();
    entry_.frEntry.Caption = entry ? EntryDescription(*entry) : texts_.EntryCaption;
}

std::string FieldLayout::CodeInRow() const {
    return std::string(Left(entry_.lblGMcode.Caption.Get() + entry_.txtGMcode.Text.Get() + " ", 4));
}

void FieldLayout::FirstFieldFocus(std::string_view initial) {
    // 1.
    const std::string code = CodeInRow();
    // 2.
    if (!entry_.txtComment.ReallyVisible() || !entry_.txtComment.ReallyEnabled()) return;
    // 3.
    TextBox* target = &entry_.txtComment;
    for (const FirstField& first : firstFields) {
        if (Holds(first.Codes, code)) target = &entry_.Fields()[first.Field].Box;
    }
    // 4.
    target->Visible = true;
    if (!initial.empty() && target != &entry_.txtComment) target->Text = initial;
    if (!FocusStays) focus_.SetFocus(*target);
}

void FieldLayout::CodeDescription() {
    if (const std::string* const entry = ListEntry())
        entry_.txtComment.Text = "@  " + EntryDescription(*entry);
}

const std::string* FieldLayout::ListEntry() const {
    if (entry_.txtGMcode.Text.Empty()) return nullptr;
    const bool mCode = entry_.lblGMcode.Caption == "M";
    const ListBox& codes = store_.IsMK2()   ? lists_.lstMK2Gcodes
                           : store_.IsMK4() ? (mCode ? lists_.lstMK4Mcodes : lists_.lstMK4Gcodes)
                                            : (mCode ? lists_.lstF1Mcodes : lists_.lstF1Gcodes);
    const std::string wanted = entry_.lblGMcode.Caption.Get() + entry_.txtGMcode.Text.Get();
    for (const std::string& entry : codes.Entries()) {
        if (EqualIgnoringCase(Trim(Left(entry, 4)), wanted)) return &entry;
    }
    return nullptr;
}

void FieldLayout::ClearEntryFields() {
    HideInputFields();
    entry_.Opened.Forget();
    for (const EntryRow::Field& field : entry_.Fields()) field.Box.Text = "";
    entry_.txtGMcode.Text = "";
    entry_.txtComment.Text = "";
}

}  // namespace kvt
