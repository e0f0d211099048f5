#include "editor/keyboard_entry.h"

#include <algorithm>
#include <utility>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "editor/feed_presets.h"
#include "platform/clicks.h"
#include "platform/keys.h"
#include "platform/text_editing.h"
#include "program/code_key.h"

namespace kvt {

namespace {

constexpr const char* codeCheckName = "txtGMcode_LostFocus";
constexpr const char* automaticZName = "txtZK_GotFocus";
constexpr std::size_t codeField = 0;
constexpr std::size_t firstParameter = 1;
// Places of Z and of the feed among the parameter fields.
constexpr std::size_t zField = 2, feedField = 3;

// Default of an empty feed field, by the digits of the code alone.
constexpr std::string_view feedACodes[] = {"01", "02", "03", "72", "84"};
constexpr std::string_view feedBCodes[] = {"73", "81", "82", "83", "85", "86", "88", "89"};

constexpr std::string_view linearAndArcCodes[] = {"G00", "G01", "G02", "G03"};
constexpr std::string_view boringCodes[] = {"G73", "G81", "G82", "G83", "G85", "G89"};
constexpr CodeKey boringDepthKeys[] = {code::G81, code::G82, code::G83, code::G85, code::G89};

template <std::size_t N>
bool Contains(const std::string_view (&codes)[N], std::string_view code) {
    return std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

}  // namespace

KeyboardEntry::KeyboardEntry(Parts parts) : parts_(parts) {
    EntryRow& entry = parts_.Entry;
    chain_ = {&entry.txtGMcode, &entry.txtXI, &entry.txtYJ,     &entry.txtZK,
              &entry.txtFKTL,   &entry.txtH,  &entry.txtComment};
    for (std::size_t place = 0; place < chain_.size(); ++place) {
        chain_[place]->OnKeyDown = [this, place](int key, int held) { Chain_KeyDown(place, key, held); };
    }
    entry.txtGMcode.OnKeyPress = [this](int& character) { txtGMcode_KeyPress(character); };
    entry.txtGMcode.OnGotFocus = [this, &entry] {
        codeFieldEnded_ = false;
        entry.txtGMcode.SelectAll();
    };
    entry.txtGMcode.OnLostFocus = [this] { txtGMcode_LostFocus(); };
    entry.txtComment.OnKeyPress = [this](int& character) { txtComment_KeyPress(character); };
    entry.txtComment.OnGotFocus = [&entry] { entry.txtComment.SelectAll(); };

    const auto fields = entry.Fields();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        TextBox& field = fields[i].Box;
        field.OnKeyPress = [this, &field](int& character) { Parameter_KeyPress(field, character); };
        field.OnLostFocus = [this, i] { Parameter_LostFocus(i); };
        field.OnGotFocus = [this, i] { Parameter_GotFocus(i); };
    }
    entry.txtZK.OnGotFocus = [this] { txtZK_GotFocus(); };
    entry.txtFKTL.OnGotFocus = [this] { txtFKTL_GotFocus(); };
    for (TextBox* preset : {&entry.txtFeedA, &entry.txtFeedB}) {
        preset->OnGotFocus = [preset] { preset->SelectAll(); };
    }
    ListView& list = parts_.Store.lvCncProgram;
    list.OnKeyDown = [this](int key, int) { lvCncProgram_KeyDown(key); };
    list.OnKeyPress = [this](int& character) { lvCncProgram_KeyPress(character); };
}

void KeyboardEntry::SetMode(const char* mode) {
    modeKeyUsed_ = true;
    // MK2 has no M codes.
    if (parts_.Store.IsMK4() || parts_.Store.IsF1()) parts_.Entry.lblGMcode.Caption = mode;
}

void KeyboardEntry::EndField(int& character) {
    parts_.Platform.System.PressKey(key::Tab);
    character = 0;
}

void KeyboardEntry::txtGMcode_KeyPress(int& character) {
    EntryRow& entry = parts_.Entry;
    character =
        character < 256 ? static_cast<unsigned char>(UpperChar(static_cast<char>(character))) : character;
    switch (character) {
        case key::CtrlC:
        case key::Backspace:
        case key::CtrlX: return;
        case key::Enter:
        case ' ':
        case ',':
        case '.':
        case '\'': codeFieldEnded_ = true; return EndField(character);
        case key::CtrlV:
            character = 0;
            entry.txtGMcode.Text = "";
            Run(parts_.Calls.LoadClipboardModule);
            return;
        case '-':
            SetMode(entry.lblGMcode.Caption == "G" ? "M" : "G");
            character = 0;
            return;
        case 'G':
            SetMode("G");
            character = 0;
            return;
        case 'M':
            SetMode("M");
            character = 0;
            return;
        default:
            if ((character < '0' || character > '9') && character != 'R') character = 0;
    }
}

void KeyboardEntry::Parameter_KeyPress(TextBox& field, int& character) {
    EntryRow& entry = parts_.Entry;
    character =
        character < 256 ? static_cast<unsigned char>(UpperChar(static_cast<char>(character))) : character;
    switch (character) {
        case key::CtrlC:
        case key::Backspace:
        case key::CtrlV:
        case key::CtrlX:
        case '*':
        case '+':
        case '-':
        case '/':
        case 'P': return;
        case key::Enter:
        case ' ':
        case ',':
        case '.': return EndField(character);
        case 'A':
            if (&field == &entry.txtFKTL) return ApplyPreset(entry.txtFeedA, character);
            break;
        case 'B':
            if (&field == &entry.txtFKTL) return ApplyPreset(entry.txtFeedB, character);
            break;
        default:
            if (character >= '0' && character <= '9') return;
    }
    character = 0;
}

void KeyboardEntry::ApplyPreset(const TextBox& preset, int& character) {
    parts_.Entry.txtFKTL.Text = PresetText(preset);
    EndField(character);
}

void KeyboardEntry::Parameter_GotFocus(std::size_t field) {
    EntryRow& entry = parts_.Entry;
    TextBox& box = entry.Fields()[field].Box;
    const bool keeps = FieldUnchanged(entry, field);
    if (box.Text.Empty()) box.Text = "00";
    if (keeps) entry.Opened.Shown[field] = box.Text.Get();
    box.SelectAll();
    TellCarried(field);
}

// The fields keep their texts from line to line, so that Enter takes them again; what a text meant may have changed.
void KeyboardEntry::TellCarried(std::size_t field) {
    const char from = parts_.Layout.CarriedFrom(field);
    if (from == 0) return;
    const EntryRow::Field one = parts_.Entry.Fields()[field];
    toldOfField_ = true;
    Run(parts_.Calls.Tell,
        Filled(parts_.Language.EntryTexts(EntryText::CarriedOver),
               {one.Caption.Caption.Get(), std::string(1, from), std::string(Trim(one.Box.Text))}));
}

// The value of an opened line stays while nobody changes it, also one that the entry would refuse.
void KeyboardEntry::Parameter_LostFocus(std::size_t field) {
    EntryRow& entry = parts_.Entry;
    TextBox& box = entry.Fields()[field].Box;
    if (std::exchange(toldOfField_, false)) Run(parts_.Calls.Tell, "");
    // A field that the next code does not have went away with its text.
    if (!box.Visible) return;
    if (!FieldUnchanged(entry, field)) {
        const bool keepEmpty = &box == &entry.txtFKTL || &box == &entry.txtH;
        return parts_.Calculated.EvaluateField(box, keepEmpty);
    }
    // A number is shown as a typed one is; the blank behind its sign goes.
    std::string text = box.Text.Get();
    const std::string number = MathString(text);
    if (box.Text.Empty() || Val(number) != Val(box.Text)) return;
    box.Text = number;
    entry.Opened.Shown[field] = number;
    if (entry.Opened.BeingOpened) parts_.Calculated.EvalText(box, true);
}

void KeyboardEntry::txtComment_KeyPress(int& character) {
    if (character == key::Enter) {
        character = 0;
        parts_.Lines.LineEdit();
        return;
    }
    const bool passes = character == key::CtrlC || character == key::Backspace || character == key::CtrlV ||
                        character == key::CtrlX || (character >= 32 && character <= 126);
    if (!passes) character = 0;
}

// Moves between the fields with the arrow keys; Insert, up and down to the list, and to its end.
void KeyboardEntry::Chain_KeyDown(std::size_t place, int pressed, int held) {
    FocusService& focus = parts_.Platform.Focus;
    TextBox& field = *chain_[place];
    const TextSelection selection = field.Selection;
    const int length = static_cast<int>(field.Text.Get().size());
    const auto canTakeFocus = [](const TextBox& box) {
        return box.EffectivelyVisible() && box.EffectivelyEnabled();
    };
    switch (pressed) {
        case key::Insert: return parts_.Lines.LineInsert();
        case key::End:
            if (held == key::CtrlHeld) OpenLastRow();
            return;
        case key::Up:
        case key::Down: return focus.SetFocus(parts_.Store.lvCncProgram);
        case key::Left:
            if (selection.Start != 0) return;
            for (std::size_t before = place; before-- > 0;) {
                if (canTakeFocus(*chain_[before])) return focus.SetFocus(*chain_[before]);
            }
            return;
        case key::Right: {
            const bool allSelected = selection.Start == 0 && selection.Length == length;
            const bool atEnd = selection.Start + selection.Length == length && selection.Length == 0;
            if (place == codeField ? !atEnd : !allSelected) return;
            for (std::size_t behind = place + 1; behind < chain_.size(); ++behind) {
                if (canTakeFocus(*chain_[behind])) return focus.SetFocus(*chain_[behind]);
            }
            return;
        }
        default: return;
    }
}

void KeyboardEntry::lvCncProgram_KeyDown(int pressed) {
    switch (pressed) {
        case key::Delete: return parts_.Lines.LineDelete();
        case key::Enter: return parts_.Codes.lvCncProgram_Click();
        case key::Insert: return parts_.Lines.LineInsert();
        case key::F2: return parts_.Platform.System.PressKey(key::Enter);
        default: return;
    }
}

// Codes are typed with the keys of the list too: the field takes them.
void KeyboardEntry::lvCncProgram_KeyPress(int& character) {
    constexpr std::string_view first = "0123456789-GgMm";
    const bool begins = character > 0 && character < 128 &&
                        first.find(static_cast<char>(character)) != std::string_view::npos;
    TextBox& code = parts_.Entry.txtGMcode;
    if (!begins || parts_.Store.EditorRunMode || !FocusByHand(code, parts_.Platform.Focus)) return;
    int typed = std::exchange(character, 0);
    txtGMcode_KeyPress(typed);
    if (typed != 0) EditText(code, {TextAction::Insert, false, typed}, nullptr);
}

void KeyboardEntry::OpenLastRow() {
    ListView& list = parts_.Store.lvCncProgram;
    // The field that is left has its value checked, and may keep the focus.
    if (list.Count() == 0 || !FocusByHand(list, parts_.Platform.Focus)) return;
    list.Select(list.Count());
    list.EnsureVisible(list.Count());
    parts_.Codes.lvCncProgram_Click();
}

bool KeyboardEntry::InChain(const Control* control) const {
    return std::find(chain_.begin() + firstParameter, chain_.end(), control) != chain_.end();
}

void KeyboardEntry::txtGMcode_LostFocus() {
    const bool ends = std::exchange(codeFieldEnded_, false);
    // The code of an opened line that nobody touched, also one that the machine does not know.
    if (!ends && !modeKeyUsed_ && CodeUnchanged(parts_.Entry)) return;
    // A place outside the chain keeps the focus that it was given; along the chain the code decides.
    parts_.Layout.KeepFocus = !InChain(parts_.Platform.Focus.Focused());
    Attempt(codeCheckName, [&] { CheckCode(); });
    // The next code begins anew, also where this one was empty or unknown.
    modeKeyUsed_ = false;
    parts_.Layout.KeepFocus = false;
    // A feed button that the new code does not have.
    const Control* const focused = parts_.Platform.Focus.Focused();
    if (focused && !(focused->EffectivelyVisible() && focused->EffectivelyEnabled()))
        parts_.Layout.FirstFieldFocus("");
}

void KeyboardEntry::CheckCode() {
    EntryRow& entry = parts_.Entry;
    ProgramStore& store = parts_.Store;
    if (entry.txtGMcode.Text.Empty()) return;
    // Only the last two digits count, so that a typing mistake needs no correction.
    std::string text = entry.txtGMcode.Text.Get();
    text = UpperChar(text.back()) == 'R' ? "99R" : std::string(Right("0" + text, 2));
    entry.txtGMcode.Text = text;
    bool unknownCode = true;
    for (const std::string& row : parts_.Codes.ListOf(entry.lblGMcode.Caption.Get()).Entries()) {
        if (Left(text, 2) == Mid(row, 2, 2)) unknownCode = false;
    }
    if (unknownCode) {
        parts_.Platform.Focus.SetFocus(entry.txtGMcode);
        entry.txtGMcode.SelectAll();
        parts_.Platform.Dialogs.ShowMessage(
            Notice(entry.lblGMcode.Caption.Get() + text + " " +
                   std::string(parts_.Language.ErrorTexts(text::UnknownCode))));
        entry.txtGMcode.Text = "";
        parts_.Layout.UpdateFrameCaption();
        return;
    }
    if (store.LineCount() < 1) {
        parts_.Layout.InputFields(text);
    } else {
        // The same digits typed over leave the layout and the fields alone, where they are those of the code.
        const ListView& list = store.lvCncProgram;
        const std::string_view digits = Trim(Mid(list.Row(list.SelectedRow())[column::Code], 2, 2));
        if (digits != text || modeKeyUsed_ || !parts_.Layout.IsLaidOutForCode()) {
            parts_.Layout.InputFields(text);
            // The line in its own row keeps its comment.
            const bool itself = CommentUnchanged(entry) && entry.Opened.Place == list.SelectedRow();
            if (parts_.View.chkViewGcode.Value != 0 && !itself) parts_.Layout.CodeDescription();
        }
    }
    const bool fillsComment = parts_.View.chkViewGcode.Value != 0 && entry.txtComment.Text.Empty();
    if (fillsComment && !CommentUnchanged(entry)) parts_.Layout.CodeDescription();
}

// Automatic Z, on the mill: the depth reached so far is the default. An opened line has its own.
void KeyboardEntry::txtZK_GotFocus() {
    EntryRow& entry = parts_.Entry;
    ProgramStore& store = parts_.Store;
    const ListView& list = store.lvCncProgram;
    Attempt(automaticZName, [&] {
        if (!store.IsF1() || store.LineCount() <= 1 || CodeUnchanged(entry)) return;
        const std::string code(Trim(entry.lblGMcode.Caption.Get() + entry.txtGMcode.Text.Get()));
        const int selected = list.SelectedRow();
        if (Contains(linearAndArcCodes, code)) {
            // The open line has no tool position yet: that of the last program line.
            if (store.AbsoluteMode) {
                entry.txtZK.Text = list.Row(std::min(selected, store.LineCount()))[column::ToolZ];
            }
        } else if (Contains(boringCodes, code)) {
            // The last boring depth above or at this line. G73 takes it but is no source itself.
            for (int row = 1; row <= selected; ++row) {
                if (IsOneOf(KeyOf(list.Row(row)[column::Code]), boringDepthKeys)) {
                    entry.txtZK.Text = list.Row(row)[column::Z];
                }
            }
        }
    });
    Parameter_GotFocus(zField);
}

void KeyboardEntry::txtFKTL_GotFocus() {
    EntryRow& entry = parts_.Entry;
    const std::string_view code = Trim(entry.txtGMcode.Text);
    if (entry.txtFKTL.Text.Empty() && !FieldUnchanged(entry, feedField)) {
        if (Contains(feedACodes, code)) entry.txtFKTL.Text = PresetText(entry.txtFeedA);
        if (Contains(feedBCodes, code)) entry.txtFKTL.Text = PresetText(entry.txtFeedB);
    }
    entry.txtFKTL.SelectAll();
    TellCarried(feedField);
}

}  // namespace kvt
