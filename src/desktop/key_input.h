#pragma once

#include <QKeyEvent>
#include <QString>

namespace kvt {

// A key event of the toolkit as the controls are told it. An input with neither key nor text is the toolkit's
// own business: what is held alone, and whatever Alt is held with.
struct KeyInput {
    int Key = 0;  // as in platform/keys.h, 0 for none
    int Held = 0;
    // Characters that come with it; Ctrl with a letter is 1 to 26.
    QString Text;

    bool Empty() const { return Key == 0 && Text.isEmpty(); }
};

KeyInput InputOf(const QKeyEvent& event);

// The toolkit's event for a key by number.
QKeyEvent EventOf(int key, QEvent::Type type);

}  // namespace kvt
