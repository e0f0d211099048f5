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

constexpr std::pair<int, TextAction> ctrlActions[] = {{key::CtrlA, TextAction::SelectAll},
                                                      {key::CtrlC, TextAction::Copy},
                                                      {key::CtrlX, TextAction::Cut},
                                                      {key::CtrlV, TextAction::Paste}};

// What a box keeps of its edits: the oldest go first, the newest never.
constexpr std::size_t mostChanges = 200;
constexpr std::size_t mostCharacters = std::size_t{4} << 20;

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

std::size_t SizeOf(const TextChange& change) { return change.Removed.size() + change.Inserted.size(); }

void DropOldest(std::vector<TextChange>& changes) {
    std::size_t kept = 0, characters = 0;
    while (kept < std::min(changes.size(), mostChanges)) {
        characters += SizeOf(changes[changes.size() - 1 - kept]);
        if (kept > 0 && characters > mostCharacters) break;
        ++kept;
    }
    changes.erase(changes.begin(), changes.end() - static_cast<std::ptrdiff_t>(kept));
}

// What is typed in one go is undone in one go.
void Note(TextBox& box, TextChange change) {
    std::vector<TextChange>& done = box.Edits.Done;
    box.Edits.Undone.clear();
    const bool goesOn = change.Typed && change.Removed.empty() && !done.empty() && done.back().Typed &&
                        done.back().At + done.back().Inserted.size() == change.At;
    if (goesOn) {
        done.back().Inserted += change.Inserted;
    } else {
        done.push_back(std::move(change));
    }
    DropOldest(done);
}

void PutIn(TextBox& box, Place start, Place end, std::string_view put, bool typed) {
    std::string text = box.Text.Get();
    std::string removed = text.substr(start, end - start);
    if (removed.empty() && put.empty()) return;
    text.replace(start, end - start, put);
    Note(box, {start, std::move(removed), std::string(put), box.Selection, typed});
    box.SetByHand(text, TextSelection{static_cast<int>(start + put.size()), 0});
}

// Takes the last change of one list back, and puts it into the other one, turned round.
void TakeBack(TextBox& box, std::vector<TextChange>& from, std::vector<TextChange>& to) {
    if (from.empty()) return;
    TextChange change = std::move(from.back());
    from.pop_back();
    if (!from.empty()) from.back().Typed = false;
    std::string text = box.Text.Get();
    text.replace(change.At, change.Inserted.size(), change.Removed);
    std::swap(change.Removed, change.Inserted);
    change.Typed = false;
    const TextSelection selection = std::exchange(change.Selection, box.Selection.Get());
    to.push_back(std::move(change));
    box.SetByHand(text, selection);
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

std::optional<TextAction> UndoingOf(const TextBox& box, KeyStroke stroke) {
    if (box.ReadOnly || stroke.Key != 'Z') return std::nullopt;
    if (stroke.Held == key::CtrlHeld && !box.Edits.Done.empty()) return TextAction::Undo;
    if (stroke.Held == (key::CtrlHeld | key::ShiftHeld) && !box.Edits.Undone.empty()) return TextAction::Redo;
    return std::nullopt;
}

void TakeEdit(TextBox& box, const std::string& text, TextSelection selection) {
    const std::string& before = box.Text.Get();
    if (before == text) {
        box.Selection = selection;
        return;
    }
    const auto shorter = static_cast<std::ptrdiff_t>(std::min(before.size(), text.size()));
    const auto start = static_cast<Place>(
        std::mismatch(before.begin(), before.begin() + shorter, text.begin()).first - before.begin());
    const auto rest = shorter - static_cast<std::ptrdiff_t>(start);
    const auto same = static_cast<Place>(
        std::mismatch(before.rbegin(), before.rbegin() + rest, text.rbegin()).first - before.rbegin());
    TextChange change{start,
                      before.substr(start, before.size() - same - start),
                      text.substr(start, text.size() - same - start),
                      {},
                      false};
    change.Typed = change.Removed.empty() && change.Inserted.size() == 1;
    change.Selection.Start = static_cast<int>(start + change.Removed.size());
    Note(box, std::move(change));
    box.SetByHand(text, selection);
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
        case TextAction::Undo: return TakeBack(box, box.Edits.Done, box.Edits.Undone);
        case TextAction::Redo: return TakeBack(box, box.Edits.Undone, box.Edits.Done);
        default: return Move(box, edit);
    }
}

}  // namespace kvt
