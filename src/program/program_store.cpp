#include "program/program_store.h"

#include <algorithm>

#include "basic/text.h"

namespace kvt {

namespace {

bool HoldsN(std::string_view number) { return number.find_first_of("Nn") != std::string_view::npos; }

}  // namespace

ProgramStore::ProgramStore(Form& form) : lvCncProgram(form, "lvCncProgram") {
    lvCncProgram.EmphasisedColumn = column::Error;
    lvCncProgram.FirstColoredColumn = column::Number;
    lvCncProgram.LastColoredColumn = column::H;
    LimitValues.Fill(DisableLimitsCheck);
}

PassBeginning ProgramStore::PassNow() const {
    return {lvCncProgram.SelectedRow(),
            M99Radius,
            ArcStartU,
            ArcStartV,
            ArcEndU,
            ArcEndV,
            ArcCenterU,
            ArcCenterV};
}

void ProgramStore::PutBack(const PassBeginning& pass) {
    if (lvCncProgram.Count() > 0) lvCncProgram.Select(std::clamp(pass.SelectedRow, 1, lvCncProgram.Count()));
    M99Radius = pass.M99Radius;
    ArcStartU = pass.StartU;
    ArcStartV = pass.StartV;
    ArcEndU = pass.EndU;
    ArcEndV = pass.EndV;
    ArcCenterU = pass.CenterU;
    ArcCenterV = pass.CenterV;
}

int ProgramStore::LineCount() const {
    const int rows = lvCncProgram.Count();
    return rows > 0 && HoldsN(lvCncProgram.Row(rows)[column::Number]) ? rows - 1 : rows;
}

int ProgramStore::MaxLines() const {
    const int cap = FactsOf(Machine).MostLines;
    return EndCodePresent ? cap : cap - 1;
}

void ProgramStore::AddBlankLine(bool selectNew) {
    ListView& list = lvCncProgram;
    // One blank row is enough.
    if (list.Count() > 0 && BeginsWithIgnoringCase(list.Row(list.Count())[column::Number], "N")) return;
    const int selected = LineCount() < 1 ? 1 : list.SelectedRow();
    ListRow& blank = list.AddRow();
    blank[column::Number] = "NN";
    for (int c = column::Code; c <= column::Comment; ++c) blank[c] = " ";
    list.RowsChanged();
    const int row = selectNew ? list.Count() : selected;
    list.Select(row);
    list.EnsureVisible(row);
}

}  // namespace kvt
