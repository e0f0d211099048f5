#include <cmath>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "draw/arcs.h"
#include "draw/draw_program.h"
#include "draw/palette.h"
#include "platform/twips.h"

// What each code draws, in the order of the table in draw_program.cpp.
namespace kvt {

namespace {

constexpr int mostCalls = 5;
constexpr double twipsPerHalfPixel = TwipsPerPixel / 2.0;

// The target of a jump: the last three characters of the F cell.
std::int32_t Target(std::string_view cell) { return ToInteger(Val(Right(cell, 3))); }

}  // namespace

Color DrawProgram::Overridden(Ink ink) const {
    return colorOverride_ >= 0 ? static_cast<Color>(colorOverride_) : InkOf(ink, controls_);
}

void DrawProgram::FeedPen(Ink ink) {
    const std::int32_t toolWidth = ToLong(WholePart(state_.ToolWidth));
    field_.DrawWidth = penMode_ == 1 ? 1 : toolWidth;
    // Over a tool as thin as the line of its centre nothing of the stroke would be left. The usual colours have it so.
    const bool hides = pass_ != 1 && toolWidth == 1;
    const bool keepsInk = hides && controls_.mnuDistinctColors.Checked;
    if (hides && !keepsInk) state_.ThinToolHidden = true;
    field_.ForeColor = Overridden(pass_ == 1 || keepsInk ? ink : Ink::ToolCentre);
}

void DrawProgram::Reference() {
    previous_ = current_;
    if (mill_) previousZ_ = Val(Cell(column::ToolZ));
}

void DrawProgram::MarkPlunge() {
    if (!mill_ || !controls_.mnuHoleMarks.Checked || move_.H != 0 || move_.V != 0) return;
    const double z = Val(Cell(column::Z));
    if ((state_.DrawAbsolute ? z - previousZ_ : z) < 0) Mark(HoleMark::Kind::Plunge);
}

// What is drawn over in the tool's width later on is marked once more at the end.
void DrawProgram::Mark(HoleMark::Kind what) {
    const auto radius = static_cast<float>(state_.ToolWidth * twipsPerHalfPixel);
    const HoleMark mark{what, lineIndex_, field_.CurrentX, field_.CurrentY, radius};
    field_.ForeColor = Overridden(Ink::Pen);
    DrawHoleMark(field_, mark);
    if (penMode_ == 0) marks_.push_back(mark);
}

void DrawProgram::Rapid() {
    field_.DrawWidth = 1;
    field_.ForeColor = Overridden(Ink::Rapid);
    field_.Line(startX_, startY_, field_.CurrentX + move_.H, field_.CurrentY + move_.V);
    MarkPlunge();
    Reference();
    Wait();
}

void DrawProgram::Feed() {
    FeedPen(Ink::Feed);
    field_.Line(startX_, startY_, field_.CurrentX + move_.H, field_.CurrentY + move_.V);
    MarkPlunge();
    Reference();
    Wait();
}

void DrawProgram::Arc(bool isG03) {
    FeedPen(isG03 ? Ink::ArcG03 : Ink::ArcG02);
    if (NextLineIsM99()) {
        arcPending_ = true;
        arcIsG03_ = isG03;
        arcLine_ = lineIndex_;
        return;
    }
    ArcCall arc;
    arc.IsG03 = isG03;
    arc.Radius = ToSingle(move_.V);
    arc.DirV = ToSingle(move_.V);
    arc.DirH = ToSingle(move_.H);
    MakeArc(shared_, arc, pass_);
    Reference();
    Wait();
}

// An M99 without an arc in front draws one with the values of the last arc.
void DrawProgram::ArcCentre() {
    arcPending_ = false;
    FeedPen(arcIsG03_ ? Ink::ArcG03 : Ink::ArcG02);
    ArcCall arc;
    arc.IsG03 = arcIsG03_;
    arc.Radius = ToSingle(arcRadius_);
    arc.EndV = ToSingle(move_.V);
    arc.EndH = ToSingle(move_.H);
    arc.CentreV = ToSingle(std::abs(centre_.V));
    arc.CentreH = ToSingle(std::abs(centre_.H));
    MakeArc(shared_, arc, pass_);
    Reference();
    Wait();
}

void DrawProgram::EndOfProgram() { state_.StopRequested = true; }

void DrawProgram::RadiusMode() { state_.DrawRadius = true; }

// Stepping to the next line adds 1: line N is row N + 1, so that the target's number is the row in front of it.
void DrawProgram::Call() {
    const auto depth = static_cast<std::size_t>(callDepth_);
    if (callDepth_ < 0 || depth >= returnStack_.size()) throw RunTimeError(fault::SubscriptOutOfRange);
    returnStack_[depth] = lineIndex_;
    lineIndex_ = std::min(itemCount_, Target(Cell(column::F)));
    if (++callDepth_ > mostCalls) {
        const Texts& texts = shared_.Language;
        shared_.Platform.Dialogs.ShowMessage(
            Notice(texts.DrawErrorTexts(text::TooManyCalls), texts.DrawErrorTexts(text::MostCalls)));
        state_.StopRequested = true;
    }
}

void DrawProgram::Jump() { lineIndex_ = Target(Cell(column::F)); }

// The reference moves along the thread only, whatever the tool position says.
void DrawProgram::Thread() {
    field_.ForeColor = Overridden(Ink::Thread);
    DrawThread(shared_, parts_.Sim, ToSingle(move_.H), ToSingle(pitch_), "G33");
    previous_.H += move_.H;
    Wait();
}

void DrawProgram::ThreadingCycle() {
    field_.ForeColor = Overridden(Ink::Thread);
    DrawBoxOutAndBack(field_, startX_ + move_.H, startY_ + move_.V);
    DrawThread(shared_, parts_.Sim, ToSingle(move_.H), ToSingle(pitch_), "G78");
    Wait();
}

// On the mill a boring has no move in the plane of the drawing, so that nothing shows of it but a mark.
void DrawProgram::Boring() {
    field_.ForeColor = Overridden(Ink::Drilling);
    if (!mill_) {
        field_.DrawWidth = 2;
        field_.LineTo(startX_ + move_.H, startY_);
        field_.LineTo(startX_, startY_);
        field_.DrawWidth = 1;
    } else if (controls_.mnuHoleMarks.Checked) {
        Mark(HoleMark::Kind::Hole);
    }
    Wait();
}

void DrawProgram::TurningCycle() {
    field_.ForeColor = Overridden(Ink::Cycle);
    DrawBoxOutAndBack(field_, startX_ + move_.H, startY_ + move_.V);
    Wait();
}

void DrawProgram::PocketCycle() {
    PocketCall call;
    call.StartX = startX_;
    call.StartY = startY_;
    call.MoveV = move_.V;
    call.MoveH = move_.H;
    call.SignH = Val(Cell(column::X));
    call.SignV = Val(Cell(column::Y));
    call.Ink = InkOf(penMode_ == 0 ? Ink::PocketRow : Ink::Cycle, controls_);
    call.PenWidth = penMode_ == 0 ? state_.ToolWidth : 1;
    call.ToolDiameter = toolDiameter_;
    DrawPocket(shared_, parts_.Sim, call);
    leave_ = state_.StopRequested || state_.Leaving();
    if (!leave_ && penMode_ == 0) FinishingOutline();
}

void DrawProgram::FinishingOutline() {
    field_.ForeColor = Overridden(Ink::Cycle);
    field_.DrawWidth = ToLong(state_.ToolWidth);
    field_.LineTo(state_.PocketX2, state_.PocketY1);
    field_.LineTo(state_.PocketX1, state_.PocketY1);
    field_.LineTo(state_.PocketX1, state_.PocketY2);
    field_.LineTo(state_.PocketX2, state_.PocketY2);
    field_.MoveTo(state_.PocketX1, state_.PocketY1);
    field_.DrawWidth = 1;
}

void DrawProgram::Absolute() {
    state_.DrawAbsolute = true;
    Reference();
}

void DrawProgram::Incremental() { state_.DrawAbsolute = false; }

void DrawProgram::SetRegister() {
    const double v = state_.DrawRadius ? move_.V : move_.V / 2;
    field_.MoveTo(move_.H + state_.ZeroX, v + state_.ZeroY);
    previous_ = current_;
    if (!state_.DrawRadius) previous_.V /= 2;
    state_.DrawAbsolute = true;
}

void DrawProgram::ToolChange() {
    toolDiameter_ = ToSingle(Val(Right(Cell(column::X), 4)));
    state_.ToolWidth = ToSingle(double{toolDiameter_} * state_.DrawScale / twipsPerHalfPixel);
    if (state_.ToolWidth < 1) state_.ToolWidth = 1;
}

void DrawProgram::Return() {
    --callDepth_;
    if (callDepth_ < 0) return;
    if (static_cast<std::size_t>(callDepth_) >= returnStack_.size())
        throw RunTimeError(fault::SubscriptOutOfRange);
    lineIndex_ = returnStack_[static_cast<std::size_t>(callDepth_)];
}

}  // namespace kvt
