#pragma once

#include <optional>

#include "platform/key_press.h"
#include "platform/services.h"

namespace kvt {

// A box of one line holds no more characters.
inline constexpr std::size_t LongestLine = 10'000;

enum class TextAction : std::uint8_t {
    Insert,  // a character; a line end for Enter
    DeleteBack,
    DeleteWordBack,
    Delete,
    DeleteWord,
    Left,
    Right,
    WordLeft,
    WordRight,
    Home,  // of the line
    End,
    Up,
    Down,
    First,  // of the text
    Last,
    PageUp,
    PageDown,
    SelectAll,
    Copy,
    Cut,
    Paste,
    Undo,
    Redo,
};

struct TextEdit {
    TextAction Action = TextAction::Insert;
    bool Extends = false;  // the selection, for the moves
    int Character = 0;     // for Insert
};

// What a text box does by itself with a key that its handlers have let pass; nothing for other keys, and for those
// that would change a box that is only shown.
std::optional<TextEdit> EditOf(const TextBox& box, const KeyPress& press);

// Whether a box has a use of its own for a stroke that could be a menu's.
bool IsEditingShortcut(KeyStroke stroke);

// Ctrl+Z and Ctrl+Shift+Z, where a box has edits of its own that it can take back or do again; nothing elsewhere.
std::optional<TextAction> UndoingOf(const TextBox& box, KeyStroke stroke);

// Takes over what the user has made of a text in a widget with an editor of its own.
void TakeEdit(TextBox& box, const std::string& text, TextSelection selection);

// Edits the text and the selection of a box. A box of one line takes pasted line ends out. The moves by pages are for
// a view. Without a clipboard, and where it fails, the box stays as it is.
void EditText(TextBox& box, const TextEdit& edit, ClipboardService* clipboard);

}  // namespace kvt
