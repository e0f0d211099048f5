#include "editor/conversion.h"

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "program/edit_step.h"
#include "program/word.h"

namespace kvt {

namespace {

constexpr const char* convertName = "Convert";
constexpr double inchToMetric = 2.54;

// A parameter column: how its digits are written, and how wide they are on a lathe and on the mill.
struct ScaledColumn {
    int Column;
    const char* Pattern;
    int LatheWidth;
    int MillWidth;
};
constexpr ScaledColumn scaledColumns[] = {
    {column::X, "##00", 4, 5},
    {column::Y, "##00", 0, 4},
    {column::Z, "###00", 5, 5},
    {column::F, "#00", 3, 3},
};

// Whether a cell holds a length. The spindle speed of the mill does not; in column 6 a feed above 1 and a thread
// pitch do, pointers and tools do not.
bool IsLength(const Cell& cell, int col) {
    if (Trim(cell.View()).empty()) return false;
    if (col == column::Y) return UpperChar(cell.View()[0]) != 'S';
    if (col != column::F) return true;
    const Word word = ReadWord(cell);
    return word.Letter == 0 ? word.Value > 1 : UpperChar(word.Letter) == 'K';
}

}  // namespace

Conversion::Conversion(Form& form, ProgramStore& store, MachineControls& machine, EntryRow& entry,
                       WorkbenchCalls& calls)
    : mnuCalculator(form, "mnuCalculator", "Calculator"),
      mnuDelComments(form, "mnuDelComments", "Delete all comments"),
      store_(store),
      machine_(machine),
      entry_(entry),
      calls_(calls) {
    mnuDelComments.OnClick = [this] { mnuDelComments_Click(); };
    machine_.mnuINCHtoMM.OnClick = [this] { Convert(inchToMetric); };
    machine_.mnuMMtoINCH.OnClick = [this] { Convert(1 / inchToMetric); };
}

void Conversion::Convert(double factor) {
    const int lines = store_.LineCount();
    if (lines == 0) return;
    const EditStep step(calls_, {StepKind::Conversion});
    store_.ProgramChanged = true;
    ListView& list = store_.lvCncProgram;
    const int selected = list.SelectedRow();
    // Every line is converted, whatever its code. A number that does not fit is reported and not stored, so its column gets
    // the one that was converted before it.
    std::int16_t number = 0;
    for (int row = 1; row <= lines; ++row) {
        for (const ScaledColumn& one : scaledColumns) {
            Cell& cell = list.Row(row)[one.Column];
            bool scales = false;
            Attempt(convertName, [&] { scales = IsLength(cell, one.Column); });
            if (!scales) continue;
            const int width = store_.IsF1() ? one.MillWidth : one.LatheWidth;
            // The first character is the sign or the letter, and stays. Where a file has brought a number without
            // either it is a digit already.
            const char first = cell.View()[0];
            const bool isNumber = first >= '0' && first <= '9';
            const std::string_view digits = isNumber ? cell.View() : Right(cell.View(), width);
            Attempt(convertName, [&] { number = ToInteger(Val(digits) * factor); });
            std::string text(1, isNumber ? ' ' : first);
            text += RightPad(Format(number, one.Pattern), static_cast<std::size_t>(width));
            cell = text;
        }
    }
    list.RowsChanged();
    list.Select(selected);
    machine_.SetUnits(UnitsOf(factor == inchToMetric));
    if (const int opened = entry_.Opened.Place; opened > 0) {
        FillFields(entry_, list.Row(opened), store_.IsF1());
        RememberOpenedLine(entry_, list.Row(opened), opened);
    }
}

void Conversion::mnuDelComments_Click() {
    const EditStep step(calls_, {StepKind::CommentsDeleted});
    ListView& list = store_.lvCncProgram;
    for (int row = 1; row <= list.Count(); ++row) list.Row(row)[column::Comment] = "";
    list.RowsChanged();
    store_.ProgramChanged = true;
}

}  // namespace kvt
