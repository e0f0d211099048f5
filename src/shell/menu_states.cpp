#include "shell/menu_states.h"

#include "basic/line_end.h"

namespace kvt {

namespace {

void Enable(bool enabled, std::initializer_list<Control*> controls) {
    for (Control* control : controls) control->Enabled = enabled;
}

// The tool tip of a button, and below it why the button is grey.
void Explain(Control& button, const std::string& why) {
    const std::string& shown = button.ToolTip.Get();
    const std::string own = shown.substr(0, shown.find(LineEnd));
    button.ToolTip = why.empty() ? own : own + std::string(LineEnd) + why;
}

}  // namespace

void MenuStates::Refresh() {
    const bool hasLines = parts_.Store.LineCount() > 0;
    RefreshFile(hasLines);
    RefreshTransfer(hasLines);
    RefreshDraw(hasLines);
}

void MenuStates::RefreshFile(bool hasLines) {
    MainControls& main = parts_.Main;
    Enable(parts_.Store.HasUnsavedLines(), {&main.mnuSave, &main.Button(TopButton::Save)});
    Enable(hasLines, {&main.mnuSaveAs, &main.mnuNew, &main.mnuPrint, &main.mnuPrintPreview,
                      &main.mnuGoToError, &main.RCmnuDelete, &main.RCmnuInsert, &main.cmdDelete,
                      &main.Button(TopButton::New), &main.Button(TopButton::Print), &parts_.Results.cmdRun});
    // The first line of a program can be inserted.
    if (hasLines) main.cmdInsert.Enabled = true;
}

void MenuStates::RefreshTransfer(bool hasLines) {
    TransferControls& transfer = parts_.Transfer;
    CommandButton& receive = parts_.Main.Button(TopButton::Receive);
    CommandButton& transmit = parts_.Main.Button(TopButton::Transmit);
    const bool enabled = transfer.chkEnableCom.Value != 0;
    Enable(enabled, {&transfer.RCmnuRX, &transfer.mnuRX, &receive});
    Enable(enabled && hasLines, {&transfer.RCmnuTX, &transfer.mnuTX, &transmit});
    const std::string why = parts_.Port.WhyOff();
    for (CommandButton* button : {&receive, &transmit}) Explain(*button, why);
    transfer.chkEnableCom.ToolTip = why;
}

void MenuStates::RefreshDraw(bool hasLines) {
    parts_.Main.mnuDraw.Enabled = hasLines;
    parts_.Main.Button(TopButton::Draw).Enabled = hasLines && !parts_.Drawing.Opening();
}

}  // namespace kvt
