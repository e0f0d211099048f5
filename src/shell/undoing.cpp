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

// While the step is still being made nothing is taken back either.
bool Undoing::IsHeld() const { return parts_.Lock.ForProgram() || parts_.History.IsOpen(); }

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
    if (refuses) parts_.System.Beep();
    return true;
}

void Undoing::Go(bool back) {
    if (IsHeld()) return parts_.System.Beep();
    parts_.DrawnLine.RestoreSelection();
    Refresh();
    const std::string what = (back ? parts_.Main.mnuUndo : parts_.Main.mnuRedo).Caption.Get();
    const std::optional<ProgramHistory::Move> move = back ? parts_.History.Undo() : parts_.History.Redo();
    if (!move) return;
    parts_.Restored.Show(*move);
    // The check takes away what was told before, so this comes behind it.
    Run(parts_.Calls.Tell, what);
}

}  // namespace kvt
