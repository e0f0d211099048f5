#pragma once

#include <string>
#include <string_view>

#include "platform/list_view.h"
#include "program/limits.h"
#include "program/machine.h"

namespace kvt {

// Columns of a program row. Column header c + 1 belongs to column c.
namespace column {
inline constexpr int Number = 1, Code = 2, X = 3, Y = 4, Z = 5, F = 6, H = 7, Error = 8, ToolX = 9,
                     ToolY = 10, ToolZ = 11, CenterX = 12, CenterY = 13, CenterZ = 14, Radius = 15,
                     Angle = 16, Time = 17, Comment = 18;
inline constexpr int Count = 19;
static_assert(Count <= ListRow::Capacity);
}  // namespace column

inline constexpr int ErrorHeader = 9;

// The selected row, the radius of an M99R, and the arc that an earlier pass has left.
struct PassBeginning {
    int SelectedRow = 0;
    float M99Radius = 0;
    float StartU = 0, StartV = 0, EndU = 0, EndV = 0, CenterU = 0, CenterV = 0;
};

// The program and the state that several rooms read. The rows of lvCncProgram are the program: row i holds
// line number i - 1, and whoever reads it parses the cells anew. Numbers in cells are whole numbers of
// 1/100 mm when Metric, 1/1000 inch otherwise.
struct ProgramStore {
    explicit ProgramStore(Form& form);

    ListView lvCncProgram;

    // Settings.
    MachineModel Machine = MachineModel::MK4;
    bool Metric = true;
    bool Horizontal = false;
    bool DisableLimitsCheck = false;
    Color AbsColor = 0x000000;
    Color IncrColor = 0xFF0000;
    LimitTable LimitValues;

    // State of the check pass that outlives it.
    bool AbsoluteMode = false;
    bool RadiusMode = false;
    bool EndCodePresent = false;
    bool ArcPresent = false;
    bool ProgramChanged = false;
    // The last save of the program has not reached its file: what was to be saved is here alone.
    bool SaveFailed = false;
    bool EditorRunMode = false;
    bool StepGranted = false;
    bool ErrorFlagged = false;
    int ErrorRow = 0;
    float ErrorLine = 0;
    std::string ActivePlane;
    float ArcStartU = 0, ArcStartV = 0, ArcEndU = 0, ArcEndV = 0, ArcCenterU = 0, ArcCenterV = 0;
    float M99Radius = 0;
    // What the last pass has found besides the rows when it began: what it shows depends on it.
    PassBeginning LastPass;

    bool TransmitActive = false;

    // What a pass that begins now finds; and putting that back.
    PassBeginning PassNow() const;
    void PutBack(const PassBeginning& pass);

    // Whether the user has something to lose here: changes, or a save that has failed.
    bool Unsaved() const { return ProgramChanged || (SaveFailed && LineCount() > 0); }
    // The same where there are lines: a program that has lost its last one is nothing to lose.
    bool HasUnsavedLines() const { return LineCount() > 0 && Unsaved(); }
    bool IsMK2() const { return Machine == MachineModel::MK2; }
    bool IsMK4() const { return Machine == MachineModel::MK4; }
    bool IsF1() const { return Machine == MachineModel::F1; }

    // Number of program lines; the trailing "NN" row does not count.
    int LineCount() const;
    // What the control of the machine holds; one less while no end code is present, which reserves its row.
    int MaxLines() const;
    // Restores the trailing blank row after any change of the rows, and selects it or the row selected before.
    void AddBlankLine(bool selectNew);
};

}  // namespace kvt
