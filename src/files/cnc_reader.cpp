#include "files/cnc_reader.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "files/cnc_format.h"

namespace kvt {

namespace {

constexpr const char* loadFileName = "LoadFile";
constexpr std::string_view programFilter =
    "cnc files (*.txt or *.cnc or *.c5n)|*.cnc;*.txt;*.c5n|All Files (*.*)|*.*|";
constexpr std::string_view preProcessorResult = ".~pp";

std::string_view Field(std::string_view record, cnc::Span span) {
    return record.substr(span.At, span.Length);
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

// Whether digits already stand as every pattern of the columns writes them: blanks alone, or two digits and
// more, right-justified, without a 0 too many in front. Most cells of a file do.
bool StandsFormatted(std::string_view digits) {
    const std::string_view number = TrimLeft(digits);
    if (number.empty()) return true;
    if (number.size() < 2 || (number.size() > 2 && number[0] == '0')) return false;
    return number.find_first_not_of("0123456789") == std::string_view::npos;
}

// A text in a column's pattern and width.
std::string Digits(std::string_view digits, std::string_view pattern, std::size_t width) {
    if (digits.size() == width && StandsFormatted(digits)) return std::string(digits);
    return RightPad(FormatText(digits, pattern), width);
}

// The prefix in front of the digits.
std::string ParameterCell(std::string_view prefix, std::string_view digits, std::string_view pattern,
                          std::size_t width) {
    std::string cell(prefix);
    cell += Digits(digits, pattern, width);
    return cell;
}

void ClearResultCells(ListRow& row) {
    row[column::Error] = "";
    for (const int c : {column::ToolX, column::ToolZ, column::CenterX, column::CenterZ, column::Radius}) {
        row[c] = "      ";
    }
    row[column::Angle] = "   ";
    row[column::Time] = "        ";
}

// The prefix letter that a code gives one of its parameters, whatever the file holds.
struct ForcedPrefix {
    CodeKey Key;
    char First, Second, Third, Fourth;  // 0 keeps the file's
};

constexpr ForcedPrefix mk4Prefixes[] = {
    {code::M99, 'I', 0, 'K', 0}, {code::G25, 0, 0, 0, 'L'}, {code::G27, 0, 0, 0, 'L'},
    {code::G33, 0, 0, 0, 'K'},   {code::G78, 0, 0, 0, 'K'}, {code::M06, 0, 0, 0, 'T'},
};

constexpr ForcedPrefix f1Prefixes[] = {
    {code::M99, 'I', 'J', 'K', 0},
    {code::G25, 0, 0, 0, 'L'},
    {code::G27, 0, 0, 0, 'L'},
    {code::M06, 'D', 'S', 0, 'T'},
};

template <std::size_t N>
ForcedPrefix PrefixesOf(CodeKey key, const ForcedPrefix (&table)[N]) {
    for (const ForcedPrefix& entry : table) {
        if (entry.Key == key) return entry;
    }
    return {};
}

std::string_view PrefixOr(const char& forced, std::string_view inFile) {
    return forced != 0 ? std::string_view(&forced, 1) : inFile;
}

// Whether the fourth parameter of the mill is an H of four digits, the first in the place of the letter: as they
// stand, since formatted without it a 0 behind it would be lost.
bool FourDigits(std::string_view record, const ForcedPrefix& forced) {
    const std::string_view number = record.substr(cnc::F1Fourth.Prefix.At, 4);
    return forced.Fourth == 0 && number[0] != '0' &&
           number.find_first_not_of("0123456789") == std::string_view::npos;
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
    // 1.
    Run(parts_.Calls.cmdReturn_Click);
    // 2. to 5.
    std::string name;
    name.swap(fileName);
    std::string text;
    const LoadResult read = ReadText(name, text);
    if (read != LoadResult::Loaded) return read;
    // 6., 7.
    const Recognised found = Recognise(text);
    if (found.Kind == FileKind::Language) {
        Run(parts_.Calls.LoadLanguageModule, name);
        return LoadResult::LanguageModule;
    }
    if (found.Kind == FileKind::Unknown) {
        ReportNotRecognised();
        return LoadResult::NotRecognised;
    }
    // 8. The old program is saved in the layout of its own machine, so the machine changes behind that.
    if (!LeaveProgram(as.Old)) return LoadResult::Nothing;
    store.Machine = found.Kind == FileKind::MK2 ? "MK2" : found.Kind == FileKind::MK4 ? "MK4" : "F1";
    // 9.
    Run(parts_.Calls.ClearProgram_Click);
    // 10. to 14.
    ReadNotes(text, found);
    ReadLines(text, found);
    // 15.
    Finish(name, as);
    return LoadResult::Loaded;
}

// Settles what becomes of an unsaved program. False where it stays in the editor.
bool CncReader::LeaveProgram(OldProgram old) {
    ProgramStore& store = parts_.Store;
    if (!store.Unsaved()) return true;
    const auto keepAside = [this] { return parts_.Calls.KeepAside && parts_.Calls.KeepAside(); };
    const bool kept = old == OldProgram::KeptAside && keepAside();
    // Without a copy it is the user's to say.
    if (!kept && old != OldProgram::GivenUp && AskToSave()) {
        // "The program is still open" is what a failed save says. A cancelled dialog lets the opening go on.
        if (store.SaveFailed || (store.ProgramChanged && !keepAside())) return false;
    } else if (!kept && store.SaveFailed) {
        // The user had it saved, so far as he could.
        keepAside();
    }
    store.ProgramChanged = false;
    store.SaveFailed = false;
    return true;
}

// True for a Yes: what could be saved has been.
bool CncReader::AskToSave() {
    const Texts& texts = parts_.Language;
    const Answer answer = parts_.Platform.Dialogs.ShowMessage(
        Question(texts.MessageTexts(text::SaveNow), texts.MessageTexts(text::ContinueTitle)));
    if (answer != Answer::Yes) return false;
    parts_.Writer.mnuSave_Click();
    return true;
}

LoadResult CncReader::ReadText(std::string& name, std::string& text) {
    FileDialog& dialog = parts_.Controls.dlgFile;
    Services& platform = parts_.Platform;
    // 2. Only this branch sets the filter: the dialog of the menu has the one that was left there.
    if (!name.empty()) {
        dialog.Filter = programFilter;
        dialog.FileName = name;
    } else {
        // 3.
        bool chosen = false;
        // A save may have left it on; here a cancelled dialog is no failure.
        dialog.CancelError = false;
        Attempt(loadFileName, [&] { chosen = platform.Dialogs.ShowOpen(dialog); });
        if (chosen) name = dialog.FileName;
        if (name.empty()) return LoadResult::Nothing;
    }
    // 4.
    if (!platform.Files.Exists(name)) return LoadResult::Nothing;
    // 5.
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
    if (found.Kind == FileKind::MK4 && found.WithoutComments) notes.Text = "";
}

void CncReader::ReadLines(std::string_view text, const Recognised& found) {
    // From the line end in front of the mark; where there is none, as if it stood there.
    const bool atStart = found.Position < 3;
    const std::string_view rest = text.substr(atStart ? found.Position - 1 : found.Position - 3);
    std::vector<std::string_view> lines = Split(rest, cnc::LineEnd);
    if (atStart) lines.insert(lines.begin(), std::string_view());

    // The empty element is skipped by its length; the header of MK4 and F1 is skipped here.
    const std::size_t first = found.Kind == FileKind::MK2 ? 0 : 2;
    parts_.Store.lvCncProgram.Reserve(static_cast<int>(lines.size()));
    LineBuffer buffer;
    for (std::size_t i = first; i < lines.size(); ++i) {
        if (lines[i].size() <= 1) continue;
        const std::string_view record = buffer.Record(lines[i]);
        bool goesOn = true;
        Attempt(loadFileName, [&] {
            goesOn = found.Kind == FileKind::MK2   ? ReadMK2(record, i)
                     : found.Kind == FileKind::MK4 ? ReadMK4(record, found.WithoutComments)
                                                   : ReadF1(record);
        });
        if (!goesOn) break;
    }
}

bool CncReader::ReadMK2(std::string_view record, std::size_t index) {
    const std::string_view mark = Trim(Field(record, cnc::MK2UnitsMark));
    const bool imperial = mark == "\"";
    if (imperial || EqualIgnoringCase(mark, "M")) {
        parts_.Machine.SetUnits(imperial ? "Imperial" : "Metric");
        return false;
    }
    ListRow& row = parts_.Store.lvCncProgram.AddRow();
    // The file keeps two digits of the line number: the place of the line decides the hundreds.
    row[column::Number] =
        " " + FormatText(Field(record, cnc::MK2Number), index > 100 ? std::string_view("100") : "00");
    row[column::Code] = " " + std::string(Field(record, cnc::MK2Digits)) + " ";
    const auto parameter = [&](const cnc::Parameter& one) {
        return record.substr(one.Prefix.At, one.Prefix.Length + one.Digits.Length);
    };
    row[column::X] = parameter(cnc::MK2First);
    row[column::Z] = parameter(cnc::MK2Third);
    row[column::F] = Field(record, cnc::MK2Fourth);
    row[column::Comment] = Trim(Field(record, cnc::Comment));
    return true;
}

bool CncReader::ReadMK4(std::string_view record, bool withoutComments) {
    const std::string_view number = Trim(Field(record, cnc::Number));
    const bool imperial = number == "\"";
    if (imperial || EqualIgnoringCase(number, "M")) {
        parts_.Machine.SetUnits(imperial ? "Imperial" : "Metric");
        return false;
    }
    ListRow& row = parts_.Store.lvCncProgram.AddRow();
    row[column::Number] = Digits(Field(record, cnc::Number), "#00", 3);
    row[column::Code] = std::string(record.substr(cnc::Letter.At, 3)) + " ";
    const ForcedPrefix forced = PrefixesOf(KeyOf(row[column::Code]), mk4Prefixes);
    row[column::X] = ParameterCell(PrefixOr(forced.First, Field(record, cnc::MK4First.Prefix)),
                                   Field(record, cnc::MK4First.Digits), "##00", 4);
    row[column::Z] = ParameterCell(PrefixOr(forced.Third, Field(record, cnc::MK4Third.Prefix)),
                                   Field(record, cnc::MK4Third.Digits), "###00", 5);
    row[column::F] = ParameterCell(PrefixOr(forced.Fourth, Field(record, cnc::MK4Fourth.Prefix)),
                                   Field(record, cnc::MK4Fourth.Digits), "#00", 3);
    row[column::H] = Digits(Field(record, cnc::MK4Fifth), "#00", 3);
    ClearResultCells(row);
    row[column::Comment] = withoutComments ? std::string_view() : Trim(Field(record, cnc::Comment));
    return true;
}

bool CncReader::ReadF1(std::string_view record) {
    const std::string_view number = Trim(Field(record, cnc::Number));
    for (const MillUnits& units : millUnits) {
        if (!EqualIgnoringCase(number, units.Mark)) continue;
        parts_.Store.Horizontal = units.Horizontal;
        parts_.Machine.SetUnits(units.Metric ? "Metric" : "Imperial");
        return false;
    }
    ListRow& row = parts_.Store.lvCncProgram.AddRow();
    row[column::Number] = Digits(Field(record, cnc::Number), "#00", 3);
    row[column::Code] = std::string(record.substr(cnc::Letter.At, 3)) + " ";
    const ForcedPrefix forced = PrefixesOf(KeyOf(row[column::Code]), f1Prefixes);
    row[column::X] = ParameterCell(PrefixOr(forced.First, Field(record, cnc::F1First.Prefix)),
                                   Field(record, cnc::F1First.Digits), "###00", 5);
    row[column::Y] = ParameterCell(PrefixOr(forced.Second, Field(record, cnc::F1Second.Prefix)),
                                   Field(record, cnc::F1Second.Digits), "##00", 4);
    row[column::Z] = ParameterCell(PrefixOr(forced.Third, Field(record, cnc::F1Third.Prefix)),
                                   Field(record, cnc::F1Third.Digits), "###00", 5);
    row[column::F] = FourDigits(record, forced)
                         ? std::string(record.substr(cnc::F1Fourth.Prefix.At, 4))
                         : ParameterCell(PrefixOr(forced.Fourth, Field(record, cnc::F1Fourth.Prefix)),
                                         Field(record, cnc::F1Fourth.Digits), "#00", 3);
    ClearResultCells(row);
    row[column::Comment] = Trim(Field(record, cnc::Comment));
    return true;
}

void CncReader::ShowName(const std::string& name, const LoadAs& as) {
    FileControls& controls = parts_.Controls;
    const std::string shown =
        as.Name ? *as.Name : Replace(name, preProcessorResult, "", 1, -1, Compare::IgnoreCase);
    controls.NamesSource = as.FromSource || (!as.Name && shown != name);
    if (!controls.NamesSource && !shown.empty()) controls.LastProgram = shown;
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
