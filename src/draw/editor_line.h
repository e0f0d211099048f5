#pragma once

#include "draw/draw_parts.h"

namespace kvt {

// While the user watches a drawing grow, its line is selected in the editor's list too, if that is to be seen. What
// he had selected there he gets back: at the walk's end, or as soon as he turns to the editor. The list is not scrolled
// back then, for what he turns to may be a row that he sees there: a press on it is still on its way.
class EditorLine {
public:
    explicit EditorLine(DrawParts& parts) : parts_(parts) {}

    // Does nothing while the editor works with its selection, and once the user has chosen a row himself.
    void Follow(int row);
    void RestoreSelection();
    // Scrolls back to where the user had the list. Nothing where he has found another row or place since.
    void RestoreScroll();
    // The walk has ended.
    void End();

private:
    bool MayFollow() const;

    DrawParts& parts_;
    // The row that is selected by this one, 0 for none; and what was selected and on top before.
    int shown_ = 0;
    int before_ = 0, topBefore_ = 0;
    // The first row in sight while the list is still to be scrolled back, 0 otherwise.
    int topShown_ = 0;
    bool userMoved_ = false;
};

}  // namespace kvt
