#pragma once

#include <memory>
#include <vector>

#include "draw/palette.h"

namespace kvt {

// The strip at the lower edge of the drawing that tells what its colours stand for: a sample of each kind of stroke that
// the machine and the View menu have, on the drawing's ground, with its name.
class Legend {
public:
    explicit Legend(DrawControls& controls);
    Legend(const Legend&) = delete;
    Legend& operator=(const Legend&) = delete;

    Frame frLegend;

    // Brings entries, colours and places up to date; hides it where the menu says so.
    void Show(bool mill);

private:
    struct Entry {
        std::unique_ptr<PictureBox> Sample;
        std::unique_ptr<Label> Name;
    };
    static int WidthOf(const Entry& entry);
    static void Place(Entry& entry, int left, int top, int width);

    DrawControls& controls_;
    std::vector<Entry> entries_;
};

}  // namespace kvt
