#pragma once

#include <string>
#include <vector>

#include "files/iso/arcs.h"
#include "files/iso/blocks.h"
#include "files/iso/machine_program.h"

namespace kvt::iso {

// Turns the common ISO code of a CAM post into a program of one machine: G00 to G04, G17 to G21, G40, G54 to G59,
// G70, G71, G80, G90 to G97 and G50 and G92 with a position; M00 to M09 and M30. The result is in absolute measures
// and begins with the position of the tool. What the machine cannot do is a Refusal.
class Converter {
public:
    explicit Converter(MachineModel machine);

    MachineProgram Convert(const std::vector<Block>& blocks);
    // What the user should know: what was left out, where the tool must stand before the start.
    const std::vector<std::string>& Remarks() const { return remarks_; }

private:
    // An axis: where it is, in units of the program as it comes out, and whether that is known. X of a lathe is a
    // diameter.
    struct Axis {
        char Letter;
        double At = 0;
        bool Known = false;
        double Target = 0;
    };

    bool Lathe() const { return program_.Machine != MachineModel::F1; }
    [[noreturn]] void Refuse(const std::string& why) const;
    void Remark(const std::string& text);
    void Remark(const Block& block, const std::string& text) { Remark(LineText(block.Line) + text); }
    static std::string LineText(int line);

    void ConvertBlock(const Block& block);
    void ApplyGCode(const Word& word);
    void ApplyModalCode(int code, const Word& word);
    void ApplyMCode(const Word& word);
    void ApplyNumber(const Word& word);
    void SwitchSpindle(bool on);
    void ChangeTool();
    void Dwell(const Block& block);
    bool SkipsBlock(const Block& block);

    // The move of one block.
    // Reads where the block goes; false where it names no axis.
    bool FindTarget(const Block& block);
    void SetPosition();
    void AddStartPosition();
    void Move(const Block& block);
    void MoveStraight(bool rapid);
    void MoveOnArc(const Block& block);
    bool FindCenter(const Block& block, Arc& arc) const;
    void AddArcPiece(Point end, const Arc& arc, bool maySplit = true);
    bool PassesQuadrantLimit(Point start, Point stop, double radius, bool clockwise) const;
    Point SplitPoint(const Arc& arc, Point stop, double radius) const;

    Row& AddRow(const std::string& code);
    void AddPosition(const std::string& code, bool feeds);
    int FeedNumber();
    int ToWhole(double value) const;
    double ToProgramUnits(double value) const;
    Point PointOf(double x, double other) const;
    // The same with what the columns will hold.
    Point WholePoint(Point point) const;
    void GoTo(Point point);
    // What a point has in X, a radius on lathes.
    double AcrossOf(Point point) const { return Lathe() ? point.B : point.A; }

    MachineProgram program_;
    std::vector<std::string> remarks_;
    std::vector<Axis> axes_;
    std::string comment_;
    int line_ = 0;

    // Modal state.
    int motion_ = -1;
    bool absolute_ = true;
    bool metric_ = true;
    bool unitsSet_ = false;
    bool perTurn_ = false;
    double feed_ = 0;
    double speed_ = 0;
    double spindleSpeed_ = -1;  // what the spindle was last switched to, 0 for off
    int tool_ = -1;
    bool begun_ = false;
    bool ended_ = false;

    // Of the block at work.
    bool setsPosition_ = false;
    bool dwells_ = false;
    bool referenceReturn_ = false;
    bool toolChange_ = false;
    int stop_ = -1;
    int spindle_ = -1;
    bool end_ = false;
};

// The first word of a letter, null where the block has none.
const Word* FindWord(const Block& block, char letter);

}  // namespace kvt::iso
