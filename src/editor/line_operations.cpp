#include "editor/line_operations.h"

#include <algorithm>
#include <cmath>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "editor/field_format.h"
#include "program/result_cells.h"
#include "program/word.h"

namespace kvt {

namespace {

constexpr const char* lineEditName = "LineEdit";
constexpr const char* formatInputsName = "FormatInputs";
constexpr const char* lineInsertName = "LineInsert";
constexpr const char* lineDeleteName = "LineDelete";
// Places of the fourth and fifth field in the chain.
constexpr std::size_t feedField = 3, hField = 4;

std::string Prefix(std::string_view label, double value) {
    if (KeepsSign(label)) return std::round(value) < 0 ? "-" : " ";
    if (label == "F") return " ";
    return std::string(Left(label, 1));
}

}  // namespace

LineOperations::LineOperations(Parts parts)
    : entry_(parts.Entry),
      layout_(parts.Layout),
      store_(parts.Store),
      view_(parts.View),
      interpreter_(parts.Interpreter),
      calculated_(parts.Calculated),
      texts_(parts.Language),
      platform_(parts.Platform),
      calls_(parts.Calls) {}

ListRow& LineOperations::SelectedRow() { return store_.lvCncProgram.Row(store_.lvCncProgram.SelectedRow()); }

void LineOperations::Renumber(int firstRow) {
    const int lines = store_.LineCount();
    for (int row = firstRow; row <= lines; ++row) {
        store_.lvCncProgram.Row(row)[column::Number] = RightPad(Format(row - 1, "#00"), 3);
    }
}

void LineOperations::MovePointers(int bound, int step) {
    const int rows = store_.lvCncProgram.Count();
    for (int i = 1; i <= rows; ++i) {
        ListRow& row = store_.lvCncProgram.Row(i);
        const Word pointer = ReadWord(row[column::F]);
        if (UpperChar(pointer.Letter) != 'L' || pointer.Value < bound) continue;
        if (BeginsWithIgnoringCase(row[column::Comment], "CMDNORENUM")) continue;
        row[column::F] = "L" + RightPad(Format(pointer.Value + step, "#00"), 3);
    }
}

void LineOperations::LineDelete() {
    ListView& list = store_.lvCncProgram;
    // 1.
    if (store_.LineCount() < 1) return;
    // 2. The open line.
    if (SelectedRow()[column::Number].View().find_first_of("Nn") != std::string_view::npos) return;
    // 3.
    int selected = list.SelectedRow();
    // 4.
    if (entry_.chkSettingsDWC.Value == 0) {
        const Answer answer = platform_.Dialogs.ShowMessage(
            Question(texts_.ErrorTexts(text::DeleteLine), texts_.ErrorTexts(text::DeleteTitle)));
        if (answer == Answer::No) return;
    }
    // 5.
    interpreter_.EndStepRun();
    store_.ProgramChanged = true;
    list.RemoveRow(selected);
    // The deleted line can be written elsewhere as long as it stands in the entry row.
    int& opened = entry_.Opened.Place;
    if (opened == selected) opened = 0;
    if (opened > selected) --opened;
    // 6. Nothing further runs where no line is left: deliberate.
    if (store_.LineCount() < 1) return;
    // 7.
    Renumber(1);
    // 8. A pointer to the deleted line now aims at the line that moved up into its place.
    Attempt(lineDeleteName, [&] { MovePointers(selected, -1); });
    // 9.
    interpreter_.Interpreter();
    // 11.
    if (selected - 1 >= store_.LineCount()) selected = store_.LineCount();
    if (selected > 0) Attempt(lineDeleteName, [&] { list.Select(selected); });
    // 12.
    store_.AddBlankLine(false);
    platform_.Focus.SetFocus(list);
    // 10. Last: a drawing that waits then finds the edit whole.
    Run(calls_.RedrawAfterEdit);
}

void LineOperations::LineInsert() {
    ListView& list = store_.lvCncProgram;
    // 1.
    if (store_.LineCount() >= store_.MaxLines() && !store_.DisableLimitsCheck) {
        platform_.Dialogs.ShowMessage(Notice(texts_.ErrorTexts(text::MaximumLines)));
        return;
    }
    // 2.
    const int top = list.TopRow();
    const int selected = std::max(list.SelectedRow(), 1);
    const int behind = list.Count() - selected + 1;
    // 3.
    store_.ProgramChanged = true;
    entry_.Opened.Forget();
    entry_.lblGMcode.Caption = "G";
    entry_.txtGMcode.Text = "21";
    std::string code = "21";
    layout_.InputFields(code);
    // 4. Rows stand by place; nothing sorts them.
    // 5.
    Attempt(lineInsertName, [&] {
        ListRow& row = list.InsertRow(selected);
        row[column::Number] = RightPad(Format(selected - 1, "#00"), 3);
        row[column::Code] = " 21 ";
        row[column::X] = store_.IsF1() ? "      " : "     ";
        row[column::Y] = "     ";
        row[column::Z] = "      ";
        row[column::F] = "    ";
        row[column::H] = "   ";
        ClearResultCells(row);
        list.Select(selected);
    });
    // 6., 7.
    Renumber(selected + 1);
    // 8., 9. D, the number of the new line, in a list that has its open line.
    const int newLine = store_.LineCount() - behind;
    Attempt(lineInsertName, [&] { MovePointers(newLine, 1); });
    // 10.
    Attempt(lineInsertName, [&] {
        if (view_.chkViewGcode.Value != 0) {
            layout_.CodeDescription();
            list.Row(selected)[column::Comment] = entry_.txtComment.Text;
        } else {
            list.Row(selected)[column::Comment] = "";
        }
    });
    // 11.
    interpreter_.Interpreter();
    store_.AddBlankLine(false);
    // 12.
    Attempt(lineInsertName, [&] { list.EnsureVisible(top + 1); });
    Attempt(lineInsertName, [&] { list.Select(selected); });
    platform_.Focus.SetFocus(list);
}

void LineOperations::LineEdit() {
    // 1.
    entry_.picZXaxes.Visible = false;
    entry_.picXYaxes.Visible = false;
    entry_.cmdReturn.Visible = false;
    // 2.
    if (entry_.txtGMcode.Text.Empty()) return;
    // 3. The Z of an MK2 arc is written by the check pass.
    // 4. What the user has not touched stays.
    if (!KeepsField(entry_, feedField)) {
        Attempt(lineEditName, [&] {
            if (entry_.lblFKTL.Caption == "F" && Val(entry_.txtFKTL.Text) < 2) {
                entry_.txtFKTL.Text = entry_.txtFeedA.Text;
            }
        });
        if (entry_.lblFKTL.Caption == "T" && entry_.txtFKTL.Text.Empty()) entry_.txtFKTL.Text = "01";
    }
    if (!AllFit()) return;
    // 5.
    store_.ProgramChanged = true;
    // 6.
    const bool fillsComment = view_.chkViewGcode.Value != 0 && entry_.txtComment.Text.Empty();
    if (fillsComment && !KeepsComment(entry_)) layout_.CodeDescription();
    // 7.
    ListView& list = store_.lvCncProgram;
    const int edited = list.SelectedRow();
    Attempt(lineEditName, [&] {
        if (KeepsCode(entry_)) {
            Keep(column::Code);
        } else {
            SelectedRow()[column::Code] = CodeCell(entry_);
        }
    });
    // 8.
    FormatInputs();
    // 9.
    Attempt(lineEditName, [&] {
        ListRow& row = SelectedRow();
        ClearResultCells(row);
        if (KeepsComment(entry_)) {
            Keep(column::Comment);
        } else {
            row[column::Comment] = entry_.txtComment.Text;
        }
    });
    // 10.
    interpreter_.Interpreter();
    // 11.
    const bool added = edited == list.Count();
    store_.AddBlankLine(added);
    // A line that was added leaves the row to the next one; another one still stands there.
    if (added) {
        entry_.Opened.Forget();
    } else {
        Attempt(lineEditName, [&] { NoteOpened(entry_, list.Row(edited), edited); });
    }
    // 13.
    entry_.txtGMcode.SelectAll();
    platform_.Focus.SetFocus(entry_.txtGMcode);
    // 12. Last: a drawing that waits then finds the edit whole.
    Attempt(lineEditName, [&] {
        if (!(list.Row(edited)[column::Code] == " 21 ")) Run(calls_.RedrawAfterEdit);
    });
}

void LineOperations::Keep(int column) {
    // The row that was opened may have changed since, by a conversion say: it keeps what it has.
    if (entry_.Opened.Place != store_.lvCncProgram.SelectedRow())
        SelectedRow()[column] = entry_.Opened.Row[column];
}

bool LineOperations::AllFit() {
    const auto fields = entry_.Fields();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto& [label, box] = fields[i];
        if (!box.Visible || KeepsField(entry_, i)) continue;
        const double value = std::round(Val(box.Text));
        const bool signDrops = value < 0 && !KeepsSign(label.Caption);
        if (!signDrops && std::abs(value) <= FieldFormats[i].Largest(store_.IsF1())) continue;
        if (!calculated_.EvalText(box)) return false;
    }
    return true;
}

void LineOperations::FormatInputs() {
    ListView& list = store_.lvCncProgram;
    const bool mill = store_.IsF1();
    // 1.
    Attempt(formatInputsName,
            [&] { SelectedRow()[column::Number] = RightPad(Format(list.SelectedRow() - 1, "#00"), 3); });
    // 2. to 4.
    const auto fields = entry_.Fields();
    for (std::size_t i = 0; i < hField; ++i) {
        const FieldFormat& format = FieldFormats[i];
        const EntryRow::Field& field = fields[i];
        const std::size_t digits = format.Digits(mill);
        Attempt(formatInputsName, [&] {
            if (KeepsField(entry_, i)) return Keep(format.Column);
            std::string cell(digits + 1, ' ');
            if (field.Box.Visible) {
                const double value = Val(field.Box.Text);
                cell = Prefix(field.Caption.Caption, value) +
                       RightPad(Format(std::abs(value), format.Pattern), digits);
            }
            SelectedRow()[format.Column] = cell;
        });
    }
    // 5. On the mill H stands in the column of F.
    Attempt(formatInputsName, [&] {
        ListRow& row = SelectedRow();
        const bool keeps = KeepsField(entry_, hField);
        if (keeps || (mill && KeepsCode(entry_))) {
            Keep(column::H);
        } else {
            row[column::H] = "   ";
        }
        if (keeps || !entry_.txtH.Visible) return;
        const FieldFormat& format = FieldFormats[hField];
        row[mill ? column::F : column::H] =
            RightPad(Format(std::abs(Val(entry_.txtH.Text)), format.Pattern), format.Digits(mill));
    });
    // 6.
    Attempt(formatInputsName, [&] {
        if (EqualIgnoringCase(entry_.txtGMcode.Text, "99R")) {
            store_.M99Radius = static_cast<float>(Val(entry_.txtXI.Text));
        }
    });
}

}  // namespace kvt
