#include "files/cnc_reader.h"

#include <algorithm>
#include <span>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "files/cnc_format.h"
#include "files/questions.h"
#include "program/code_key.h"
#include "program/edit_step.h"
#include "program/result_cells.h"

namespace kvt {

namespace {

constexpr const char* loadFileName = "LoadFile";
constexpr std::string_view preProcessorResult = ".~pp";

// The files that the dialog offers, by the patterns behind their names.
std::string ProgramFilter(const Texts& texts) {
    std::string filter(texts.DialogTexts(text::ProgramFiles));
    filter += "|*.cnc;*.txt;*.c5n|";
    filter += texts.DialogTexts(text::AllFiles);
    return filter + "|*.*|";
}

std::string_view Field(std::string_view record, cnc::Span span) {
    return record.substr(span.At, span.Length);
}

// The comment of a line; what is beyond its place is cut.
std::string_view CommentOf(std::string_view line) {
    return line.size() <= cnc::Comment.At ? std::string_view() : Trim(Field(line, cnc::Comment));
}

// A line in the buffer that records are read from: padded with blanks, or cut.
struct LineBuffer {
    char Text[cnc::BufferLength];

    std::string_view Record(std::string_view line) {
        const std::size_t length = std::min(line.size(), cnc::BufferLength);
        std::copy_n(line.begin(), length, Text);
        std::fill(Text + length, Text + cnc::BufferLength, ' ');
        return {Text, cnc::RecordLength};
    }
};

// Whether digits already stand as they are written into a column: blanks alone, or two digits and more,
// right-justified, without a 0 too many in front. Nearly all cells of a file do.
bool IsFormatted(std::string_view digits) {
    std::size_t at = 0;
    while (at < digits.size() && digits[at] == ' ') ++at;
    const std::size_t count = digits.size() - at;
    if (count == 0) return true;
    if (count == 1 || (count > 2 && digits[at] == '0')) return false;
    for (; at < digits.size(); ++at) {
        if (digits[at] < '0' || digits[at] > '9') return false;
    }
    return true;
}

// Digits as a column holds them, as wide as they stand in the record.
std::string Formatted(std::string_view digits) {
    return IsFormatted(digits) ? std::string(digits) : RightPad(FormatText(digits, "00"), digits.size());
}

// The prefix letter that a code gives one of its parameters, whatever the file holds.
struct ForcedPrefix {
    CodeKey Key;
    int Column;
    char Letter;
};

constexpr ForcedPrefix mk4Prefixes[] = {
    {code::M99, column::X, 'I'}, {code::M99, column::Z, 'K'}, {code::G25, column::F, 'L'},
    {code::G27, column::F, 'L'}, {code::G33, column::F, 'K'}, {code::G78, column::F, 'K'},
    {code::M06, column::F, 'T'},
};

constexpr ForcedPrefix f1Prefixes[] = {
    {code::M99, column::X, 'I'}, {code::M99, column::Y, 'J'}, {code::M99, column::Z, 'K'},
    {code::G25, column::F, 'L'}, {code::G27, column::F, 'L'}, {code::M06, column::X, 'D'},
    {code::M06, column::Y, 'S'}, {code::M06, column::F, 'T'},
};

// Whether a number takes the place of the letter too, as the H of the mill with its four digits: it stays as it
// stands, since formatted without its first digit it would lose a 0 behind that.
bool FillsColumn(std::string_view text) {
    return text[0] != '0' && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// What MK4 and F1 have in common: number, code and parameters. The mill has H in the column of F.
void ReadNumbered(ListRow& row, std::string_view record, std::span<const cnc::Parameter> parameters,
                  std::span<const ForcedPrefix> prefixes, bool hInColumnOfF) {
    row[column::Number] = Formatted(Field(record, cnc::Number));
    std::string codeText(Field(record, cnc::Code));
    codeText += ' ';
    row[column::Code] = codeText;
    for (const cnc::Parameter& parameter : parameters) {
        const std::string_view text = Field(record, parameter.Place);
        const std::string_view digits = text.substr(1);
        const bool mayBeH = hInColumnOfF && parameter.Column == column::F;
        if (IsFormatted(digits) || (mayBeH && FillsColumn(text))) {
            row[parameter.Column] = text;
        } else {
            row[parameter.Column] = text[0] + Formatted(digits);
        }
    }
    const CodeKey key = KeyOf(codeText);
    for (const ForcedPrefix& forced : prefixes) {
        if (forced.Key != key) continue;
        Cell& cell = row[forced.Column];
        cell = forced.Letter + std::string(cell.View().substr(1));
    }
    ClearResultCells(row);
}

// The units line of the mill, which names the orientation too.
struct MillUnits {
    const char* Mark;
    bool Metric;
    bool Horizontal;
};

constexpr MillUnits millUnits[] = {
    {"M", true, false},   {"\"", false, false}, {"M-", true, true},
    {"\"-", false, true}, {"MI", true, false},  {"\"I", false, false},
};

}  // namespace

CncReader::CncReader(Parts parts) : parts_(parts) {}

LoadResult CncReader::LoadFile(std::string& fileName, const LoadAs& as) {
    ProgramStore& store = parts_.Store;
    Run(parts_.Calls.cmdReturn_Click);
    std::string name;
    name.swap(fileName);
    std::string text;
    const LoadResult read = ReadText(name, text);
    if (read != LoadResult::Loaded) return read;
    const Recognised found = Recognise(text);
    if (found.Kind == FileKind::Language) {
        Run(parts_.Calls.LoadLanguageModule, name);
        return LoadResult::LanguageModule;
    }
    if (found.Kind == FileKind::Unknown) {
        ReportNotRecognised();
        return LoadResult::NotRecognised;
    }
    const EditStep step(parts_.Calls, {as.Step});
    // The old program is saved in the layout of its own machine, so the machine changes behind that.
    if (!SettleUnsavedProgram(as.Unsaved)) return LoadResult::Nothing;
    store.Machine = found.Machine;
    Run(parts_.Calls.ClearProgram_Click);
    ReadNotes(text, found);
    ReadLines(text, found);
    Finish(name, as);
    return LoadResult::Loaded;
}

// Settles what becomes of an unsaved program. False where it stays in the editor.
bool CncReader::SettleUnsavedProgram(UnsavedProgram old) {
    ProgramStore& store = parts_.Store;
    if (!store.Unsaved()) return true;
    const auto keepCopy = [this] { return parts_.Calls.KeepRecoveryCopy && parts_.Calls.KeepRecoveryCopy(); };
    const bool kept = old == UnsavedProgram::KeepCopy && keepCopy();
    // Without a copy it is the user's to say.
    const bool asks = !kept && old != UnsavedProgram::Discard;
    if (asks && AskToSave(parts_.Platform.Dialogs, parts_.Language)) {
        parts_.Writer.mnuSave_Click();
        // "The program is still open" is what a failed save says. A cancelled dialog lets the opening go on.
        if (store.SaveFailed || (store.ProgramChanged && !keepCopy())) return false;
    } else if (!kept && store.SaveFailed) {
        // The user had chosen to save it, and the file could not be written.
        keepCopy();
    }
    store.ProgramChanged = false;
    store.SaveFailed = false;
    return true;
}

LoadResult CncReader::ReadText(std::string& name, std::string& text) {
    FileDialog& dialog = parts_.Controls.dlgFile;
    Services& platform = parts_.Platform;
    // The dialog itself keeps the filter that an earlier opening has left there.
    if (!name.empty()) {
        dialog.Filter = ProgramFilter(parts_.Language);
        dialog.FileName = name;
    } else {
        bool chosen = false;
        // A save may have left it on; here a cancelled dialog is no failure.
        dialog.CancelError = false;
        Attempt(loadFileName, [&] { chosen = platform.Dialogs.ShowOpen(dialog); });
        if (chosen) name = dialog.FileName;
        if (name.empty()) return LoadResult::Nothing;
    }
    if (!platform.Files.Exists(name)) return LoadResult::Nothing;
    const bool whole = Attempt(loadFileName, [&] { text = platform.Files.ReadWhole(name); });
    if (whole) return LoadResult::Loaded;
    platform.Dialogs.ShowMessage(Notice(FileMessage(parts_.Language, name, text::CannotRead),
                                        parts_.Language.ErrorTexts(text::OpenTitle), Icon::Exclamation));
    return LoadResult::Unreadable;
}

void CncReader::ReportNotRecognised() {
    const Texts& texts = parts_.Language;
    std::string message(texts.MessageTexts(text::TheFile));
    message += " \"";
    message += parts_.Controls.dlgFile.FileTitle();
    message += "\" ";
    // The built-in text begins with a blank; a translated one has lost its own.
    const std::string_view notCnc = texts.MessageTexts(text::NotACncFile);
    if (notCnc.substr(0, 1) != " ") message += ' ';
    message += notCnc;
    parts_.Platform.Dialogs.ShowMessage(
        Notice(message, texts.MessageTexts(text::RecognizingProblem), Icon::Exclamation));
}

void CncReader::ReadNotes(std::string_view text, const Recognised& found) {
    TextBox& notes = parts_.Controls.txtFileNotes;
    // What stands before the line "%" with its line end. A mark too near to the start fails here.
    Attempt(loadFileName, [&] {
        const std::string_view before = Left(text, static_cast<std::ptrdiff_t>(found.Position) - 4);
        notes.Text = Trim(Replace(before, "%", ""));
    });
    parts_.Controls.lblFileName.Caption = parts_.Controls.lblPath.Caption;
    if (found.WithoutComments) notes.Text = "";
}

void CncReader::ReadLines(std::string_view text, const Recognised& found) {
    // From the line end in front of the mark; where there is none, as if it stood there.
    const bool atStart = found.Position < 3;
    const std::string_view rest = text.substr(atStart ? found.Position - 1 : found.Position - 3);
    std::vector<std::string_view> lines = Split(rest, LineEnd);
    if (atStart) lines.insert(lines.begin(), std::string_view());

    // The empty element is skipped by its length; the header of MK4 and F1 is skipped here.
    const std::size_t first = found.Machine == MachineModel::MK2 ? 0 : 2;
    parts_.Store.lvCncProgram.Reserve(static_cast<int>(lines.size()));
    LineBuffer buffer;
    for (std::size_t i = first; i < lines.size(); ++i) {
        if (lines[i].size() <= 1) continue;
        const std::string_view record = buffer.Record(lines[i]);
        const bool skipped = found.WithoutComments;
        const std::string_view comment = skipped ? std::string_view() : CommentOf(lines[i]);
        bool goesOn = true;
        Attempt(loadFileName, [&] {
            goesOn = found.Machine == MachineModel::MK2   ? ReadMK2(record, comment, i)
                     : found.Machine == MachineModel::MK4 ? ReadMK4(record, comment)
                                                          : ReadF1(record, comment);
        });
        if (!goesOn) break;
    }
}

bool CncReader::ReadMK2(std::string_view record, std::string_view comment, std::size_t index) {
    const std::string_view mark = Trim(Field(record, cnc::MK2UnitsMark));
    const bool imperial = mark == "\"";
    if (imperial || EqualIgnoringCase(mark, "M")) {
        parts_.Machine.SetUnits(UnitsOf(!imperial));
        return false;
    }
    ListRow& row = parts_.Store.lvCncProgram.AddRow();
    // The file keeps two digits of the line number: the place of the line decides the hundreds.
    row[column::Number] =
        " " + FormatText(Field(record, cnc::MK2Number), index > 100 ? std::string_view("100") : "00");
    row[column::Code] = " " + std::string(Field(record, cnc::MK2Digits)) + " ";
    for (const cnc::Parameter& parameter : cnc::MK2Parameters) {
        row[parameter.Column] = Field(record, parameter.Place);
    }
    row[column::Comment] = comment;
    return true;
}

bool CncReader::ReadMK4(std::string_view record, std::string_view comment) {
    const std::string_view number = Trim(Field(record, cnc::Number));
    const bool imperial = number == "\"";
    if (imperial || EqualIgnoringCase(number, "M")) {
        parts_.Machine.SetUnits(UnitsOf(!imperial));
        return false;
    }
    ListRow& row = parts_.Store.lvCncProgram.AddRow();
    ReadNumbered(row, record, cnc::MK4Parameters, mk4Prefixes, false);
    row[column::H] = Formatted(Field(record, cnc::MK4H));
    row[column::Comment] = comment;
    return true;
}

bool CncReader::ReadF1(std::string_view record, std::string_view comment) {
    const std::string_view number = Trim(Field(record, cnc::Number));
    for (const MillUnits& units : millUnits) {
        if (!EqualIgnoringCase(number, units.Mark)) continue;
        parts_.Store.Horizontal = units.Horizontal;
        parts_.Machine.SetUnits(UnitsOf(units.Metric));
        return false;
    }
    ListRow& row = parts_.Store.lvCncProgram.AddRow();
    ReadNumbered(row, record, cnc::F1Parameters, f1Prefixes, true);
    row[column::Comment] = comment;
    return true;
}

void CncReader::ShowName(const std::string& name, const LoadAs& as) {
    FileControls& controls = parts_.Controls;
    const std::string shown =
        as.Name ? *as.Name : Replace(name, preProcessorResult, "", 1, -1, Compare::IgnoreCase);
    controls.NamesSource = as.FromSource || (!as.Name && shown != name);
    if (!controls.NamesSource && !shown.empty()) {
        controls.LastProgram = shown;
        Run(parts_.Calls.FileUsed, shown);
    }
    // Saving the program before may have named another file.
    controls.dlgFile.FileName = as.Name ? shown : name;
    controls.lblPath.Caption = shown;
}

void CncReader::Finish(const std::string& name, const LoadAs& as) {
    ProgramStore& store = parts_.Store;
    ShowName(name, as);
    if (parts_.View.chkViewGcode.Value != 0) parts_.Options.chkViewGcode_Click();
    parts_.Layout.ClearEntryFields();
    parts_.Interpreter.Interpreter();
    store.ProgramChanged = as.Changed;
    Run(parts_.Calls.RefreshMachine);
    parts_.View.MakeToolpositionColums();
    parts_.Interpreter.RefreshLineCount();
    store.AddBlankLine(false);
    parts_.Platform.Focus.SetFocus(store.lvCncProgram.OwningForm());
    store.lvCncProgram.RowsChanged();
    // Last: a drawing that waits then finds all of the program there.
    Run(parts_.Calls.mnuDraw_Click);
}

}  // namespace kvt
