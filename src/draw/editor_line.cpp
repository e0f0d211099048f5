#include "draw/editor_line.h"

#include <algorithm>

namespace kvt {

bool EditorLine::Free() const {
    const ProgramStore& store = parts_.Store;
    const Form& editor = store.lvCncProgram.OwningForm();
    if (store.EditorRunMode || store.TransmitActive) return false;
    if (!store.lvCncProgram.ReallyVisible() || editor.State == WindowState::Minimised) return false;
    const Control* const focused = parts_.Platform.Focus.Focused();
    return focused && &focused->OwningForm() != &editor;
}

void EditorLine::Follow(int row) {
    ListView& list = parts_.Store.lvCncProgram;
    if (shown_ != 0 && list.SelectedRow() != shown_) {
        shown_ = 0;
        left_ = true;
    }
    if (left_ || row < 1 || row > list.Count()) return;
    if (!Free()) return GiveBack();
    if (shown_ == 0) {
        before_ = list.SelectedRow();
        topBefore_ = list.TopRow();
    }
    list.Select(row);
    list.EnsureVisible(row);
    shown_ = row;
}

void EditorLine::GiveBack() {
    ListView& list = parts_.Store.lvCncProgram;
    if (shown_ != 0 && list.SelectedRow() == shown_ && before_ >= 1) {
        list.Select(std::min(before_, list.Count()));
        list.ScrollTo(std::min(topBefore_, list.Count()));
    }
    shown_ = 0;
}

void EditorLine::End() {
    GiveBack();
    left_ = false;
}

}  // namespace kvt
