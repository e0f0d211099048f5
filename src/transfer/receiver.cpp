#include "transfer/receiver.h"

#include <algorithm>
#include <utility>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "files/cnc_format.h"
#include "files/questions.h"
#include "files/recogniser.h"

namespace kvt {

namespace {

constexpr const char* openName = "mnuRX_Click";
constexpr const char* eventName = "MSComm1_OnComm";
constexpr const char* importName = "cmdReceiveImport_Click";
constexpr const char* saveName = "cmdReceiveSave_Click";
constexpr const char* clipboardName = "LoadClipboardModule";

bool IsProgram(const Recognised& found) { return found.Kind == FileKind::Program; }

// A trimmed text with what makes it a program file: the "%" and the blanks that its first line has lost, three where
// that is a line of a program, N and a number, four where it is a header, "N`".
std::string WithBeginning(std::string_view text) {
    const Recognised found = Recognise(text);
    const std::string notesEnd = std::string(cnc::NotesEnd) + std::string(LineEnd);
    std::string_view before = text.substr(0, IsProgram(found) ? found.Position - 1 : 1);
    if (before.find(cnc::NotesEnd) != std::string_view::npos) return std::string(text);
    if (IsProgram(found)) {
        // The header has kept its blanks behind what else has come: noise of the line, empty lines.
        text.remove_prefix(before.size());
        while (before.starts_with(LineEnd)) before.remove_prefix(LineEnd.size());
        return std::string(before) + notesEnd + std::string(text);
    }
    const bool isLine = BeginsWithIgnoringCase(text, "N") && text.substr(1, 1) != "`";
    return notesEnd + std::string(isLine ? 3 : 4, ' ') + std::string(text);
}

}  // namespace

Receiver::Receiver(Parts parts) : parts_(parts) {
    TransferControls& controls = parts_.Controls;
    for (Menu* entry : {&controls.mnuRX, &controls.RCmnuRX}) entry->OnClick = [this] { mnuRX_Click(); };
    controls.cmdReceiveImport.OnClick = [this] { cmdReceiveImport_Click(); };
    controls.cmdReceiveSave.OnClick = [this] { cmdReceiveSave_Click(); };
    controls.cmdReceiveNew.OnClick = [this] { cmdReceiveNew_Click(); };
    controls.cmdReceiveExit.OnClick = [this] { cmdReceiveExit_Click(); };
    parts_.Platform.Port.OnComm = [this](CommEvent event) { MSComm1_OnComm(event); };
}

Receiver::~Receiver() { parts_.Platform.Port.OnComm = nullptr; }

void Receiver::mnuRX_Click() {
    if (!parts_.Port.ComEnabled) return;
    bool chosen = true;
    if (!Attempt(openName, [&] { chosen = parts_.Port.OpenForUse(); })) {
        parts_.Platform.Dialogs.ShowMessage(Notice(parts_.Language.ErrorTexts(text::PortProblem)));
        return;
    }
    if (!chosen) return;
    // Help gives way to what is received.
    Run(parts_.Calls.HideSettings);
    Run(parts_.Calls.cmdReturn_Click);
    Run(parts_.Calls.ControlsEnable, ControlsMode::Frozen);
    ShowView(true);
    cmdReceiveNew_Click();
}

void Receiver::ShowView(bool shown) {
    for (Frame* frame : parts_.EditorFrames) frame->Visible = !shown;
    parts_.Controls.frCmdRX.Visible = shown;
    parts_.Controls.frRXcode.Visible = shown;
}

void Receiver::MSComm1_OnComm(CommEvent event) {
    switch (event) {
        case CommEvent::Send:
            Attempt(eventName, [&] { parts_.Port.Port().SetSettings(parts_.Port.TX().Settings); });
            break;
        case CommEvent::Receive: return AppendReceived();
        case CommEvent::Vanished: return parts_.Port.Vanished();
        case CommEvent::Refused: return parts_.Port.Refused();
    }
}

void Receiver::AppendReceived() {
    TextBox& box = parts_.Controls.txtRX;
    // The machine has begun to send.
    if (!parts_.Controls.frRXcode.Visible) Attempt(eventName, [&] { mnuRX_Click(); });
    Attempt(eventName, [&] { parts_.Port.Port().SetSettings(parts_.Port.RX().Settings); });
    if (box.EffectivelyVisible() && box.EffectivelyEnabled()) parts_.Platform.Focus.SetFocus(box);
    // What comes always goes to the end, wherever the user has clicked.
    std::string text;
    Attempt(eventName, [&] { text = parts_.Port.Port().Input(); });
    Add(text);
}

void Receiver::Add(std::string_view text) {
    std::string kept(text);
    std::erase(kept, '\0');
    parts_.Controls.txtRX.Append(kept);
    Count(kept);
}

void Receiver::Count(std::string_view text) {
    for (const char c : text) {
        if (c == '\r' || (c == '\n' && last_ != '\r')) ++lines_;
        last_ = c;
    }
    characters_ += static_cast<long long>(text.size());
    ShowCount();
}

void Receiver::ShowCount() {
    parts_.Controls.lblReceived.Caption =
        Filled(parts_.Language.ErrorTexts(text::ReceivedCount),
               {PlainNumber(std::int64_t{characters_}), PlainNumber(std::int64_t{lines_})});
}

void Receiver::cmdReceiveImport_Click() {
    TextBox& box = parts_.Controls.txtRX;
    // What is being sent stays in the editor.
    if (parts_.Port.IsSending) return parts_.Platform.System.Beep();
    // What comes from here on, while a message is open, is the beginning of the next reception. Where the text
    // cannot be brought in it goes back in front of that, with the blanks at its ends: more of a line may follow.
    const std::string received = box.Text.Get();
    cmdReceiveNew_Click();
    const LoadResult result = Import(Trim(received), UnsavedProgram::KeepCopy, StepKind::Received);
    const std::string rest = box.Text.Get();
    // A header with nothing behind it that the control would read is no program yet.
    const bool noLines = result == LoadResult::Loaded && parts_.Store.LineCount() == 0;
    if (noLines) parts_.Platform.Dialogs.ShowMessage(Notice(parts_.Language.ErrorTexts(text::NoLines)));
    const bool taken = !noLines && (result == LoadResult::Loaded || result == LoadResult::LanguageModule);
    if (!taken) {
        cmdReceiveNew_Click();
        Add(received + rest);
    } else if (rest.empty()) {
        cmdReceiveExit_Click();
    } else {
        ShowView(true);
    }
    if (taken && result == LoadResult::Loaded) {
        const std::string lines = PlainNumber(parts_.Store.LineCount());
        Run(parts_.Calls.Tell, Filled(parts_.Language.NoticeTexts(text::Received), {lines}));
    }
}

// Brings a trimmed text into the editor as a changed program without a file.
LoadResult Receiver::Import(std::string_view text, UnsavedProgram old, StepKind kind) {
    FileService& files = parts_.Platform.Files;
    if (text.empty()) {
        parts_.Platform.Dialogs.ShowMessage(Notice(parts_.Language.ErrorTexts(text::NoLines)));
        return LoadResult::Nothing;
    }
    // By way of a file it is read, and recognised, as any program is.
    const std::string scratch = SettingsFolder + "Receive.txt";
    if (files.Exists(scratch)) Attempt(importName, [&] { files.Delete(scratch); });
    const std::string whole = IsProgram(Recognise(text)) ? std::string(text) : WithBeginning(text);
    const std::string_view written = IsProgram(Recognise(whole)) ? std::string_view(whole) : text;
    if (!Attempt(importName, [&] { files.WriteWhole(scratch, written); })) {
        TellUnwritten(scratch);
        return LoadResult::Nothing;
    }
    // The program is in no file of the user: its name is empty, and it counts as changed.
    LoadAs as;
    as.Unsaved = old;
    as.Name = "";
    as.Changed = true;
    as.Step = kind;
    const std::string before = parts_.File.dlgFile.FileName;
    std::string name = scratch;
    const LoadResult result = parts_.Reader.LoadFile(name, as);
    if (result != LoadResult::Loaded) parts_.File.dlgFile.FileName = before;
    if (files.Exists(scratch)) Attempt(importName, [&] { files.Delete(scratch); });
    return result;
}

void Receiver::TellUnwritten(const std::string& name) {
    const Texts& texts = parts_.Language;
    parts_.Platform.Dialogs.ShowMessage(Notice(FileMessage(texts, name, text::ReceivedKept),
                                               texts.ErrorTexts(text::SaveTitle), Icon::Exclamation));
}

void Receiver::cmdReceiveSave_Click() {
    Services& platform = parts_.Platform;
    const std::string text(Trim(parts_.Controls.txtRX.Text));
    if (text.empty()) {
        platform.Dialogs.ShowMessage(Notice(parts_.Language.ErrorTexts(text::NoLines)));
        return;
    }
    // A cancelled dialog gives no name, not that of the program in the editor.
    FileDialog& dialog = parts_.File.dlgFile;
    const std::string before = std::exchange(dialog.FileName, {});
    dialog.CancelError = false;
    Attempt(saveName, [&] { platform.Dialogs.ShowSave(dialog); });
    const std::string name = std::exchange(dialog.FileName, before);
    if (name.empty()) {
        platform.Dialogs.ShowMessage(Notice(parts_.Language.MessageTexts(text::NoFileSpecified)));
        return;
    }
    // Deleting the old file and writing the new one are one step of the platform.
    const bool written = Attempt(saveName, [&] { platform.Files.WriteWhole(name, WithBeginning(text)); });
    if (!written) return TellUnwritten(name);
    TellSaved(parts_.Calls, parts_.Language, name);
}

void Receiver::cmdReceiveNew_Click() {
    parts_.Controls.txtRX.Text = "";
    characters_ = 0;
    lines_ = 0;
    last_ = 0;
    ShowCount();
}

void Receiver::cmdReceiveExit_Click() {
    Run(parts_.Calls.ControlsEnable, ControlsMode::Free);
    ShowView(false);
    cmdReceiveNew_Click();
    Run(parts_.Calls.cmdReturn_Click);
    // A transmission keeps the window frozen.
    if (parts_.Store.TransmitActive) Run(parts_.Calls.ControlsEnable, ControlsMode::Frozen);
    Run(parts_.Calls.RefreshTitle);
}

void Receiver::LoadClipboardModule() {
    if (parts_.Port.IsSending) return parts_.Platform.System.Beep();
    const bool asks = parts_.Store.HasUnsavedLines();
    if (asks && !AskToClear(parts_.Platform.Dialogs, parts_.Language)) return;
    std::string text;
    Attempt(clipboardName, [&] { text = parts_.Platform.Clipboard.GetText(); });
    if (Import(Trim(text), UnsavedProgram::Discard, StepKind::Clipboard) == LoadResult::Loaded)
        cmdReceiveExit_Click();
}

}  // namespace kvt
