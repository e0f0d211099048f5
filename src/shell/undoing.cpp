#include "shell/undoing.h"

#include <algorithm>

#include "basic/number.h"
#include "platform/keys.h"

namespace kvt {

namespace {

struct KindText {
    StepKind Kind;
    StepText Text;
};

constexpr KindText kindTexts[] = {
    {StepKind::LineChanged, StepText::LineChanged},
    {StepKind::LineAdded, StepText::LineAdded},
    {StepKind::LineInserted, StepText::LineInserted},
    {StepKind::LineDeleted, StepText::LineDeleted},
    {StepKind::Notes, StepText::Notes},
    {StepKind::Units, StepText::Units},
    {StepKind::Conversion, StepText::Conversion},
    {StepKind::Feeds, StepText::Feeds},
    {StepKind::CommentsDeleted, StepText::CommentsDeleted},
    {StepKind::CodeComments, StepText::CodeComments},
    {StepKind::New, StepText::NewProgram},
    {StepKind::Machine, StepText::Machine},
    {StepKind::Opened, StepText::Opened},
    {StepKind::Imported, StepText::Imported},
    {StepKind::Received, StepText::Received},
    {StepKind::Clipboard, StepText::Clipboard},
};

StepText TextOf(StepKind kind) {
    const auto* const found = std::find_if(std::begin(kindTexts), std::end(kindTexts),
                                           [kind](const KindText& one) { return one.Kind == kind; });
    return found == std::end(kindTexts) ? StepText::LineChanged : found->Text;
}

}  // namespace

bool Undoing::IsHeld() const {
    const ProgramStore& store = parts_.Store;
    return store.EditorRunMode || store.TransmitActive || parts_.Port.IsSending ||
           parts_.Transfer.frRXcode.Visible || parts_.Draw.State.Walking() || !parts_.Modes.ControlsOn() ||
           parts_.History.IsOpen();
}

void Undoing::ShowEntry(Menu& entry, StepText word, const StepName* step) {
    const Texts& texts = parts_.Language;
    std::string caption(texts.StepTexts(word));
    if (step) {
        caption += ": ";
        caption += Filled(texts.StepTexts(TextOf(step->Kind)), {Format(step->Line, "00")});
    }
    entry.Caption = caption;
    entry.Enabled = step && !IsHeld();
}

void Undoing::Refresh() {
    // Also by what their field has taken back.
    if (parts_.History.NotesWereEdited()) parts_.Store.ProgramChanged = true;
    ShowEntry(parts_.Main.mnuUndo, StepText::Undo, parts_.History.ToUndo());
    ShowEntry(parts_.Main.mnuRedo, StepText::Redo, parts_.History.ToRedo());
}

bool Undoing::HandleKey(int pressed, int held) {
    const bool undo = held == key::CtrlHeld, redo = held == (key::CtrlHeld | key::ShiftHeld);
    if (pressed != 'Z' || (!undo && !redo)) return false;
    const bool refuses = (undo ? parts_.History.ToUndo() : parts_.History.ToRedo()) && IsHeld();
    if (refuses) parts_.Platform.System.Beep();
    return true;
}

void Undoing::Go(bool back) {
    if (IsHeld()) return parts_.Platform.System.Beep();
    parts_.Draw.Editor.RestoreSelection();
    Refresh();
    const std::string what = (back ? parts_.Main.mnuUndo : parts_.Main.mnuRedo).Caption.Get();
    const std::optional<ProgramHistory::Move> move = back ? parts_.History.Undo() : parts_.History.Redo();
    if (!move) return;
    Show(*move);
    // The check takes away what was told before, so this comes behind it.
    Run(parts_.Calls.Tell, what);
}

void Undoing::Show(const ProgramHistory::Move& move) {
    const Control* const focused = parts_.Platform.Focus.Focused();
    const bool stays = focused && focused->Container != &parts_.Entry.frEntry;
    EmptyEntryRow();
    if (move.OtherMachine) {
        parts_.Display.RefreshMachine();
        parts_.Machine.SetUnits(UnitsOf(parts_.Store.Metric));
        parts_.Display.ShowCodeLists();
    }
    Run(parts_.Calls.HideSettings);
    Run(parts_.Calls.cmdReturn_Click);
    ShowRows(move.Where);
    parts_.History.StandAsThen();
    Run(parts_.Calls.RefreshTitle);
    parts_.States.Refresh();
    if (!stays || !focused->EffectivelyVisible() || !focused->EffectivelyEnabled())
        parts_.Platform.Focus.SetFocus(parts_.Entry.txtGMcode);
    // Last: a drawing that waits then finds all of it there.
    Run(move.OtherProgram ? parts_.Calls.mnuDraw_Click : parts_.Calls.RedrawAfterEdit);
}

// No line of another state stays open, and no edit of a field that belongs to one.
void Undoing::EmptyEntryRow() {
    parts_.Lists.Unselect();
    parts_.Layout.ClearEntryFields();
    parts_.Entry.lblGMcode.Caption = "G";
    parts_.Layout.UpdateFrameCaption();
    ForgetFieldEdits();
}

void Undoing::ForgetFieldEdits() {
    EntryRow& entry = parts_.Entry;
    entry.txtGMcode.Edits = {};
    entry.txtComment.Edits = {};
    for (const EntryRow::Field& field : entry.Fields()) field.Box.Edits = {};
}

// The pass runs where it has run then.
void Undoing::ShowRows(const ProgramHistory::Place& place) {
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
