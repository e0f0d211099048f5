#pragma once

#include <memory>
#include <vector>

#include "draw/palette.h"

namespace kvt {

// The strip at the lower edge of the drawing that tells what its colours stand for: a sample of each kind of stroke that
// the machine and the View menu have, on the drawing's ground, with its name. Behind them the second set of colours can be
// chosen. Where the view is small only a button is left of it, which unfolds it.
class Legend {
public:
    explicit Legend(DrawControls& controls);
    Legend(const Legend&) = delete;
    Legend& operator=(const Legend&) = delete;

    Frame frLegend;
    CommandButton cmdLegendFold;
    CheckBox chkLegendDistinct;

    // Brings entries, colours and places up to date; hides it where the menu says so.
    void Show(bool mill);
    // Shows all of it in a small view, or folds it again.
    void Unfold(bool mill) {
        unfolded_ = !unfolded_;
        Show(mill);
    }

private:
    struct Entry {
        std::unique_ptr<PictureBox> Sample;
        std::unique_ptr<Label> Name;
    };
    // Places the entries in rows as wide as the view; the size of all of them.
    void PlaceRows(bool mill, bool withButton);
    void DrawSamples(bool mill);
    void ShowParts(bool mill, bool folded, bool withButton);
    static void Place(Entry& entry, int left, int top, int width);

    DrawControls& controls_;
    std::vector<Entry> entries_;
    // Unfolded by the user although the view is small.
    bool unfolded_ = false;
};

}  // namespace kvt
