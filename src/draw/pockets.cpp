#include <cmath>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "draw/cycles.h"

namespace kvt {

namespace {

constexpr const char* drawPocketName = "DrawPocket";

// Where a pocket goes from its start corner: the signs of the far corner's margin, the side of the near X and of
// the first row, and which way rows go on the field.
struct PocketQuadrant {
    int MarginX, MarginY;
    int SideX, SideY;
    int Dir;
    // The last row's offset in tool radii, where it is an even one. The odd one's is always +1, as the clearing path has
    // always been shown.
    int EvenOffset;
};

constexpr PocketQuadrant pocketQuadrants[] = {
    {-1, 1, 1, -1, -1, 1},
    {-1, -1, 1, 1, 1, -1},
    {1, -1, -1, 1, 1, -1},
    {1, 1, -1, -1, -1, 1},
};

const PocketQuadrant& QuadrantOf(double signH, double signV) {
    if (signH > 0) return pocketQuadrants[signV > 0 ? 0 : 1];
    return pocketQuadrants[signV < 0 ? 2 : 3];
}

class Pocket {
public:
    Pocket(DrawParts& parts, Simulation& waits, const PocketCall& call)
        : field_(parts.Controls.pbxDrawField),
          state_(parts.State),
          waits_(waits),
          call_(call),
          quadrant_(QuadrantOf(call.SignH, call.SignV)) {}

    void Draw() {
        SetUp();
        if (Clear()) Outline();
    }

private:
    void SetUp() {
        field_.ForeColor = call_.Ink;
        field_.DrawWidth = ToLong(call_.PenWidth);
        const double diameter = call_.ToolDiameter;
        rowStep_ = (diameter * 2 - diameter / 2) * state_.DrawScale;
        toolRadius_ = diameter / 2 * state_.DrawScale;
        state_.PocketX1 = call_.StartX;
        state_.PocketY1 = call_.StartY;
        const double margin = diameter * (state_.DrawAbsolute ? 1 : 2) * state_.DrawScale;
        state_.PocketX2 = ToSingle(call_.StartX + call_.MoveH + quadrant_.MarginX * margin);
        state_.PocketY2 = ToSingle(call_.StartY + call_.MoveV + quadrant_.MarginY * margin);
        nearX_ = state_.PocketX1 + quadrant_.SideX * toolRadius_;
        farX_ = state_.PocketX2 - quadrant_.SideX * toolRadius_;
    }

    void Stroke(double x, double y) {
        field_.LineTo(x, y);
        waits_.WaitTimer();
    }

    bool EndPassed() const {
        const double y = state_.PocketY1 + quadrant_.Dir * rowStep_ * row_;
        return quadrant_.Dir < 0 ? y < state_.PocketY2 : y > state_.PocketY2;
    }

    // A row to and fro, from one side to the other; the last one with the fitted step.
    void DrawRow(double fromX, double toX, double offset) {
        const double y = state_.PocketY1 + offset + quadrant_.Dir * rowStep_ * row_;
        Stroke(fromX, y);
        Stroke(toX, y);
    }

    // The serpentine. False where it was stopped.
    bool Clear() {
        const double firstY = state_.PocketY1 + quadrant_.SideY * toolRadius_;
        field_.MoveTo(nearX_, firstY);
        waits_.WaitTimer();
        Stroke(farX_, firstY);
        // Odd rows come back, even ones go out again.
        for (bool odd = true;; odd = !odd) {
            ++row_;
            const double from = odd ? farX_ : nearX_;
            const double to = odd ? nearX_ : farX_;
            if (EndPassed()) {
                rowStep_ = std::abs((double{state_.PocketY2} - state_.PocketY1) / row_);
                DrawRow(from, to, (odd ? 1 : quadrant_.EvenOffset) * toolRadius_);
                return !state_.Leaving();
            }
            DrawRow(from, to, 0);
            // A tool without a diameter never comes to the end, so that events are served in every row.
            waits_.ServeEvents();
            if (state_.Leaving() || (state_.StopRequested && !odd)) return false;
        }
    }

    void Outline() {
        Stroke(state_.PocketX2, state_.PocketY1);
        Stroke(state_.PocketX1, state_.PocketY1);
        Stroke(state_.PocketX1, state_.PocketY2);
        Stroke(state_.PocketX2, state_.PocketY2);
        field_.DrawWidth = 1;
        field_.MoveTo(state_.PocketX1, state_.PocketY1);
    }

    PictureBox& field_;
    DrawState& state_;
    Simulation& waits_;
    const PocketCall& call_;
    const PocketQuadrant& quadrant_;
    double rowStep_ = 0;
    double toolRadius_ = 0;
    double nearX_ = 0;
    double farX_ = 0;
    std::int32_t row_ = 0;
};

}  // namespace

void DrawPocket(DrawParts& parts, Simulation& waits, const PocketCall& call) {
    Attempt(drawPocketName, [&] { Pocket(parts, waits, call).Draw(); });
}

}  // namespace kvt
