#include "draw/editor_line.h"

#include <algorithm>
#include <utility>

namespace kvt {

bool EditorLine::MayFollow() const {
    const ProgramStore& store = parts_.Store;
    const Form& editor = store.lvCncProgram.OwningForm();
    if (store.EditorRunMode || store.TransmitActive) return false;
    if (!store.lvCncProgram.EffectivelyVisible() || editor.State == WindowState::Minimised) return false;
    const Control* const focused = parts_.Platform.Focus.Focused();
    return focused && &focused->OwningForm() == &parts_.Controls.frmDraw;
}

void EditorLine::Follow(int row) {
    ListView& list = parts_.Store.lvCncProgram;
    if (shown_ != 0 && list.SelectedRow() != shown_) {
        shown_ = 0;
        userMoved_ = true;
    }
    if (userMoved_ || row < 1 || row > list.Count()) return;
    if (!MayFollow()) return RestoreSelection();
    if (shown_ == 0) {
        RestoreScroll();
        before_ = list.SelectedRow();
        topBefore_ = list.TopRow();
    }
    list.Select(row);
    list.EnsureVisible(row);
    shown_ = row;
}

int EditorLine::UsersRow() const {
    const ListView& list = parts_.Store.lvCncProgram;
    const bool shows = shown_ != 0 && list.SelectedRow() == shown_ && before_ >= 1;
    return shows ? std::min(before_, list.Count()) : list.SelectedRow();
}

void EditorLine::RestoreSelection() {
    ListView& list = parts_.Store.lvCncProgram;
    if (shown_ != 0 && list.SelectedRow() == shown_ && before_ >= 1) {
        before_ = std::min(before_, list.Count());
        list.Select(before_);
        topShown_ = list.TopRow();
    }
    shown_ = 0;
}

void EditorLine::RestoreScroll() {
    ListView& list = parts_.Store.lvCncProgram;
    const int shown = std::exchange(topShown_, 0);
    if (shown == 0 || list.TopRow() != shown || list.SelectedRow() != before_) return;
    list.ScrollTo(std::min(topBefore_, list.Count()));
}

void EditorLine::End() {
    const bool watched = MayFollow();
    RestoreSelection();
    if (watched) RestoreScroll();
    userMoved_ = false;
}

}  // namespace kvt
