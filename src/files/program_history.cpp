#include "files/program_history.h"

#include <utility>

namespace kvt {

namespace {

constexpr StepName notesStep{StepKind::Notes};

}  // namespace

std::size_t ProgramHistory::Step::Bytes() const {
    std::size_t bytes = sizeof(Step) + Rows.Bytes();
    if (Text) bytes += sizeof(Notes) + Text->Before.size() + Text->After.size();
    if (OtherNames) bytes += sizeof(Names) + OtherNames->Path.size() * 4;
    return bytes;
}

void ProgramHistory::Start() {
    steps_.clear();
    done_ = 0;
    bytes_ = 0;
    started_ = true;
    Sync();
}

void ProgramHistory::Sync() {
    rows_ = Packed(store_.lvCncProgram);
    notes_ = file_.txtFileNotes.Text.Get();
    stands_ = StandingNow();
}

ProgramHistory::Place ProgramHistory::PlaceNow() const {
    const ListView& list = store_.lvCncProgram;
    return {list.SelectedRow(), list.TopRow(), store_.LastPass};
}

ProgramHistory::Names ProgramHistory::NamesNow() const {
    return {file_.lblPath.Caption.Get(), file_.lblFileName.Caption.Get(), file_.dlgFile.FileName,
            file_.LastProgram, file_.NamesSource};
}

void ProgramHistory::SetNames(const Names& names) {
    file_.lblPath.Caption = names.Path;
    file_.lblFileName.Caption = names.Title;
    file_.dlgFile.FileName = names.InDialog;
    file_.LastProgram = names.LastProgram;
    file_.NamesSource = names.OfSource;
}

void ProgramHistory::Begin(StepName name) {
    if (!started_ || depth_++ > 0) return;
    TakeNotes();
    open_ = Beginning{name, PlaceNow(), StandingNow(), KindNow(), NamesNow()};
}

void ProgramHistory::End() {
    if (!started_ || --depth_ > 0) return;
    Beginning was = std::move(*open_);
    open_.reset();
    Step step;
    step.Name = was.Name;
    step.Rows = RowChanges(rows_, Packed(store_.lvCncProgram));
    const std::string& notes = file_.txtFileNotes.Text.Get();
    if (notes != notes_) step.Text = std::make_unique<Notes>(Notes{notes_, notes});
    const bool otherNames = NamesNow() != was.Called;
    // Also where both are the same now: either may be saved under another one.
    if (ReplacesProgram(was.Name.Kind)) step.OtherNames = std::make_unique<Names>(std::move(was.Called));
    if (KindNow() != was.Of) step.OtherKind = was.Of;
    const bool none = step.Rows.Empty() && !step.Text && !otherNames && !step.OtherKind;
    step.Other = was.Stands;
    step.Before = was.Where;
    step.After = PlaceNow();
    Sync();
    if (!none) Add(std::move(step));
}

bool ProgramHistory::NotesWereEdited() const {
    const TextEdits& edits = file_.txtFileNotes.Edits;
    return depth_ == 0 && NotesWereTyped() && !(edits.Done.empty() && edits.Undone.empty());
}

void ProgramHistory::TakeNotes() {
    if (!NotesWereTyped()) {
        // They are again what they were: keys alone have changed nothing.
        if (started_ && !stands_.Changed) store_.ProgramChanged = false;
        return;
    }
    Step step;
    step.Name = notesStep;
    step.Text = std::make_unique<Notes>(Notes{notes_, file_.txtFileNotes.Text.Get()});
    step.Other = stands_;
    step.Before = step.After = PlaceNow();
    // From here on they are the program's, and no edits of the field.
    file_.txtFileNotes.Edits = {};
    notes_ = step.Text->After;
    stands_ = StandingNow();
    Add(std::move(step));
}

void ProgramHistory::Add(Step step) {
    for (std::size_t i = done_; i < steps_.size(); ++i) bytes_ -= steps_[i].Bytes();
    steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(done_), steps_.end());
    bytes_ += step.Bytes();
    steps_.push_back(std::move(step));
    done_ = steps_.size();
    DropOldest();
}

void ProgramHistory::DropOldest() {
    std::size_t dropped = 0;
    while (bytes_ > MostBytes && dropped + 1 < steps_.size()) bytes_ -= steps_[dropped++].Bytes();
    steps_.erase(steps_.begin(), steps_.begin() + static_cast<std::ptrdiff_t>(dropped));
    done_ -= dropped;
}

void ProgramHistory::Saved() {
    if (!started_) return;
    TakeNotes();
    // What a step that has begun replaces is saved.
    if (open_) {
        *open_ = Beginning{open_->Name, PlaceNow(), {}, KindNow(), NamesNow()};
        rows_ = Packed(store_.lvCncProgram);
    }
    const std::string& file = file_.lblPath.Caption.Get();
    std::string path = file;
    for (std::size_t i = done_; i-- > 0;) {
        if (steps_[i].OtherNames) path = steps_[i].OtherNames->Path;
        if (path == file) steps_[i].Other.Changed = true;
    }
    path = file;
    for (std::size_t i = done_; i < steps_.size(); ++i) {
        if (steps_[i].OtherNames) path = steps_[i].OtherNames->Path;
        if (path == file) steps_[i].Other.Changed = true;
    }
    stands_ = {};
}

const StepName* ProgramHistory::ToUndo() const {
    if (NotesWereTyped()) return &notesStep;
    return done_ > 0 ? &steps_[done_ - 1].Name : nullptr;
}

const StepName* ProgramHistory::ToRedo() const {
    return !NotesWereTyped() && done_ < steps_.size() ? &steps_[done_].Name : nullptr;
}

std::optional<ProgramHistory::Move> ProgramHistory::Go(bool back) {
    if (IsOpen()) return std::nullopt;
    TakeNotes();
    if (back ? done_ == 0 : done_ == steps_.size()) return std::nullopt;
    Step& step = steps_[back ? done_ - 1 : done_];
    done_ += back ? -1 : 1;
    bytes_ -= step.Bytes();
    RowChanges(rows_, Packed(store_.lvCncProgram)).Apply(store_.lvCncProgram, true);
    step.Rows.Apply(store_.lvCncProgram, back);
    if (step.Text) file_.txtFileNotes.Text = back ? step.Text->Before : step.Text->After;
    if (step.OtherNames) SetNames(std::exchange(*step.OtherNames, NamesNow()));
    if (step.OtherKind) {
        const Kind kind = std::exchange(*step.OtherKind, KindNow());
        store_.Machine = kind.Machine;
        store_.Metric = kind.Metric;
        store_.Horizontal = kind.Horizontal;
    }
    bytes_ += step.Bytes();
    notes_ = file_.txtFileNotes.Text.Get();
    stands_ = std::exchange(step.Other, StandingNow());
    return Move{back ? step.Before : step.After, step.OtherKind.has_value(), ReplacesProgram(step.Name.Kind)};
}

void ProgramHistory::StandAsThen() {
    rows_ = Packed(store_.lvCncProgram);
    store_.ProgramChanged = stands_.Changed;
    store_.SaveFailed = stands_.SaveFailed;
}

}  // namespace kvt
