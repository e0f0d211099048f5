#pragma once

#include <array>
#include <string_view>

#include "draw/cycles.h"
#include "draw/editor_line.h"
#include "draw/hole_marks.h"
#include "draw/palette.h"
#include "draw/program_window.h"
#include "draw/stroke_guide.h"
#include "draw/viewport.h"

namespace kvt {

// One walk over the lines of the program, which draws each of them. It reads the rows with a line counter of its
// own, following jumps and calls, and takes the tool positions that the check pass has written.
class DrawProgram {
public:
    struct Parts {
        DrawParts& Shared;
        Viewport& View;
        Simulation& Sim;
        ProgramWindow& Listing;
        EditorLine& Editor;
        StrokeGuide& Strokes;
        std::function<void()> PositionControls;
    };

    // PenMode 1 draws with a pen of one pixel, 0 feed moves in the tool's width. Pass 1 is a full drawing, any
    // other an overlay in white over that.
    DrawProgram(Parts& parts, int penMode, int pass);

    // A run-time failure leaves the field as drawn so far, and Drawing set.
    void Run();

private:
    // A place or a move on the field, in twips.
    struct Pair {
        double V = 0;
        double H = 0;
    };
    struct CodeRule {
        std::uint32_t Code;
        void (DrawProgram::*Draw)();
    };
    static const CodeRule rules[];

    void Begin();
    void End();
    // One line; false where the walk is to be left.
    bool ProcessLine();
    // The command in a line's comment. What is to be done next.
    enum class Next { DrawLine, EndOfLine, LeaveProgram };
    Next Command(std::string_view comment);
    void ReadCode();
    void ReadValues();
    void ReadCentre();
    void Dispatch();
    bool EndOfLine();

    // One procedure for each rule of the table.
    void Rapid();
    void Feed();
    void ArcG02() { Arc(false); }
    void ArcG03() { Arc(true); }
    void ArcCentre();
    void EndOfProgram();
    void RadiusMode();
    void Call();
    void Jump();
    void Thread();
    void ThreadingCycle();
    void Boring();
    void TurningCycle();
    void PocketCycle();
    void Absolute();
    void Incremental();
    void SetRegister();
    void ToolChange();
    void Return();

    void Arc(bool isG03);
    void FinishingOutline();
    void FeedPen(Ink ink);
    // The colour of a meaning, or that which the line has in a comment.
    Color Overridden(Ink ink) const;
    void Reference();
    // Marks the pen's place where the line moves the mill's tool down and nothing else.
    void MarkPlunge();
    void Mark(HoleMark::Kind what);
    void RepeatMarks();
    void Wait();
    void FocusStepButton();
    // Whether someone is to see how the drawing grows.
    bool IsWatched() const {
        return pass_ == 1 && (state_.Interval > 1 || state_.StepMode) && !state_.CatchesUp();
    }
    bool NextLineIsM99() const;
    std::string_view Cell(int column) const;

    Parts& parts_;
    DrawParts& shared_;
    DrawControls& controls_;
    DrawState& state_;
    PictureBox& field_;
    const ProgramStore& store_;
    const ListView& list_;
    const int penMode_;
    const int pass_;
    const bool mill_;

    std::int32_t lineIndex_ = 1;
    std::int32_t itemCount_ = 0;
    std::int32_t colorOverride_ = -1;
    std::array<std::int32_t, 6> returnStack_{};
    std::int32_t callDepth_ = 0;
    bool arcPending_ = false;
    bool arcIsG03_ = false;
    std::int32_t arcLine_ = 0;
    Pair previous_, current_;
    double previousZ_ = 0;  // program units, of the last absolute reference
    std::vector<HoleMark> marks_;
    Pair move_;    // V and H of the line
    Pair centre_;  // CV and CH of an M99
    double arcRadius_ = 0;
    double pitch_ = 0;  // P
    float toolDiameter_ = 1;
    float startX_ = 0, startY_ = 0;
    std::uint32_t code_ = 0;
    bool leave_ = false;
};

}  // namespace kvt
