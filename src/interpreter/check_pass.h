#pragma once

#include <array>
#include <string>

#include "interpreter/interpreter.h"
#include "interpreter/parameter_checks.h"
#include "program/code_key.h"

namespace kvt {

// X is programmed as a diameter and kept as a radius.
inline constexpr float diameterFactor = 0.5F;

// The name under which faults inside a run are reported.
inline constexpr const char* interpreterName = "Interpreter";

// One run of the check pass with its working values. Lengths are program units (1/100 mm or 1/1000 inch),
// times seconds, angles degrees. Rules in the order that they run: flow, arcs, cycles, positions, mill.
class CheckPass {
public:
    explicit CheckPass(ControlInterpreter& interpreter);

    // Both passes and what ends a run.
    void Run();

private:
    void Pass1();
    void Pass2();

    // How a step leaves the run: it goes on; a finding has ended it; another run has gone through meanwhile.
    enum class Next { GoOn, EndRun, Abandoned };
    enum class Plane { None, XY, XZ, YZ };

    // One row of pass 2.
    Next Step();
    Next WaitForStep();
    void ReadValues();
    void ReadTargets();
    void WorkOutMove();

    // Rules of the key.
    Next ApplyKey();
    // Flow.
    Next SubroutineCall();
    Next Jump();
    Next EndlessLoop(int target);
    Next Return();
    void EndOfProgram();
    // Arcs.
    Next Arc();
    void DeriveMK2ArcZ();
    void ReadNextLine();
    Next FindRadius();
    Next RadiusFromNextLine();
    Next RadiusOfQuadrant();
    void WriteArcCenter();
    Next ArcCenterLine();
    Next ArcRadiusLine();
    bool FollowsArc() const;
    bool OverQuadrantLimit() const;
    void RewriteRadiusLine();
    // Cycles.
    void RestorePosition();
    Next CountRepeats();
    float CycleDistance() const;
    void CycleComment();
    float CutDistance() const;

    // Positions, times.
    void ApplyMove();
    void ThreadMove();
    void LineAngle();
    void SetRegister();
    void ChoosePlane();
    void SetPlane(Plane plane);
    void UpdateAxes();
    void WriteToolCells();
    void ChangeTool();
    void WriteTime();
    double TimeOfLine();
    double MoveTime(double feed);
    double ArcTime(double feed);

    // Mill rules.
    void No3d();
    void MustFollowToolChange();
    Next Pocket();
    bool PocketHoldsTool() const;

    // Writes a finding into the row and its error state; the run goes on.
    void ReportFinding(std::string_view finding);
    // The same, and the run ends.
    Next EndWith(ProgramErrorText finding);
    // An angle with one decimal from half the chord over the radius; nothing where the chord is too long.
    void WriteArcAngle(double half);

    // The two axes of the active plane: U and V of a point. Nothing where there is no plane yet.
    void InPlane(float x, float y, float z, float& u, float& v) const;
    // Puts the counters and axes as far as the run has come onto their labels.
    void ShowProgress();
    void FinishRun();

    ControlInterpreter& interpreter_;
    ProgramStore& store_;
    ListView& list_;
    const Texts& texts_;
    const ParameterChecks checks_;
    const long run_;
    const bool mk2_;
    const bool mill_;

    // Of the whole run.
    int row_ = 0;  // a jump sets it for the next step
    float xFactor_ = 1;
    int depth_ = 0;
    std::array<int, 6> returnStack_ = {};  // entry 0 is never used
    int selectedRow_ = 0;
    int linesExecuted_ = 0;
    float totalTime_ = 0;
    bool toolFound_ = false;
    float toolRadius_ = 0;
    bool nextIsM99_ = false;
    bool nextIsM99R_ = false;
    double i_ = 0, j_ = 0, k_ = 0;  // centre offsets of the last M99 that followed an arc
    double arcLength_ = 0;
    CodeKey describedKey_ = 0;  // the cycle whose description was looked up last
    std::string description_;
    Plane plane_ = Plane::None;  // the same as ActivePlane
    struct Range {
        float Min = 0;
        float Max = 0;
        bool Include(float value);
    };
    Range xRange_, yRange_, zRange_;
    bool axesStale_ = true;
    bool axesKnown_ = false;

    // Of the step under way.
    int itemRow_ = 0;  // the row that the step took
    ListRow* item_ = nullptr;
    CodeKey key_ = 0;
    RowValues raw_;
    double xNumber_ = 0, yNumber_ = 0, zNumber_ = 0;  // the cells as numbers; 0 behind a letter
    float xTarget_ = 0, yTarget_ = 0, zTarget_ = 0;
    float xBefore_ = 0, yBefore_ = 0, zBefore_ = 0;
    float x_ = 0, y_ = 0, z_ = 0;
    float dX_ = 0, dY_ = 0, dZ_ = 0;
    float radius_ = 0;
    float repeats_ = 0;
    bool quadrantFlag_ = false;
    bool invalidArcFlag_ = false;
    std::string comment_;
};

// The whole part of the distance between two points.
double ArcDistance(double aU, double aV, double bU, double bV);

// The centre of the arc of a radius from start to end; direction true for the sense of " 02 " on a lathe. The
// coordinates are truncated to whole numbers. A radius of 0 leaves the centre; a chord longer than the
// diameter is error 5.
void FindCenter(float startU, float startV, float endU, float endV, float radius, bool direction,
                float& centerU, float& centerV);

}  // namespace kvt
