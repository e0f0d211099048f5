#include "files/received_program.h"

#include "basic/run_time_error.h"
#include "basic/text.h"

namespace kvt {

namespace {

constexpr const char* importName = "cmdReceiveImport_Click";
constexpr const char* clipboardName = "LoadClipboardModule";

}  // namespace

ReceivedProgram::ReceivedProgram(Form& form, Parts parts) : txtRX(form, "txtRX"), parts_(parts) {
    txtRX.Visible = false;
}

void ReceivedProgram::cmdReceiveImport_Click() {
    FileService& files = parts_.Platform.Files;
    // 1.
    txtRX.Text = std::string(Trim(txtRX.Text));
    if (txtRX.Text.Empty()) {
        parts_.Platform.Dialogs.ShowMessage(Notice(parts_.Language.ErrorTexts(text::NoLines)));
        return;
    }
    // 2.
    const std::string scratch = SettingsFolder + "Receive.txt";
    if (files.Exists(scratch)) Attempt(importName, [&] { files.Delete(scratch); });
    Attempt(importName, [&] { files.WriteWhole(scratch, txtRX.Text); });
    // 3. LoadFile is not to ask.
    parts_.Store.ProgramChanged = false;
    std::string name = scratch;
    parts_.Reader.LoadFile(name);
    // 4. The program has no file now.
    if (files.Exists(scratch)) Attempt(importName, [&] { files.Delete(scratch); });
    parts_.Controls.dlgFile.FileName.clear();
    parts_.Controls.lblPath.Caption = "";
    parts_.Controls.lblFileName.Caption = "";
    // 5.
    parts_.Store.ProgramChanged = true;
    // 6.
    cmdReceiveExit_Click();
}

void ReceivedProgram::cmdReceiveExit_Click() {
    txtRX.Text = "";
    Run(parts_.Calls.cmdReturn_Click);
    Run(parts_.Calls.RefreshTitle);
}

void ReceivedProgram::LoadClipboardModule() {
    const Texts& texts = parts_.Language;
    // 1.
    if (parts_.Store.LineCount() > 0 && parts_.Store.ProgramChanged) {
        const Answer answer = parts_.Platform.Dialogs.ShowMessage(
            Question(texts.MessageTexts(text::ClearAnyway), texts.MessageTexts(text::ClearTitle)));
        if (answer == Answer::No) return;
    }
    // 2.
    Attempt(clipboardName, [&] { txtRX.Text = std::string(Trim(parts_.Platform.Clipboard.GetText())); });
    // 3.
    cmdReceiveImport_Click();
}

}  // namespace kvt
