#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "files/file_controls.h"
#include "program/edit_step.h"
#include "program/program_store.h"
#include "program/row_changes.h"

namespace kvt {

// What the user has done to the program, to be taken back step by step and done again: its rows, notes, machine, units
// and name. A step holds what it has changed: a line some 100 bytes, another program the rows of both. They take
// MostBytes in all; beyond that the oldest go, but never the newest, whatever its size. So a thousand steps are there
// even where each has replaced a program of 210 lines with full comments.
//
// The user's settings, the feed presets among them, are no part of a step.
class ProgramHistory {
public:
    static constexpr std::size_t MostBytes = std::size_t{64} << 20;

    ProgramHistory(ProgramStore& store, FileControls& file) : store_(store), file_(file) {}

    // From here on steps are kept; what was before is forgotten.
    void Start();
    // A step begins and ends; see EditStep. A step that has changed nothing is none.
    void Begin(StepName name);
    void End();
    // The file of the program holds it now. In none of the other steps does it hold what it held then.
    void Saved();
    // Notes that were typed become a step of their own, which is left by the next other one.
    void TakeNotes();
    // Whether hands have edited the notes since, by typing or by taking that back.
    bool NotesWereEdited() const;

    // What would be taken back and done again; null where there is nothing.
    const StepName* ToUndo() const;
    const StepName* ToRedo() const;
    int Steps() const { return static_cast<int>(done_); }
    std::size_t Bytes() const { return bytes_; }
    // Whether a step is under way, in which none can be taken back.
    bool IsOpen() const { return depth_ > 0; }

    // Where the user was in the list, and what the last pass worked with besides the program.
    struct Place {
        int Selected = 0, Top = 1;
        PassBeginning Pass;
    };
    // What one step back or forward has brought: where the user was, whether machine or units are others now, and
    // whether it is another program.
    struct Move {
        Place Where;
        bool OtherMachine = false, OtherProgram = false;
    };
    // Take back the last step and do it again, in rows, notes, name, machine and units; nothing where there is none. The
    // results of the rows, and what shows the rest, are the caller's; then StandAsThen.
    std::optional<Move> Undo() { return Go(true); }
    std::optional<Move> Redo() { return Go(false); }
    // Says whether the program that has come back is unsaved.
    void StandAsThen();

private:
    struct Standing {
        bool Changed = false, SaveFailed = false;
    };
    struct Kind {
        MachineModel Machine;
        bool Metric, Horizontal;
        bool operator==(const Kind&) const = default;
    };
    struct Names {
        std::string Path, Title, InDialog, LastProgram;
        bool OfSource = false;
        bool operator==(const Names&) const = default;
    };
    struct Notes {
        std::string Before, After;
    };
    struct Step {
        StepName Name;
        RowChanges Rows;
        Place Before, After;
        std::unique_ptr<Notes> Text;
        // Of the side that the program is not on now.
        Standing Other;
        std::unique_ptr<Names> OtherNames;
        std::optional<Kind> OtherKind;
        std::size_t Bytes() const;
    };
    // What the program was when the open step began.
    struct Beginning {
        StepName Name;
        Place Where;
        Standing Stands;
        Kind Of;
        Names Called;
    };

    std::optional<Move> Go(bool back);
    void Add(Step step);
    void DropOldest();
    Place PlaceNow() const;
    Standing StandingNow() const { return {store_.ProgramChanged, store_.SaveFailed}; }
    Kind KindNow() const { return {store_.Machine, store_.Metric, store_.Horizontal}; }
    Names NamesNow() const;
    void SetNames(const Names& names);
    bool NotesWereTyped() const { return started_ && !(file_.txtFileNotes.Text == notes_); }
    // All is behind the last step what it is now.
    void Sync();

    ProgramStore& store_;
    FileControls& file_;
    std::vector<Step> steps_;
    std::size_t done_ = 0;  // the rest can be done again
    std::size_t bytes_ = 0;
    int depth_ = 0;
    bool started_ = false;
    std::optional<Beginning> open_;
    // Behind the last step: rows, notes, and whether the program was unsaved. What changes rows outside of a step, a
    // pass that writes the comments of cycles, goes with the next one.
    PackedRows rows_;
    std::string notes_;
    Standing stands_;
};

}  // namespace kvt
