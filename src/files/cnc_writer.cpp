#include "files/cnc_writer.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "files/cnc_format.h"
#include "files/questions.h"
#include "program/edit_step.h"

namespace kvt {

namespace {

constexpr const char* generateAllName = "GenerateAll";
constexpr const char* saveFileName = "SaveFile_Click";

// Print mode: the column headers that can follow, and the width that each is brought to.
constexpr int firstResultHeader = 9;
constexpr int lastPrintedHeader = 19;
constexpr int printedWidth = 10;

// The text behind as many blanks as bring it to the printed width, at least one.
void AppendColumn(std::string& text, std::string_view column) {
    const int blanks = printedWidth - static_cast<int>(column.size());
    text.append(static_cast<std::size_t>(std::max(1, blanks)), ' ');
    text += column;
}

// Errors are ignored up to the writing of the file.
template <class Statement>
void IgnoreErrors(Statement statement) {
    try {
        statement();
    } catch (const RunTimeError&) {
    }
}

}  // namespace

CncWriter::CncWriter(Parts parts) : parts_(parts) {}

std::string CncWriter::GenerateAll() {
    const ProgramStore& store = parts_.Store;
    std::string text;
    const int lines = store.LineCount();
    if (lines == 0) return text;
    text.reserve(static_cast<std::size_t>(lines) * 64 + 256);

    Attempt(generateAllName, [&] { AppendNotes(text); });
    if (!PrintMode) text += cnc::NotesEnd;
    text += LineEnd;
    Attempt(generateAllName, [&] { AppendHeader(text); });
    for (int i = 1; i <= lines; ++i) {
        Attempt(generateAllName, [&] { AppendLine(text, store.lvCncProgram.Row(i)); });
    }
    AppendUnits(text);
    return text;
}

void CncWriter::AppendNotes(std::string& text) const {
    const std::string& notes = parts_.Controls.txtFileNotes.Text.Get();
    if (notes.empty()) return;
    // On paper every sentence has a line of its own.
    text += PrintMode ? Replace(notes, ". ", "." + std::string(LineEnd)) : notes;
    text += LineEnd;
}

void CncWriter::AppendHeader(std::string& text) const {
    const ProgramStore& store = parts_.Store;
    if (!PrintMode) {
        if (store.IsMK2()) return;
        text += store.IsF1() ? cnc::HeaderF1 : cnc::HeaderMK4;
        text += LineEnd;
        return;
    }
    text += store.IsMK2()   ? std::string_view("                              ")
            : store.IsMK4() ? std::string_view("     N   G    X      Z   F   H ")
                            : std::string_view("     N  G     X    Y     Z   F");
    for (int header = firstResultHeader; header <= lastPrintedHeader; ++header) {
        const ColumnHeader& one = store.lvCncProgram.Header(header);
        if (one.Width > 1) AppendColumn(text, one.Text);
    }
    text += LineEnd;
}

void CncWriter::AppendLine(std::string& text, const ListRow& row) const {
    const ProgramStore& store = parts_.Store;
    const std::string_view number = row[column::Number];
    if (!store.IsMK2() && number.find_first_of("Nn") != std::string_view::npos) return;

    text += WordsOf(row);
    if (PrintMode) {
        for (int c = column::Error; c <= column::Time; ++c) {
            if (store.lvCncProgram.Header(c + 1).Width > 1) AppendColumn(text, row[c]);
        }
    }
    text += ' ';
    text += Trim(row[column::Comment]);
    text += LineEnd;
}

std::string CncWriter::WordsOf(const ListRow& row) const {
    const ProgramStore& store = parts_.Store;
    std::string text = "   ";
    if (store.IsMK2()) {
        text += "N";
        text += Right(FormatText(row[column::Number], "00"), 2);
        text += " G";
        text += Mid(row[column::Code], 2, 2);
        text += " X";
        text += row[column::X].View();
        text += " Z";
        text += row[column::Z].View();
        text += " F";
        text += Right(" " + std::string(row[column::F].View()), 3);
    } else {
        text += row[column::Number].View();
        text += TrimRight(row[column::Code]);
        if (store.IsF1()) {
            text += row[column::X].View();
            text += row[column::Y].View();
            text += row[column::Z].View();
            text += row[column::F].View();
        } else {
            text += ' ';
            text += row[column::X].View();
            text += ' ';
            text += row[column::Z].View();
            text += row[column::F].View();
            text += ' ';
            text += row[column::H].View();
            text += ' ';
        }
    }
    return text;
}

void CncWriter::AppendUnits(std::string& text) const {
    const ProgramStore& store = parts_.Store;
    text += "   ";
    text += store.Metric ? 'M' : '"';
    if (store.IsF1()) text += store.Horizontal ? '-' : 'I';
    text += LineEnd;
}

void CncWriter::AddEndCode() {
    ProgramStore& store = parts_.Store;
    EntryRow& entry = parts_.Entry;
    const EditStep step(parts_.Calls, {StepKind::LineAdded, store.LineCount()});
    if (store.EndCodePresent) return;
    const bool mk2 = store.IsMK2();
    entry.Opened.Close();
    entry.lblGMcode.Caption = mk2 ? "G" : "M";
    entry.txtGMcode.Text = mk2 ? "22" : "30";
    entry.txtComment.Text = "";
    std::string code = entry.txtGMcode.Text.Get();
    parts_.Layout.InputFields(code);
    store.EndCodePresent = true;
    // The line is written into the last row, as if it were typed there.
    ListView& list = store.lvCncProgram;
    const int selected = list.SelectedRow();
    const int top = list.TopRow();
    IgnoreErrors([&] { list.Select(list.Count()); });
    parts_.Lines.LineEdit();
    IgnoreErrors([&] { list.Select(selected); });
    IgnoreErrors([&] { list.EnsureVisible(top); });
}

void CncWriter::SaveFile_Click(std::int16_t& mode) {
    ProgramStore& store = parts_.Store;
    FileControls& controls = parts_.Controls;
    Services& platform = parts_.Platform;
    Run(parts_.Calls.cmdReturn_Click);
    if (store.lvCncProgram.SelectedRow() == 0) {
        platform.Dialogs.ShowMessage(Notice(parts_.Language.ErrorTexts(text::NoLines)));
        return;
    }
    // What a pre-processor has read is no program, and is not replaced by one.
    const bool hasFile = !controls.lblPath.Caption.Empty() && !controls.NamesSource;
    if (mode == save::ToFile && !hasFile) mode = save::As;
    AddEndCode();
    const std::string text = GenerateAll();
    if (text.empty()) return;
    std::string name = controls.lblPath.Caption.Get();
    if (mode == save::ToClipboard) {
        IgnoreErrors([&] { platform.Clipboard.Clear(); });
        IgnoreErrors([&] {
            platform.Clipboard.SetText(text);
            const std::string lines = PlainNumber(store.LineCount());
            Run(parts_.Calls.Tell, Filled(parts_.Language.NoticeTexts(text::Copied), {lines}));
        });
        return;
    }
    if (mode == save::As && !AskForName(name)) return;
    WriteFile(name, text);
}

// The current file; for a program that has come through a pre-processor, a program file beside its source.
std::string CncWriter::ProposedName() const {
    const std::string& path = parts_.Controls.lblPath.Caption.Get();
    if (!parts_.Controls.NamesSource) return path;
    const std::string_view name = ExtractFileName(path);
    return path.substr(0, path.size() - name.size()) + std::string(RemoveExtension(name)) + ".cnc";
}

// The save dialog until it is answered. False when nothing is to be saved.
bool CncWriter::AskForName(std::string& name) {
    FileDialog& dialog = parts_.Controls.dlgFile;
    Services& platform = parts_.Platform;
    const Texts& texts = parts_.Language;
    for (;;) {
        dialog.CancelError = true;
        dialog.FileName = ProposedName();
        try {
            if (!platform.Dialogs.ShowSave(dialog)) return false;
        } catch (const RunTimeError& error) {
            if (error.Number == fault::Cancelled) return false;
        }
        name = dialog.FileName;
        if (name.empty()) {
            platform.Dialogs.ShowMessage(Notice(texts.MessageTexts(text::NoFileSpecified)));
            return false;
        }
        const Answer answer = AskToOverwrite(platform, texts, name);
        if (answer == Answer::Yes) return true;
        if (answer == Answer::Cancel) return false;
    }
}

void CncWriter::WriteFile(const std::string& name, const std::string& text) {
    Services& platform = parts_.Platform;
    // The old file goes only when the new one is whole: both are one step of the platform. Where that fails, SaveFailed
    // says in the place of ProgramChanged that there is something to lose.
    parts_.Store.ProgramChanged = false;
    const bool written = Attempt(saveFileName, [&] { platform.Files.WriteWhole(name, text); });
    parts_.Store.SaveFailed = !written;
    if (!written) {
        platform.Dialogs.ShowMessage(Notice(FileMessage(parts_.Language, name, text::CannotWrite),
                                            parts_.Language.ErrorTexts(text::SaveTitle), Icon::Exclamation));
    }
    parts_.Controls.NamesSource = false;
    if (written) parts_.Controls.LastProgram = name;
    parts_.Controls.lblPath.Caption = name;
    parts_.Controls.lblFileName.Caption = ExtractFileName(name);
    if (written) Run(parts_.Calls.ProgramSaved);
    if (written) Run(parts_.Calls.FileUsed, name);
    Run(parts_.Calls.RefreshTitle);
    if (written) TellSaved(parts_.Calls, parts_.Language, name);
}

void CncWriter::mnuSave_Click() {
    std::int16_t mode = save::ToFile;
    SaveFile_Click(mode);
}

void CncWriter::mnuSaveAs_Click() {
    std::int16_t mode = save::As;
    SaveFile_Click(mode);
}

void CncWriter::mnuSaveClipboard_Click() {
    std::int16_t mode = save::ToClipboard;
    SaveFile_Click(mode);
}

}  // namespace kvt
