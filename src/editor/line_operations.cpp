#include "editor/line_operations.h"

#include <cmath>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"

namespace kvt {

namespace {

constexpr const char* lineEditName = "LineEdit";
constexpr const char* formatInputsName = "FormatInputs";

// How a field is written into its column.
struct FieldFormat {
    int Column;
    const char* Pattern;
    std::size_t LatheDigits;
    std::size_t MillDigits;
};

constexpr FieldFormat fieldFormats[] = {{column::X, "##00", 4, 5},
                                        {column::Y, "###00", 4, 4},
                                        {column::Z, "###00", 5, 5},
                                        {column::F, "#00", 3, 3}};

std::string Prefix(std::string_view label, double value) {
    if (label == "X" || label == "Y" || label == "Z") return value < 0 ? "-" : " ";
    if (label == "F") return " ";
    return std::string(Left(label, 1));
}

}  // namespace

LineOperations::LineOperations(EntryRow& entry, FieldLayout& layout, ProgramStore& store,
                               const ViewColumns& view, ControlInterpreter& interpreter, FocusService& focus,
                               WorkbenchCalls& calls)
    : entry_(entry),
      layout_(layout),
      store_(store),
      view_(view),
      interpreter_(interpreter),
      focus_(focus),
      calls_(calls) {}

ListRow& LineOperations::SelectedRow() { return store_.lvCncProgram.Row(store_.lvCncProgram.SelectedRow()); }

void LineOperations::LineEdit() {
    // 1.
    entry_.picZXaxes.Visible = false;
    entry_.picXYaxes.Visible = false;
    entry_.cmdReturn.Visible = false;
    // 2.
    if (entry_.txtGMcode.Text.Empty()) return;
    // 3. The Z of an MK2 arc is written by the check pass.
    // 4.
    Attempt(lineEditName, [&] {
        if (entry_.lblFKTL.Caption == "F" && Val(entry_.txtFKTL.Text) < 2) {
            entry_.txtFKTL.Text = entry_.txtFeedA.Text;
        }
    });
    if (entry_.lblFKTL.Caption == "T" && entry_.txtFKTL.Text.Empty()) entry_.txtFKTL.Text = "01";
    // 5.
    store_.ProgramChanged = true;
    // 6.
    if (view_.chkViewGcode.Value != 0 && entry_.txtComment.Text.Empty()) layout_.CodeDescription();
    // 7.
    ListView& list = store_.lvCncProgram;
    const int edited = list.SelectedRow();
    Attempt(lineEditName, [&] {
        const std::string& letter = entry_.lblGMcode.Caption.Get();
        const std::string text = entry_.txtGMcode.Text.Get() + " ";
        SelectedRow()[column::Code] = (letter == "G" ? " " : letter) + std::string(Right(text, 3));
    });
    // 8.
    FormatInputs();
    // 9.
    Attempt(lineEditName, [&] {
        ListRow& row = SelectedRow();
        for (int c = column::ToolX; c <= column::Radius; ++c) row[c] = "      ";
        row[column::Angle] = "   ";
        row[column::Error] = "               ";
        row[column::Comment] = entry_.txtComment.Text;
    });
    // 10.
    interpreter_.Interpreter();
    // 11.
    store_.AddBlankLine(edited == list.Count());
    // 12.
    Attempt(lineEditName, [&] {
        if (!(list.Row(edited)[column::Code] == " 21 ")) Run(calls_.RedrawAfterEdit);
    });
    // 13.
    entry_.txtGMcode.SelectAll();
    focus_.SetFocus(entry_.txtGMcode);
}

void LineOperations::FormatInputs() {
    ListView& list = store_.lvCncProgram;
    const bool mill = store_.IsF1();
    // 1.
    Attempt(formatInputsName,
            [&] { SelectedRow()[column::Number] = RightPad(Format(list.SelectedRow() - 1, "#00"), 3); });
    // 2. to 4.
    const auto fields = entry_.Fields();
    for (std::size_t i = 0; i < std::size(fieldFormats); ++i) {
        const FieldFormat& format = fieldFormats[i];
        const EntryRow::Field& field = fields[i];
        const std::size_t digits = mill ? format.MillDigits : format.LatheDigits;
        Attempt(formatInputsName, [&] {
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
        row[column::H] = "   ";
        if (!entry_.txtH.Visible) return;
        const std::string digits = Format(std::abs(Val(entry_.txtH.Text)), "#00");
        if (mill) {
            row[column::F] = RightPad(digits, 4);
        } else {
            row[column::H] = RightPad(digits, 3);
        }
    });
    // 6.
    Attempt(formatInputsName, [&] {
        if (EqualIgnoringCase(entry_.txtGMcode.Text, "99R")) {
            store_.M99Radius = static_cast<float>(Val(entry_.txtXI.Text));
        }
    });
}

}  // namespace kvt
