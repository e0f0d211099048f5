#include "editor/line_operations.h"

#include <algorithm>
#include <cmath>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "editor/field_format.h"
#include "program/edit_step.h"
#include "program/line_text.h"
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

char Prefix(char letter, double value) {
    if (HasSignPlace(letter)) return std::round(value) < 0 ? '-' : ' ';
    return letter == 'F' ? ' ' : letter;
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

// The settings lie over the list: nothing happens to a line that cannot be seen.
void LineOperations::ShowList() { Run(calls_.HideSettings); }

void LineOperations::LineDelete() {
    ListView& list = store_.lvCncProgram;
    if (store_.LineCount() < 1) return;
    // The open line.
    if (SelectedRow()[column::Number].View().find_first_of("Nn") != std::string_view::npos) return;
    ShowList();
    int selected = list.SelectedRow();
    if (entry_.chkSettingsDWC.Value == 0) {
        MessageBox box = Question(texts_.ErrorTexts(text::DeleteLine), texts_.ErrorTexts(text::DeleteTitle));
        box.Details = Filled(texts_.EntryTexts(EntryText::Line), {LineNumber(selected)}) + ": " +
                      LineText(SelectedRow());
        if (platform_.Dialogs.ShowMessage(box) == Answer::No) return;
    }
    const EditStep step(calls_, {StepKind::LineDeleted, selected - 1});
    interpreter_.EndStepRun();
    store_.ProgramChanged = true;
    list.RemoveRow(selected);
    // As long as the deleted line is open in the entry row it can be written to another row.
    int& opened = entry_.Opened.Place;
    if (opened == selected) opened = 0;
    if (opened > selected) --opened;
    // Without a line there is nothing to number, to check or to draw, and the open line is there already.
    if (store_.LineCount() < 1) return;
    Renumber(1);
    // A pointer to the deleted line now aims at the line that moved up into its place.
    Attempt(lineDeleteName, [&] { MovePointers(selected, -1); });
    interpreter_.Interpreter();
    if (selected - 1 >= store_.LineCount()) selected = store_.LineCount();
    if (selected > 0) Attempt(lineDeleteName, [&] { list.Select(selected); });
    store_.AddBlankLine(false);
    platform_.Focus.SetFocus(list);
    // Last: a drawing that waits then finds the edit whole.
    Run(calls_.RedrawAfterEdit);
}

void LineOperations::LineInsert() {
    ListView& list = store_.lvCncProgram;
    ShowList();
    if (store_.LineCount() >= store_.MaxLines() && !store_.DisableLimitsCheck) {
        platform_.Dialogs.ShowMessage(Notice(texts_.ErrorTexts(text::MaximumLines)));
        return;
    }
    const int top = list.TopRow();
    const int selected = std::max(list.SelectedRow(), 1);
    const int behind = list.Count() - selected + 1;
    const EditStep step(calls_, {StepKind::LineInserted, selected - 1});
    store_.ProgramChanged = true;
    entry_.Opened.Close();
    entry_.lblGMcode.Caption = "G";
    entry_.txtGMcode.Text = "21";
    std::string code = "21";
    layout_.InputFields(code);
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
    Renumber(selected + 1);
    // The number of the new line. A pointer to the line that was pushed down follows it.
    const int newLine = store_.LineCount() - behind;
    Attempt(lineInsertName, [&] { MovePointers(newLine, 1); });
    Attempt(lineInsertName, [&] {
        if (view_.chkViewGcode.Value != 0) {
            layout_.CodeDescription();
            list.Row(selected)[column::Comment] = entry_.txtComment.Text;
        } else {
            list.Row(selected)[column::Comment] = "";
        }
    });
    interpreter_.Interpreter();
    store_.AddBlankLine(false);
    Attempt(lineInsertName, [&] { list.EnsureVisible(top + 1); });
    Attempt(lineInsertName, [&] { list.Select(selected); });
    platform_.Focus.SetFocus(list);
}

void LineOperations::LineEdit() {
    entry_.picZXaxes.Visible = false;
    entry_.picXYaxes.Visible = false;
    entry_.cmdReturn.Visible = false;
    if (entry_.txtGMcode.Text.Empty()) return;
    // The defaults of feed and tool; what the user has not touched stays. The Z of an MK2 arc is not worked out here: the
    // check pass writes it.
    if (!FieldUnchanged(entry_, feedField)) {
        Attempt(lineEditName, [&] {
            if (entry_.lblFKTL.Caption == "F" && Val(entry_.txtFKTL.Text) < 2) {
                entry_.txtFKTL.Text = entry_.txtFeedA.Text;
            }
        });
        if (entry_.lblFKTL.Caption == "T" && entry_.txtFKTL.Text.Empty()) entry_.txtFKTL.Text = "01";
    }
    if (!AllValuesFit()) return;
    const int place = store_.lvCncProgram.SelectedRow();
    const bool adds = place == store_.lvCncProgram.Count();
    const EditStep step(calls_, {adds ? StepKind::LineAdded : StepKind::LineChanged, place - 1});
    store_.ProgramChanged = true;
    const bool fillsComment = view_.chkViewGcode.Value != 0 && entry_.txtComment.Text.Empty();
    if (fillsComment && !CommentUnchanged(entry_)) layout_.CodeDescription();
    ListView& list = store_.lvCncProgram;
    const int edited = list.SelectedRow();
    Attempt(lineEditName, [&] {
        if (CodeUnchanged(entry_)) {
            KeepOpenedCell(column::Code);
        } else {
            SelectedRow()[column::Code] = CodeCell(entry_);
        }
    });
    FormatInputs();
    Attempt(lineEditName, [&] {
        ListRow& row = SelectedRow();
        ClearResultCells(row);
        if (CommentUnchanged(entry_)) {
            KeepOpenedCell(column::Comment);
        } else {
            row[column::Comment] = entry_.txtComment.Text;
        }
    });
    interpreter_.Interpreter();
    const bool added = edited == list.Count();
    store_.AddBlankLine(added);
    // An added line leaves the entry row free for the next one; an edited one stays open in it.
    if (added) {
        entry_.Opened.Close();
    } else {
        Attempt(lineEditName, [&] { RememberOpenedLine(entry_, list.Row(edited), edited); });
    }
    entry_.txtGMcode.SelectAll();
    platform_.Focus.SetFocus(entry_.txtGMcode);
    // Last: a drawing that waits then finds the edit whole. G21 is an empty line, which nothing draws.
    Attempt(lineEditName, [&] {
        if (!(list.Row(edited)[column::Code] == " 21 ")) Run(calls_.RedrawAfterEdit);
    });
}

void LineOperations::KeepOpenedCell(int column) {
    // The row that was opened may have changed since, by a conversion say: it keeps what it has.
    if (entry_.Opened.Place != store_.lvCncProgram.SelectedRow())
        SelectedRow()[column] = entry_.Opened.Row[column];
}

bool LineOperations::AllValuesFit() {
    const auto fields = entry_.Fields();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        TextBox& box = fields[i].Box;
        if (!box.Visible || FieldUnchanged(entry_, i)) continue;
        const double value = std::round(Val(box.Text));
        const bool signDrops = value < 0 && !HasSignPlace(layout_.LetterOf(i));
        if (!signDrops && std::abs(value) <= FieldFormats[i].Largest(store_.IsF1())) continue;
        if (!calculated_.EvalText(box)) return false;
    }
    return true;
}

void LineOperations::FormatInputs() {
    ListView& list = store_.lvCncProgram;
    const bool mill = store_.IsF1();
    // The open line gets its number so.
    Attempt(formatInputsName,
            [&] { SelectedRow()[column::Number] = RightPad(Format(list.SelectedRow() - 1, "#00"), 3); });
    const auto fields = entry_.Fields();
    for (std::size_t i = 0; i < hField; ++i) {
        const FieldFormat& format = FieldFormats[i];
        const EntryRow::Field& field = fields[i];
        const std::size_t digits = format.Digits(mill);
        Attempt(formatInputsName, [&] {
            if (FieldUnchanged(entry_, i)) return KeepOpenedCell(format.Column);
            std::string cell(digits + 1, ' ');
            if (field.Box.Visible) {
                const double value = Val(field.Box.Text);
                cell = Prefix(layout_.LetterOf(i), value) +
                       RightPad(Format(std::abs(value), format.Pattern), digits);
            }
            SelectedRow()[format.Column] = cell;
        });
    }
    // On the mill H stands in the column of F.
    Attempt(formatInputsName, [&] {
        ListRow& row = SelectedRow();
        const bool keeps = FieldUnchanged(entry_, hField);
        if (keeps || (mill && CodeUnchanged(entry_))) {
            KeepOpenedCell(column::H);
        } else {
            row[column::H] = "   ";
        }
        if (keeps || !entry_.txtH.Visible) return;
        const FieldFormat& format = FieldFormats[hField];
        row[mill ? column::F : column::H] =
            RightPad(Format(std::abs(Val(entry_.txtH.Text)), format.Pattern), format.Digits(mill));
    });
    // The radius of an M99R line, from which the check pass works out its centre.
    Attempt(formatInputsName, [&] {
        if (EqualIgnoringCase(entry_.txtGMcode.Text, "99R")) {
            store_.M99Radius = static_cast<float>(Val(entry_.txtXI.Text));
        }
    });
}

}  // namespace kvt
