#include "program/program_store.h"

#include "basic/text.h"

namespace kvt {

namespace {

bool HoldsN(std::string_view number) { return number.find_first_of("Nn") != std::string_view::npos; }

}  // namespace

ProgramStore::ProgramStore(Form& form) : lvCncProgram(form, "lvCncProgram") {
    LimitValues.Fill(DisableLimitsCheck);
}

bool ProgramStore::IsMK2() const { return EqualIgnoringCase(Machine, "MK2"); }

bool ProgramStore::IsMK4() const { return EqualIgnoringCase(Machine, "MK4"); }

bool ProgramStore::IsF1() const { return EqualIgnoringCase(Machine, "F1"); }

int ProgramStore::LineCount() const {
    const int rows = lvCncProgram.Count();
    return rows > 0 && HoldsN(lvCncProgram.Row(rows)[column::Number]) ? rows - 1 : rows;
}

int ProgramStore::MaxLines() const {
    const int cap = IsMK2() ? 160 : 210;
    return EndCodePresent ? cap : cap - 1;
}

void ProgramStore::AddBlankLine(bool selectNew) {
    ListView& list = lvCncProgram;
    // 1. One blank row is enough.
    if (list.Count() > 0 && BeginsWithIgnoringCase(list.Row(list.Count())[column::Number], "N")) return;
    // 2. A row at the end.
    const int selected = LineCount() < 1 ? 1 : list.SelectedRow();
    ListRow& blank = list.AddRow();
    blank[column::Number] = "NN";
    for (int c = column::Code; c <= column::Comment; ++c) blank[c] = " ";
    list.RowsChanged();
    // 3., 4. Select the new row, or the place that was selected.
    const int row = selectNew ? list.Count() : selected;
    list.Select(row);
    list.EnsureVisible(row);
}

}  // namespace kvt
