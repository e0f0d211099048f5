#pragma once

#include "draw/draw_parts.h"

namespace kvt {

// While a drawing with waits grows in front, its line is selected in the editor's list too, if that is visible. The
// user's own selection is restored at the walk's end, or as soon as the editor is activated. The list is not scrolled
// back in the second case: a press on one of the rows in sight may be on its way.
class EditorLine {
public:
    explicit EditorLine(DrawParts& parts) : parts_(parts) {}

    // Does nothing while the editor works with its selection, nor in the rest of a walk in which the user has selected
    // a row.
    void Follow(int row);
    void RestoreSelection();
    // The row that the user has selected, also while another one is shown so.
    int UsersRow() const;
    // Scrolls back to where the list was before the walk. Nothing if it was scrolled, or another row selected, since.
    void RestoreScroll();
    // The walk has ended.
    void End();

private:
    bool MayFollow() const;

    DrawParts& parts_;
    // The row selected by Follow, 0 for none; and the selected and the top row before that.
    int shown_ = 0;
    int before_ = 0, topBefore_ = 0;
    // The first row in sight while the list is still to be scrolled back, 0 otherwise.
    int topShown_ = 0;
    bool userMoved_ = false;
};

}  // namespace kvt
