#pragma once

namespace kvt::key {

// Keys by number, as KeyDown is told them. Characters come to KeyPress by their code; Ctrl with a letter is 1
// to 26.
inline constexpr int Backspace = 8, Tab = 9, Enter = 13, Escape = 27, Space = 32, PageUp = 33, PageDown = 34,
                     End = 35, Home = 36, Left = 37, Up = 38, Right = 39, Down = 40, Insert = 45, Delete = 46,
                     F1 = 112, F2 = 113, F3 = 114, F4 = 115, F5 = 116, F12 = 123;
inline constexpr int CtrlA = 1, CtrlC = 3, CtrlV = 22, CtrlX = 24;

// What is held while a key goes down; they add up.
inline constexpr int ShiftHeld = 1, CtrlHeld = 2, AltHeld = 4;

}  // namespace kvt::key
