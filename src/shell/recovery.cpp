#include "shell/recovery.h"

#include "basic/run_time_error.h"
#include "basic/text.h"
#include "shell/workbench.h"

namespace kvt {

namespace {

constexpr const char* recoveryName = "Recovery";
constexpr const char* recoveryFile = "Recovery.txt";
constexpr const char* setAsideFile = "Recovery.old.txt";
// In front of the program's name, behind the units line.
constexpr std::string_view nameMark = ";Recovered file: ";
constexpr std::string_view lineEnd = "\r\n";
constexpr int interval = 500;  // milliseconds

std::string NameIn(std::string_view text) {
    const std::size_t mark = text.rfind(nameMark);
    if (mark == std::string_view::npos) return {};
    const std::string_view behind = text.substr(mark + nameMark.size());
    return std::string(behind.substr(0, behind.find(lineEnd)));
}

}  // namespace

Recovery::Recovery(Workbench& bench) : tmrRecovery(bench.frmMain, "tmrRecovery", interval), bench_(bench) {
    tmrRecovery.Enabled = false;
    tmrRecovery.OnTimer = [this] { tmrRecovery_Timer(); };
}

std::string Recovery::FileName() const { return bench_.Window.Folders.DataFolder + recoveryFile; }

bool Recovery::Unsaved() const {
    return bench_.Store.LineCount() > 0 && (bench_.Store.ProgramChanged || bench_.Writer.SaveFailed);
}

void Recovery::tmrRecovery_Timer() {
    if (Unsaved()) {
        Keep();
    } else if (!kept_.empty()) {
        Remove();
    }
}

void Recovery::Keep() {
    FileService& files = bench_.Platform.Files.InBackground();
    std::string text = bench_.Writer.GenerateAll();
    text += nameMark;
    text += bench_.File.lblPath.Caption.Get();
    text += lineEnd;
    // What could not be written is tried again when there is something new; what another run of the program has
    // taken away is written again.
    if (bench_.Window.Folders.DataFolder.empty()) return;
    if (text == kept_ && (failed_ || files.Exists(FileName()))) return;
    failed_ = !Attempt(recoveryName, [&] { files.WriteWhole(FileName(), text); });
    kept_ = std::move(text);
    if (failed_) bench_.TellUnkept();
}

void Recovery::Remove() {
    FileService& files = bench_.Platform.Files.InBackground();
    kept_.clear();
    if (files.Exists(FileName())) Attempt(recoveryName, [&] { files.Delete(FileName()); });
}

void Recovery::Restore() {
    FileService& files = bench_.Platform.Files.InBackground();
    tmrRecovery.Enabled = true;
    std::string text;
    if (!files.Exists(FileName())) return;
    if (!Attempt(recoveryName, [&] { text = files.ReadWhole(FileName()); })) return;
    const FileKind kind = Recognise(text).Kind;
    const bool isProgram = kind != FileKind::Unknown && kind != FileKind::Language;
    if (!isProgram) return SetAside(text);
    const Answer answer =
        bench_.Platform.Dialogs.ShowMessage(Question(bench_.Language.MessageTexts(text::RestoreUnsaved), ""));
    if (answer != Answer::Yes) return SetAside(text);

    std::string file = FileName();
    if (bench_.Reader.LoadFile(file) != LoadResult::Loaded) return;
    // The line end that the notes gain with each load is not theirs.
    TextBox& notes = bench_.File.txtFileNotes;
    const std::string_view held = notes.Text;
    if (held.ends_with(lineEnd)) notes.Text = std::string(held.substr(0, held.size() - lineEnd.size()));
    const std::string name = NameIn(text);
    bench_.File.lblPath.Caption = name;
    bench_.File.lblFileName.Caption = ExtractFileName(name);
    bench_.File.dlgFile.FileName = name;
    bench_.Store.ProgramChanged = true;
    kept_ = std::move(text);
}

void Recovery::SetAside(const std::string& text) {
    FileService& files = bench_.Platform.Files.InBackground();
    const std::string aside = bench_.Window.Folders.DataFolder + setAsideFile;
    if (Attempt(recoveryName, [&] { files.WriteWhole(aside, text); })) Remove();
}

void Recovery::End(bool dropped) {
    tmrRecovery.Enabled = false;
    if (Unsaved() && !dropped) {
        Keep();
    } else if (!kept_.empty()) {
        Remove();
    }
}

}  // namespace kvt
