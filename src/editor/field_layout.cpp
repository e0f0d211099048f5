#include "editor/field_layout.h"

#include <algorithm>
#include <initializer_list>
#include <limits>

#include "basic/number.h"
#include "basic/text.h"
#include "editor/field_format.h"
#include "editor/value_range.h"

namespace kvt {

namespace {

// A range that may follow the orientation of the mill.
struct Limits {
    UnitRanges Vertical;
    UnitRanges Horizontal;
    constexpr Limits(UnitRanges always) : Vertical(always), Horizontal(always) {}
    constexpr Limits(UnitRanges vertical, UnitRanges horizontal)
        : Vertical(vertical), Horizontal(horizontal) {}
};

constexpr UnitRanges latheX = EitherSide(limit::LatheX);
constexpr UnitRanges latheZ = EitherSide(limit::LatheZ);
constexpr UnitRanges shortAxis = EitherSide(limit::MillShort);
constexpr UnitRanges longAxis = EitherSide(limit::MillLong);
constexpr UnitRanges shortOffset = UpTo(limit::MillShort);
constexpr UnitRanges longOffset = UpTo(limit::MillLong);
constexpr UnitRanges latheOffsetX = UpTo(limit::LatheX);
constexpr UnitRanges latheOffsetZ = UpTo(limit::LatheZ);
constexpr UnitRanges latheDwell = latheOffsetX;
constexpr UnitRanges tool = UpTo(limit::Feed);
constexpr UnitRanges upTo999 = UpTo(limit::Both(limit::N999));
// What the column holds is the only bound.
constexpr ValueRange everything{std::numeric_limits<std::int32_t>::min(),
                                std::numeric_limits<std::int32_t>::max()};
constexpr UnitRanges unlimited{everything, everything};

// The mill has a short axis and two long ones; the orientation decides whether X or Y is the short one.
constexpr Limits millX{longAxis, shortAxis};
constexpr Limits millY{shortAxis, longAxis};
constexpr Limits millZ{longAxis};

enum FieldIndex { XI, YJ, ZK, FKTL, H };

struct ShownField {
    FieldIndex Field;
    const char* Label;
    Limits Limit;
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
     {{XI, "X", latheX}, {ZK, "Z", latheZ}, {FKTL, "F", FeedRange}},
     true},
    {{"G01 ", "G02 ", "G03 ", "G72 "},
     f1,
     {{XI, "X", millX}, {YJ, "Y", millY}, {ZK, "Z", millZ}, {FKTL, "F", FeedRange}},
     true},
    {{"G26 "}, lathes, {{XI, "X", latheX}, {ZK, "Z", latheZ}, {FKTL, "F", FeedRange}}},
    {{"G26 "}, f1, {{XI, "X", millX}, {YJ, "Y", millY}, {ZK, "Z", millZ}, {FKTL, "F", FeedRange}}},
    {{"G04 "}, lathes, {{XI, "X", latheDwell}}},
    {{"G04 "}, f1, {{XI, "X", UpTo(limit::Both(limit::Plus19999))}}},
    {{"G23 "}, all, {{XI, "X", upTo999}, {ZK, "Z", upTo999}, {FKTL, "T", UpTo(limit::Both(limit::N499))}}},
    {{"G25 ", "G27 "}, all, {{FKTL, "Line", UpTo(limit::Both(limit::N221))}}},
    {{"G33 "}, all, {{ZK, "Z", latheZ}, {FKTL, "K", FeedRange}}},
    {{"G73 ", "G81 ", "G82 ", "G83 ", "G85 ", "G89 "},
     lathes,
     {{ZK, "Z", latheZ}, {FKTL, "F", FeedRange}},
     true},
    // In inch the entry allows this feed what Z has; the check pass holds it to the range of a feed.
    {{"G73 ", "G81 ", "G82 ", "G83 ", "G85 ", "G89 "},
     f1,
     {{ZK, "Z", longAxis}, {FKTL, "F", UnitRanges{longAxis.Inch, FeedRange.Metric}}},
     true},
    {{"G78 "}, mk2, {{XI, "X", latheX}, {ZK, "Z", latheZ}, {FKTL, "K", FeedRange}}},
    {{"G78 "}, withH, {{XI, "X", latheX}, {ZK, "Z", latheZ}, {FKTL, "K", FeedRange}, {H, "H", upTo999}}},
    {{"G84 ", "G88 ", "G86 "}, mk2, {{XI, "X", latheX}, {ZK, "Z", latheZ}, {FKTL, "F", FeedRange}}, true},
    {{"G84 ", "G88 "},
     withH,
     {{XI, "X", latheX}, {ZK, "Z", latheZ}, {FKTL, "F", FeedRange}, {H, "H", upTo999}},
     true},
    {{"G86 "},
     withH,
     {{XI, "X", latheX},
      {ZK, "Z", latheZ},
      {FKTL, "F", FeedRange},
      {H, "H", Between(limit::Both(limit::Ten), limit::Both(limit::N999))}},
     true},
    {{"M06 "}, lathes, {{XI, "X", latheX}, {ZK, "Z", latheZ}, {FKTL, "T", tool}}},
    {{"M06 "}, f1, {{XI, "D", millX}, {YJ, "S", millY}, {ZK, "Z", millZ}, {FKTL, "T", tool}}},
    {{"M26 "}, all, {{H, "H", unlimited}}},
    {{"M98 "}, lathes, {{XI, "X", upTo999}, {ZK, "Z", upTo999}}},
    {{"M98 "}, f1, {{XI, "X", upTo999}, {YJ, "Y", upTo999}, {ZK, "Z", upTo999}}},
    {{"M99 "}, lathes, {{XI, "I", latheOffsetX}, {ZK, "K", latheOffsetZ}}},
    {{"M99 "},
     f1,
     {{XI, "I", {longOffset, shortOffset}}, {YJ, "J", {shortOffset, longOffset}}, {ZK, "K", longOffset}}},
    {{"M99R"}, all, {{XI, "R", latheOffsetX}}},
};

bool Contains(const std::initializer_list<const char*>& codes, std::string_view code) {
    for (const char* one : codes) {
        if (EqualIgnoringCase(code, one)) return true;
    }
    return false;
}

// The first row that holds a code on a machine; null for a code without fields.
const LayoutRow* RowOf(std::string_view code, unsigned machine) {
    for (const LayoutRow& row : layoutTable) {
        if ((row.Machines & machine) != 0 && Contains(row.Codes, code)) return &row;
    }
    return nullptr;
}

// A range without what its column can't hold: numbers with more digits, and a sign that a letter takes the place of.
ValueRange ColumnRange(const ValueRange& range, const ShownField& shown, bool mill) {
    const std::int32_t largest = FieldFormats[shown.Field].Largest(mill);
    const std::int32_t least = HasSignPlace(shown.Label[0]) ? -largest : 0;
    return {std::max(least, range.Low), std::min(largest, range.High)};
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
    // The four-character form.
    if (code.size() == 2) code += ' ';
    const char letter = code.empty() ? '\0' : UpperChar(code[0]);
    if (letter != 'G' && letter != 'M') code.insert(0, entry_.lblGMcode.Caption.Get());
    entry_.cmdFeedA.Enabled = false;
    entry_.cmdFeedB.Enabled = false;
    HideInputFields();
    entry_.txtZK.Enabled = true;
    const unsigned machine = MachineBit();
    auto fields = entry_.Fields();
    if (const LayoutRow* const row = RowOf(code, machine)) {
        for (const ShownField& shown : row->Fields) {
            const EntryRow::Field& field = fields[shown.Field];
            field.Caption.Visible = true;
            field.Box.Visible = true;
            NoteLetter(shown.Field, shown.Label[0]);
        }
        entry_.cmdFeedA.Enabled = row->FeedButtons;
        entry_.cmdFeedB.Enabled = row->FeedButtons;
        // The control of that machine derives the Z of an arc.
        if (machine == mk2 && Contains({"G02 ", "G03 "}, code)) entry_.txtZK.Enabled = false;
    }
    laidOutCode_ = code;
    NameFields();
    UpdateFrameCaption();
    FirstFieldFocus("");
}

void FieldLayout::NameFields() {
    const LayoutRow* const row = RowOf(laidOutCode_, MachineBit());
    if (!row) return;
    auto fields = entry_.Fields();
    for (const ShownField& shown : row->Fields) {
        const EntryRow::Field& field = fields[shown.Field];
        const UnitRanges& ranges = store_.Horizontal ? shown.Limit.Horizontal : shown.Limit.Vertical;
        // A word is one of the language; letters are those of the columns.
        const std::string_view label = shown.Label;
        field.Caption.Caption = label.size() > 1 ? texts_.DialogTexts(text::TargetLine) : label;
        SetRange(field.Box, ColumnRange(ranges.In(store_.Metric), shown, store_.IsF1()), texts_);
    }
}

char FieldLayout::LetterOf(std::size_t field) {
    if (const LayoutRow* const row = RowOf(laidOutCode_, MachineBit())) {
        for (const ShownField& shown : row->Fields) {
            if (static_cast<std::size_t>(shown.Field) == field) return shown.Label[0];
        }
    }
    // One that no code has laid out keeps the letter of the code before.
    const std::string& caption = entry_.Fields()[field].Caption.Caption.Get();
    return caption.empty() ? ' ' : caption[0];
}

void FieldLayout::NoteLetter(std::size_t field, char letter) {
    Held& held = held_[field];
    const std::string& text = entry_.Fields()[field].Box.Text.Get();
    if (text != held.Text) held.From = 0;
    // A line without a feed fills its field too: one that was never shown has the letter of its label.
    if (held.Letter == 0) held.Letter = LetterOf(field);
    const char from = held.From ? held.From : held.Letter;
    held = {letter, from == letter ? '\0' : from, text};
}

char FieldLayout::CarriedFrom(std::size_t field) {
    const Held& held = held_[field];
    const bool says = held.Text == entry_.Fields()[field].Box.Text.Get() && Val(held.Text) != 0;
    return says && !FieldUnchanged(entry_, field) ? held.From : '\0';
}

// A dwell is a time; the outputs and the play of the axes are numbers of the control. Feeds go by minutes.
const char* FieldLayout::UnitOf(std::size_t field) {
    if (Contains({"G04 "}, laidOutCode_)) return "1/100 s";
    const bool isLength = std::string_view("XYZIJKDR").find(LetterOf(field)) != std::string_view::npos;
    if (!isLength || Contains({"G23 ", "M98 "}, laidOutCode_)) return "";
    return store_.Metric ? "1/100 mm" : "1/1000 \"";
}

std::string FieldLayout::Described(const TextBox& box, const ValueRange& range) {
    const auto fields = entry_.Fields();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (&fields[i].Box != &box) continue;
        const std::string unit = UnitOf(i);
        return Filled(
            texts_.EntryTexts(unit.empty() ? EntryText::Range : EntryText::RangeIn),
            {fields[i].Caption.Caption.Get(), PlainNumber(range.Low), PlainNumber(range.High), unit});
    }
    return {};
}

void FieldLayout::RefreshTexts() {
    NameFields();
    UpdateFrameCaption();
}

void FieldLayout::HideInputFields() {
    for (const EntryRow::Field& field : entry_.Fields()) {
        field.Caption.Visible = false;
        field.Box.Visible = false;
        field.Box.Tag = "";
        field.Box.ToolTip = "";
    }
    laidOutCode_.clear();
}

bool FieldLayout::IsLaidOutForCode() const { return EqualIgnoringCase(laidOutCode_, CodeInRow()); }

void FieldLayout::RefreshFeedButtons() {
    const LayoutRow* const row = RowOf(CodeInRow(), MachineBit());
    entry_.cmdFeedA.Enabled = row && row->FeedButtons;
    entry_.cmdFeedB.Enabled = row && row->FeedButtons;
}

void FieldLayout::UpdateFrameCaption() {
    const std::string* const entry = ListEntry();
    entry_.frEntry.Caption = entry ? EntryDescription(*entry) : texts_.EntryCaption;
}

std::string FieldLayout::CodeInRow() const {
    return std::string(Left(entry_.lblGMcode.Caption.Get() + entry_.txtGMcode.Text.Get() + " ", 4));
}

void FieldLayout::FirstFieldFocus(std::string_view initial) {
    // A hidden or frozen comment: the row is not in use.
    if (!entry_.txtComment.EffectivelyVisible() || !entry_.txtComment.EffectivelyEnabled()) return;
    const std::string code = CodeInRow();
    TextBox* target = &entry_.txtComment;
    for (const FirstField& first : firstFields) {
        if (Contains(first.Codes, code)) target = &entry_.Fields()[first.Field].Box;
    }
    target->Visible = true;
    if (!initial.empty() && target != &entry_.txtComment) target->Text = initial;
    if (!KeepFocus) focus_.SetFocus(*target);
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
    entry_.Opened.Close();
    for (const EntryRow::Field& field : entry_.Fields()) field.Box.Text = "";
    held_ = {};
    entry_.txtGMcode.Text = "";
    entry_.txtComment.Text = "";
}

void FieldLayout::EmptyEntryRow() {
    ClearEntryFields();
    UpdateFrameCaption();
}

}  // namespace kvt
