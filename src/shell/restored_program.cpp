#include "shell/restored_program.h"

#include <algorithm>

namespace kvt {

void RestoredProgram::Show(const ProgramHistory::Move& move) {
    const Control* const focused = parts_.Focus.Focused();
    const bool stays = focused && focused->Container != &parts_.Entry.frEntry;
    // No line of another state stays open, and no edit of a field that belongs to one.
    parts_.Lists.Unselect();
    parts_.Layout.EmptyEntryRow();
    parts_.Entry.lblGMcode.Caption = "G";
    parts_.Entry.ForgetEdits();
    if (move.OtherMachine) parts_.Display.ShowOtherMachine();
    Run(parts_.Calls.HideSettings);
    Run(parts_.Calls.cmdReturn_Click);
    ShowRows(move.Where);
    parts_.History.StandAsThen();
    Run(parts_.Calls.RefreshTitle);
    parts_.States.Refresh();
    if (!stays || !focused->EffectivelyVisible() || !focused->EffectivelyEnabled()) parts_.Layout.FocusCode();
    // Last: a drawing that waits then finds all of it there.
    Run(move.OtherProgram ? parts_.Calls.mnuDraw_Click : parts_.Calls.RedrawAfterEdit);
}

// The pass runs where it has run then.
void RestoredProgram::ShowRows(const ProgramHistory::Place& place) {
    ListView& list = parts_.Store.lvCncProgram;
    const auto within = [&list](int row) { return std::clamp(row, 1, std::max(1, list.Count())); };
    parts_.Store.PutBack(place.Pass);
    parts_.Interpreter.Recheck();
    list.RowsChanged();
    if (list.Count() == 0) return;
    list.Select(within(place.Selected));
    list.ScrollTo(within(place.Top));
    list.EnsureVisible(list.SelectedRow());
}

}  // namespace kvt
