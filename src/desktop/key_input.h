#pragma once

#include <QKeyEvent>
#include <vector>

#include "platform/key_press.h"

namespace kvt {

// A key event of the toolkit as the keyboard is told it: a key with its character, and further characters where one
// key gives several. Nothing for what is the toolkit's own business: what is held alone, and what Alt is held with but
// for the arrows.
std::vector<KeyPress> PressesOf(const QKeyEvent& event);

// The toolkit's event for a key by number.
QKeyEvent EventOf(int key, QEvent::Type type);

}  // namespace kvt
