#include "shell/recovery.h"

#include <algorithm>

#include "basic/line_end.h"
#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
namespace kvt {

namespace {

constexpr const char* recoveryName = "Recovery";
constexpr const char* recoveryFile = "Recovery.txt";
// In front of a number, from the second one on: programs that were not wanted back.
constexpr std::string_view declinedName = "Recovery.old";
// In front of a number: programs that were given up while another one took their place.
constexpr std::string_view asideName = "Recovery.kept.";
constexpr std::string_view extension = ".txt";
// Behind the units line, in front of the program's name, or of that of the source it was converted from.
const std::string nameMark = std::string(LineEnd) + ";Recovered file: ";
const std::string sourceMark = std::string(LineEnd) + ";Converted file: ";
constexpr int interval = 500;  // milliseconds

struct OldName {
    std::string Name;
    bool IsSource = false;
};

OldName NameIn(std::string_view text) {
    OldName found;
    std::size_t last = 0;
    for (const std::string_view mark : {nameMark, sourceMark}) {
        const std::size_t at = text.rfind(mark);
        if (at == std::string_view::npos || at < last) continue;
        last = at;
        const std::string_view behind = text.substr(at + mark.size());
        found = {std::string(behind.substr(0, behind.find(LineEnd))), mark == sourceMark};
    }
    return found;
}

// How many lines the program of a copy has: from its mark to the units line, which is the first short one.
int LinesIn(std::string_view text) {
    constexpr std::size_t longestUnits = 2;
    const Recognised found = Recognise(text);
    const std::size_t start =
        found.Position > 1 ? text.rfind('\n', found.Position - 2) : std::string_view::npos;
    int lines = found.Machine == MachineModel::MK2 ? 0 : -1;  // the header is none
    for (const std::string_view line : Split(text.substr(start + 1), LineEnd)) {
        const std::size_t size = Trim(line).size();
        if (size > 0 && size <= longestUnits) break;
        if (size > 0) ++lines;
    }
    return std::max(lines, 0);
}

// The number in the name of a program that was given up; 0 for another name.
int NumberIn(std::string_view name) {
    if (!BeginsWithIgnoringCase(name, asideName)) return 0;
    const double number = Val(RemoveExtension(name.substr(asideName.size())));
    return number >= 1 && number < 1e6 ? static_cast<int>(number) : 0;
}

}  // namespace

Recovery::Recovery(Form& window, const Parts& parts)
    : tmrRecovery(window, "tmrRecovery", interval), parts_(parts) {
    tmrRecovery.Enabled = false;
    tmrRecovery.OnTimer = [this] { tmrRecovery_Timer(); };
}

std::string Recovery::FileName() const { return parts_.Data.Folders.DataFolder + recoveryFile; }

void Recovery::tmrRecovery_Timer() {
    if (parts_.Store.HasUnsavedLines()) {
        Write();
    } else if (!written_.empty()) {
        Remove();
    }
}

std::string Recovery::Text() const {
    std::string text = parts_.Writer.GenerateAll();
    // The last line has its end already.
    text += (parts_.File.NamesSource ? sourceMark : nameMark).substr(LineEnd.size());
    text += parts_.File.lblPath.Caption.Get();
    text += LineEnd;
    return text;
}

void Recovery::Write() {
    FileService& files = parts_.Platform.Files.InBackground();
    std::string text = Text();
    // What could not be written is tried again when there is something new; what another run of the program has
    // taken away is written again.
    if (parts_.Data.Folders.DataFolder.empty()) return;
    if (text == written_ && (failed_ || files.Exists(FileName()))) return;
    failed_ = !Attempt(recoveryName, [&] { files.WriteWhole(FileName(), text); });
    written_ = std::move(text);
    if (failed_) parts_.Data.TellNotWritable();
}

bool Recovery::KeepRecoveryCopy() {
    FileService& files = parts_.Platform.Files.InBackground();
    const std::string& folder = parts_.Data.Folders.DataFolder;
    if (folder.empty() || !parts_.Store.HasUnsavedLines()) return true;
    int number = 1;
    for (const std::string& file : Copies()) number = std::max(number, NumberIn(ExtractFileName(file)) + 1);
    const std::string file = folder + std::string(asideName) + PlainNumber(number) + std::string(extension);
    const bool written = Attempt(recoveryName, [&] { files.WriteWhole(file, Text()); });
    if (!written) parts_.Data.TellNotWritable();
    return written;
}

std::vector<std::string> Recovery::Copies() const {
    FileService& files = parts_.Platform.Files.InBackground();
    const std::string& folder = parts_.Data.Folders.DataFolder;
    std::vector<std::string> names;
    Attempt(recoveryName, [&] { names = files.List(folder, "*" + std::string(extension)); });
    std::erase_if(names, [](const std::string& name) { return NumberIn(name) == 0; });
    std::sort(names.begin(), names.end(),
              [](const std::string& a, const std::string& b) { return NumberIn(a) > NumberIn(b); });
    for (std::string& name : names) name = folder + name;
    if (files.Exists(FileName())) names.insert(names.begin(), FileName());
    return names;
}

void Recovery::Remove() {
    FileService& files = parts_.Platform.Files.InBackground();
    written_.clear();
    if (files.Exists(FileName())) Attempt(recoveryName, [&] { files.Delete(FileName()); });
}

void Recovery::Restore() {
    FileService& files = parts_.Platform.Files.InBackground();
    tmrRecovery.Enabled = true;
    for (const std::string& file : Copies()) {
        std::string text;
        if (!Attempt(recoveryName, [&] { text = files.ReadWhole(file); })) continue;
        if (Recognise(text).Kind == FileKind::Program && IsWanted(file, text)) return Load(file, text);
        SetAside(file, text);
    }
}

// Asks about a copy by what the user knows it by: its file, how long it is, and when it was kept.
bool Recovery::IsWanted(const std::string& file, const std::string& text) {
    const Texts& texts = parts_.Language;
    std::string name = NameIn(text).Name;
    if (name.empty()) name = texts.FoundTexts(FoundText::WithoutFile);
    std::string day = "?", time = "?";
    if (const std::optional<std::tm> written = parts_.Platform.Files.InBackground().WrittenAt(file)) {
        day = PlainNumber(written->tm_year + 1900) + "-" + Format(written->tm_mon + 1, "00") + "-" +
              Format(written->tm_mday, "00");
        time = Format(written->tm_hour, "00") + ":" + Format(written->tm_min, "00");
    }
    MessageBox box = Question(texts.MessageTexts(text::RestoreUnsaved), "");
    box.Details = Filled(texts.FoundTexts(FoundText::Program), {name, PlainNumber(LinesIn(text)), day, time});
    return parts_.Platform.Dialogs.ShowMessage(box) == Answer::Yes;
}

void Recovery::Load(const std::string& file, const std::string& text) {
    const OldName old = NameIn(text);
    LoadAs as;
    as.Name = old.Name;
    as.FromSource = old.IsSource;
    as.Changed = true;
    std::string name = file;
    if (parts_.Reader.LoadFile(name, as) != LoadResult::Loaded) return;
    parts_.File.lblFileName.Caption = ExtractFileName(old.Name);
    // The line end that the notes gain with each load is not theirs.
    TextBox& notes = parts_.File.txtFileNotes;
    const std::string_view held = notes.Text;
    if (held.ends_with(LineEnd)) notes.Text = std::string(held.substr(0, held.size() - LineEnd.size()));
    const Texts& texts = parts_.Language;
    const std::string_view shown = ExtractFileName(old.Name);
    Run(parts_.Calls.Tell, Filled(texts.NoticeTexts(text::Restored),
                                  {std::string(shown.empty() ? texts.NoticeTexts(text::NoName) : shown)}));
    if (file == FileName()) {
        written_ = text;
        return;
    }
    // From here on it is kept as any unsaved program is.
    Write();
    FileService& files = parts_.Platform.Files.InBackground();
    if (!failed_) Attempt(recoveryName, [&] { files.Delete(file); });
}

void Recovery::SetAside(const std::string& file, const std::string& text) {
    FileService& files = parts_.Platform.Files.InBackground();
    const std::string name = parts_.Data.Folders.DataFolder + std::string(declinedName);
    std::string aside = name + std::string(extension);
    for (int number = 2; files.Exists(aside); ++number)
        aside = name + "." + PlainNumber(number) + std::string(extension);
    if (!Attempt(recoveryName, [&] { files.WriteWhole(aside, text); })) return;
    if (files.Exists(file)) Attempt(recoveryName, [&] { files.Delete(file); });
}

void Recovery::End(bool dropped) {
    tmrRecovery.Enabled = false;
    if (parts_.Store.HasUnsavedLines() && (!dropped || parts_.Store.SaveFailed)) {
        Write();
    } else if (!written_.empty()) {
        Remove();
    }
}

}  // namespace kvt
