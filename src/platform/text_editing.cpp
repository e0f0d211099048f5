#include "platform/text_editing.h"

#include <algorithm>
#include <utility>

#include "basic/line_end.h"
#include "basic/run_time_error.h"
#include "platform/keys.h"

namespace kvt {

namespace {

using Place = std::size_t;

struct KeyAction {
    int Key;
    TextAction Plain;
    TextAction WithCtrl;
};

constexpr KeyAction keyActions[] = {
    {key::Left, TextAction::Left, TextAction::WordLeft},
    {key::Right, TextAction::Right, TextAction::WordRight},
    {key::Home, TextAction::Home, TextAction::First},
    {key::End, TextAction::End, TextAction::Last},
    {key::Up, TextAction::Up, TextAction::Up},
    {key::Down, TextAction::Down, TextAction::Down},
    {key::PageUp, TextAction::PageUp, TextAction::PageUp},
    {key::PageDown, TextAction::PageDown, TextAction::PageDown},
    {key::Delete, TextAction::Delete, TextAction::DeleteWord},
    {key::Backspace, TextAction::DeleteBack, TextAction::DeleteWordBack},
};

constexpr std::pair<int, TextAction> ctrlActions[] = {
    {key::CtrlA, TextAction::SelectAll}, {key::CtrlC, TextAction::Copy}, {key::CtrlX, TextAction::Cut},
    {key::CtrlV, TextAction::Paste},     {key::CtrlZ, TextAction::Undo}, {key::CtrlY, TextAction::Redo}};

bool Changes(TextAction action) {
    switch (action) {
        case TextAction::Insert:
        case TextAction::DeleteBack:
        case TextAction::DeleteWordBack:
        case TextAction::Delete:
        case TextAction::DeleteWord:
        case TextAction::Cut:
        case TextAction::Paste:
        case TextAction::Undo:
        case TextAction::Redo: return true;
        default: return false;
    }
}

bool IsPage(TextAction action) { return action == TextAction::PageUp || action == TextAction::PageDown; }
bool IsVertical(TextAction action) {
    return action == TextAction::Up || action == TextAction::Down || IsPage(action);
}

std::optional<TextEdit> ActionOf(const TextBox& box, const KeyPress& press) {
    const int character = press.Character;
    if (character == key::Backspace) return TextEdit{TextAction::DeleteBack};
    if (character == key::Enter) {
        if (!box.MultiLine) return std::nullopt;
        return TextEdit{TextAction::Insert, false, character};
    }
    if (character >= key::Space) return TextEdit{TextAction::Insert, false, character};
    for (const auto& [code, action] : ctrlActions) {
        if (code == character) return TextEdit{action};
    }
    if (character != 0) return std::nullopt;
    const int held = press.Stroke.Held;
    for (const KeyAction& one : keyActions) {
        if (one.Key != press.Stroke.Key) continue;
        if (!box.MultiLine && IsVertical(one.Plain)) return std::nullopt;
        const bool word = (held & key::CtrlHeld) != 0;
        return TextEdit{word ? one.WithCtrl : one.Plain, (held & key::ShiftHeld) != 0};
    }
    return std::nullopt;
}

// How many characters at a place go together: a line end is two.
Place Behind(const std::string& text, Place at) { return text.compare(at, 2, LineEnd) == 0 ? 2 : 1; }
Place InFront(const std::string& text, Place at) {
    return at >= 2 && text.compare(at - 2, 2, LineEnd) == 0 ? 2 : 1;
}

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool EndsLine(char c) { return c == '\r' || c == '\n'; }
bool InWord(char c) { return !IsBlank(c) && !EndsLine(c); }

// The beginning of the word at the left of a place, and that of the next one at its right. A line end is a stop of
// its own.
Place WordLeft(const std::string& text, Place at) {
    if (at > 0 && EndsLine(text[at - 1])) return at - InFront(text, at);
    while (at > 0 && IsBlank(text[at - 1])) --at;
    while (at > 0 && InWord(text[at - 1])) --at;
    return at;
}
Place WordRight(const std::string& text, Place at) {
    if (at < text.size() && EndsLine(text[at])) return at + Behind(text, at);
    while (at < text.size() && InWord(text[at])) ++at;
    while (at < text.size() && IsBlank(text[at])) ++at;
    return at;
}

Place LineStart(const std::string& text, Place at) {
    const Place end = at == 0 ? std::string::npos : text.rfind('\n', at - 1);
    return end == std::string::npos ? 0 : end + 1;
}
Place EndOfLine(const std::string& text, Place at) { return std::min(text.find(LineEnd, at), text.size()); }

// The same column of the line above or below; the place itself where there is none.
Place Above(const std::string& text, Place at) {
    const Place start = LineStart(text, at);
    if (start == 0) return at;
    return std::min(LineStart(text, start - 2) + (at - start), start - 2);
}
Place Below(const std::string& text, Place at) {
    const Place end = EndOfLine(text, at);
    if (end == text.size()) return at;
    return std::min(end + 2 + (at - LineStart(text, at)), EndOfLine(text, end + 2));
}

// Where a move from a caret leads.
Place Target(const std::string& text, Place caret, TextAction action) {
    switch (action) {
        case TextAction::Left: return caret - std::min(caret, InFront(text, caret));
        case TextAction::Right: return std::min(text.size(), caret + Behind(text, caret));
        case TextAction::WordLeft:
        case TextAction::DeleteWordBack: return WordLeft(text, caret);
        case TextAction::WordRight:
        case TextAction::DeleteWord: return WordRight(text, caret);
        case TextAction::Home: return LineStart(text, caret);
        case TextAction::End: return EndOfLine(text, caret);
        case TextAction::Up: return Above(text, caret);
        case TextAction::Down: return Below(text, caret);
        case TextAction::First: return 0;
        case TextAction::Last: return text.size();
        default: return caret;
    }
}

TextSelection Between(Place anchor, Place caret) {
    const int start = static_cast<int>(std::min(anchor, caret));
    return {start, static_cast<int>(std::max(anchor, caret)) - start, caret < anchor};
}

struct Ends {
    Place Start, End, Anchor, Caret;
};

Ends EndsOf(const TextBox& box) {
    const TextSelection selection = box.Selection;
    const Place size = box.Text.Get().size();
    const Place start = std::min<Place>(static_cast<Place>(std::max(0, selection.Start)), size);
    const Place end = std::min<Place>(start + static_cast<Place>(std::max(0, selection.Length)), size);
    return {start, end, selection.CaretFirst ? end : start, selection.CaretFirst ? start : end};
}

void Move(TextBox& box, const TextEdit& edit) {
    if (IsPage(edit.Action)) return;
    const Ends ends = EndsOf(box);
    const std::string& text = box.Text.Get();
    // Without Shift an arrow leaves a selection at its end of it.
    const bool leaves = !edit.Extends && ends.Start != ends.End;
    Place target = Target(text, ends.Caret, edit.Action);
    if (leaves && edit.Action == TextAction::Left) target = ends.Start;
    if (leaves && edit.Action == TextAction::Right) target = ends.End;
    box.Selection = Between(edit.Extends ? ends.Anchor : target, target);
}

// The caret goes first: a handler that runs at the change finds it in the new text.
void SetTextByHand(TextBox& box, const std::string& text, TextSelection selection) {
    box.Selection = selection;
    box.Text = text;
    const std::string& now = box.Text.Get();
    if (now != text)
        box.Selection = TextSelection{std::min(selection.Start, static_cast<int>(now.size())), 0};
}

void PutIn(TextBox& box, Place start, Place end, std::string_view put, bool typed) {
    const std::string before = box.Text.Get();
    std::string changed = before;
    changed.replace(start, end - start, put);
    if (changed == before && put.empty()) return;
    // What is typed in one go is undone in one go.
    const bool goesOn = typed && box.LastEdit.Typed && box.LastEdit.After == before && start == end;
    if (!goesOn) {
        box.LastEdit.Before = before;
        box.LastEdit.SelectionBefore = box.Selection;
    }
    box.LastEdit.After = changed;
    box.LastEdit.Typed = typed;
    box.LastEdit.Undone = false;
    SetTextByHand(box, changed, TextSelection{static_cast<int>(start + put.size()), 0});
}

// A second time does it again. A text that came by other ways since is left alone.
void Undo(TextBox& box) {
    LastTextEdit& last = box.LastEdit;
    if (last.After != box.Text.Get() || last.Before == last.After) return;
    const TextSelection selection = std::exchange(last.SelectionBefore, box.Selection.Get());
    std::swap(last.Before, last.After);
    last.Typed = false;
    last.Undone = !last.Undone;
    SetTextByHand(box, std::string(last.After), selection);
}

// The line ends that a box with one line has no place for go; one with several takes each kind as CR LF.
std::string Fitting(const TextBox& box, const std::string& text) {
    std::string fitting;
    for (Place i = 0; i < text.size(); ++i) {
        const bool lineEnd = text[i] == '\r' || text[i] == '\n';
        if (!lineEnd) fitting += text[i];
        if (!lineEnd || !box.MultiLine) continue;
        fitting += LineEnd;
        i += Behind(text, i) - 1;
    }
    return fitting;
}

void Insert(TextBox& box, std::string_view text, bool typed) {
    const Ends ends = EndsOf(box);
    if (!box.MultiLine) {
        const Place rest = box.Text.Get().size() - (ends.End - ends.Start);
        text = text.substr(0, LongestLine - std::min(rest, LongestLine));
        if (text.empty()) return;
    }
    PutIn(box, ends.Start, ends.End, text, typed);
}

void Remove(TextBox& box, TextAction action) {
    const Ends ends = EndsOf(box);
    if (ends.Start != ends.End) return PutIn(box, ends.Start, ends.End, {}, false);
    const std::string& text = box.Text.Get();
    if (action == TextAction::DeleteBack) action = TextAction::Left;
    if (action == TextAction::Delete) action = TextAction::Right;
    const Place target = Target(text, ends.Caret, action);
    PutIn(box, std::min(target, ends.Caret), std::max(target, ends.Caret), {}, false);
}

// Runs a call of the clipboard; false where it fails: the box itself has nobody to tell.
template <class Call>
bool Succeeds(Call&& call) {
    try {
        std::forward<Call>(call)();
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

void Paste(TextBox& box, ClipboardService& clipboard) {
    std::string text;
    if (!Succeeds([&] { text = Fitting(box, clipboard.GetText()); })) return;
    if (!text.empty()) Insert(box, text, false);
}

void CopyOrCut(TextBox& box, bool cut, ClipboardService& clipboard) {
    const Ends ends = EndsOf(box);
    if (ends.Start == ends.End) return;
    const std::string text = box.Text.Get().substr(ends.Start, ends.End - ends.Start);
    const bool copied = Succeeds([&] {
        clipboard.Clear();
        clipboard.SetText(text);
    });
    if (copied && cut) PutIn(box, ends.Start, ends.End, {}, false);
}

}  // namespace

std::optional<TextEdit> EditOf(const TextBox& box, const KeyPress& press) {
    const std::optional<TextEdit> edit = ActionOf(box, press);
    if (edit && box.ReadOnly && Changes(edit->Action)) return std::nullopt;
    return edit;
}

bool IsEditingShortcut(KeyStroke stroke) {
    if (stroke.Held != key::CtrlHeld) return false;
    return std::any_of(std::begin(ctrlActions), std::end(ctrlActions),
                       [&](const auto& action) { return stroke.Key == 'A' + action.first - 1; });
}

void EditText(TextBox& box, const TextEdit& edit, ClipboardService* clipboard) {
    switch (edit.Action) {
        case TextAction::Insert: {
            const char character = static_cast<char>(edit.Character);
            return Insert(box, edit.Character == key::Enter ? LineEnd : std::string_view(&character, 1),
                          true);
        }
        case TextAction::DeleteBack:
        case TextAction::DeleteWordBack:
        case TextAction::Delete:
        case TextAction::DeleteWord: return Remove(box, edit.Action);
        case TextAction::SelectAll: return box.SelectAll();
        case TextAction::Copy:
        case TextAction::Cut:
            if (clipboard) CopyOrCut(box, edit.Action == TextAction::Cut, *clipboard);
            return;
        case TextAction::Paste:
            if (clipboard) Paste(box, *clipboard);
            return;
        case TextAction::Undo: return Undo(box);
        case TextAction::Redo:
            if (box.LastEdit.Undone) Undo(box);
            return;
        default: return Move(box, edit);
    }
}

}  // namespace kvt
