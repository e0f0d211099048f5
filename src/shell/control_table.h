#pragma once

#include <limits>
#include <span>
#include <vector>

#include "platform/controls.h"

namespace kvt {

inline constexpr int SmallestHeight = 8720;
inline constexpr int SmallestWidth = 11800;
// On a screen that has no room for the smallest window the lists give way, so far.
inline constexpr int LeastHeight = 6000;
// Before a settings file has told another one.
inline constexpr int UsualWidth = 13800;

// A length in twips. It may follow the width or the height of the window, or a part of it, within bounds.
struct Length {
    enum class Of : std::uint8_t { Nothing, Width, Height };

    constexpr Length(int twips = 0, Of of = Of::Nothing, int least = std::numeric_limits<int>::min(),
                     int most = std::numeric_limits<int>::max(), int percent = 100)
        : Twips(twips), Follows(of), Least(least), Most(most), Percent(percent) {}
    // The length in a window of this size.
    int In(int width, int height) const;

    int Twips;
    Of Follows;
    int Least, Most;
    int Percent;
};

// Where a control lies in what contains it.
struct Area {
    Length Left, Top, Width, Height;
    bool IsSet = false;
};

// The elements of a control array lie in columns; the step from one to the next, and from one row to the next.
struct Grid {
    int Columns = 1, Right = 0, Down = 0;
};

// What is told of a control of the main window, besides its kind, name and caption (where it is declared) and its
// keys in the language tables. The rows are in the order of the Tab key. "#" in a name is TX and RX.
struct ControlRow {
    enum Trait : unsigned {
        TabStop = 1,  // the Tab key stops at it
        Frozen = 2,   // disabled while the window is frozen
        Overlay = 4,  // lies over the editor; Return takes it away
        Hidden = 16,  // until it is asked for
        AtRight = 8,  // a label whose text is aligned at the right edge
    };

    const char* Name;            // of a control, or of all elements of an array
    const char* Container = "";  // a frame, a menu or the settings; empty for the form
    Area Place = {};             // not set: its place is worked out in the layout, or it has none
    unsigned Traits = 0;
    int Page = -1;     // of the settings
    Area OnMill = {};  // where it lies on the mill, if elsewhere
    Grid Elements = {};
};
std::span<const ControlRow> ControlRows();
// The rows of what the transmit side and the receive side of the port each have.
std::span<const ControlRow> PortSideRows();
// Those of the receive view and of the progress of a transmission, which come last for the Tab key.
std::span<const ControlRow> TransferRows();

// The controls of the main window as the table has them.
class ControlTable {
public:
    // All controls of the table have been made. Puts them into their containers and numbers the Tab stops.
    explicit ControlTable(Form& form);

    // Places the controls in a window of the form's size.
    void Place(bool mill) const;
    // Enables or disables what is disabled while the window is frozen.
    void EnableFrozen(bool enabled) const;
    void HideOverlays() const;

private:
    struct Entry {
        Control* Of;
        const ControlRow* Row;
    };
    void Add(const ControlRow& row, std::string_view side, std::span<Control* const> byName);
    void AddOne(Control& control, const ControlRow& row, Control* container);

    Form& form_;
    std::vector<Entry> entries_;
    int nextTab_ = 0;
};

}  // namespace kvt
