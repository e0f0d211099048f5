#include "transfer/transmitter.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "basic/line_end.h"
#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/stack_guard.h"
#include "files/cnc_format.h"

namespace kvt {

namespace {

constexpr const char* transmitName = "mnuTX_Click";

// "1:05" of seconds.
std::string MinutesText(double seconds) {
    const int whole = ToLong(std::ceil(seconds));
    return PlainNumber(whole / 60) + ":" + Format(whole % 60, "00");
}

}  // namespace

Transmitter::Transmitter(Form& form, Parts parts) : tmrTransmit(form, "tmrTransmit", 1), parts_(parts) {
    tmrTransmit.Enabled = false;
    tmrTransmit.OnTimer = [this] { tmrTransmit_Timer(); };
    for (Menu* entry : {&parts_.Controls.mnuTX, &parts_.Controls.RCmnuTX})
        entry->OnClick = [this] { mnuTX_Click(); };
}

bool Transmitter::Attempt(const std::function<void()>& statement) {
    // The end of the file is the normal end.
    return parts_.Port.AttemptPort(transmitName, statement,
                                   [](int number) { return number == fault::InputPastEnd; });
}

void Transmitter::mnuTX_Click() {
    if (sending_) return;
    ProgramStore& store = parts_.Store;
    if (store.LineCount() < 1) {
        parts_.Platform.Dialogs.ShowMessage(Notice(parts_.Language.ErrorTexts(text::NoLines)));
        return;
    }
    if (!parts_.Port.ComEnabled) return parts_.Platform.System.Beep();
    Run(parts_.Calls.HideSettings);
    // Without a port there is nothing to begin.
    if (!OpenPort()) return;
    sending_ = true;
    store.TransmitActive = true;
    parts_.Port.IsSending = true;
    parts_.Port.HasVanished = false;
    WasCut = false;
    lastLine_.clear();
    allLines_ = 0;
    selectedBefore_ = store.lvCncProgram.SelectedRow();
    // What is sent is a whole program: the end code that it lacks is added, and stays.
    parts_.Writer.AddEndCode();
    Freeze();
    if (!MakeScratch(text_)) return Finish();
    Begin();
    while (sending_) {
        const long before = steps_;
        const bool alive = parts_.Platform.System.WaitUntil(
            [this, before] { return sending_ && steps_ == before ? LeftOfStep() : 0; });
        if (!alive) Stop();
        if (steps_ == before) RunStep();
    }
}

void Transmitter::Finish() {
    ProgramStore& store = parts_.Store;
    if (parts_.Platform.Files.Exists(scratch_)) Attempt([&] { parts_.Platform.Files.Delete(scratch_); });
    Attempt([&] { store.lvCncProgram.Select(selectedBefore_); });
    Attempt([&] { store.lvCncProgram.EnsureVisible(selectedBefore_); });
    store.lvCncProgram.RowsChanged();
    Unfreeze();
    TellVanished();
    parts_.Port.TellPending();
    TellSent();
    parts_.Port.IsSending = false;
    sending_ = false;
}

// False where it does not open: one message has told that.
bool Transmitter::OpenPort() {
    bool chosen = true;
    const bool opened = Attempt([&] { chosen = parts_.Port.OpenForUse(); });
    // Another error than those of a port in the wrong state switches nothing off.
    if (!opened && parts_.Port.ComEnabled)
        parts_.Platform.Dialogs.ShowMessage(Notice(parts_.Language.ErrorTexts(text::PortProblem)));
    return opened && chosen;
}

void Transmitter::Freeze() {
    Run(parts_.Calls.ControlsEnable, ControlsMode::Frozen);
    Run(parts_.Calls.ControlsPositioning);
    parts_.Controls.frTransmit.Visible = true;
    Form& form = parts_.cmdStop.OwningForm();
    form.MousePointer = pointer::ArrowAndHourglass;
    parts_.Store.lvCncProgram.MousePointer = pointer::ArrowAndHourglass;
    parts_.tmr1sec.Enabled = false;
}

void Transmitter::Unfreeze() {
    parts_.tmr1sec.Enabled = true;
    Form& form = parts_.cmdStop.OwningForm();
    form.MousePointer = pointer::Usual;
    parts_.Store.lvCncProgram.MousePointer = pointer::Usual;
    parts_.Controls.frTransmit.Visible = false;
    // A step run is left by it, also one that has come to its end.
    parts_.cmdStop.Visible = !parts_.cmdRun.Visible;
    Run(parts_.Calls.cmdReturn_Click);
    parts_.Store.TransmitActive = false;
    Run(parts_.Calls.ControlsPositioning);
    Run(parts_.Calls.ControlsEnable, ControlsMode::Free);
    // What has come meanwhile has brought up the receive view, which keeps the window frozen.
    if (parts_.Controls.frRXcode.Visible) Run(parts_.Calls.ControlsEnable, ControlsMode::Frozen);
}

// Through a file the bytes are those of a save. A text that could not be written is not sent: what lies there then
// is another one. False, and told, then.
bool Transmitter::MakeScratch(std::string& text) {
    FileService& files = parts_.Platform.Files;
    scratch_ = SettingsFolder + "Transmit.txt";
    if (files.Exists(scratch_)) Attempt([&] { files.Delete(scratch_); });
    const bool written = Attempt([&] {
        files.WriteWhole(scratch_, parts_.Writer.GenerateAll());
        text = files.ReadWhole(scratch_);
    });
    metric_ = parts_.Store.Metric;
    mk2_ = parts_.Store.IsMK2();
    if (written) return true;
    const Texts& texts = parts_.Language;
    parts_.Platform.Dialogs.ShowMessage(Notice(FileMessage(texts, scratch_, text::NotSent),
                                               texts.ErrorTexts(text::SerialPort), Icon::Exclamation));
    return false;
}

void Transmitter::Begin() {
    const bool filter = parts_.Port.TX().chkFilter.Value != 0;
    left_ = AmountOf(text_, filter);
    allLines_ = left_.Lines;
    lines_.emplace(text_, filter);
    draining_ = false;
    RunStep();
}

double Transmitter::LeftOfStep() const {
    const SerialPort& port = parts_.Port.Port();
    return port.MillisecondsLeft() - (draining_ ? 0 : port.LeadTime());
}

void Transmitter::RunStep() {
    // A message of the one before may still be open.
    const StackGuard guard(stepping_);
    if (!guard.Entered()) return;
    ++steps_;
    if (draining_) return Finish();
    NextLine();
    SetTimer();
}

void Transmitter::SetTimer() {
    tmrTransmit.Interval = std::max(1, ToLong(std::ceil(LeftOfStep())));
    tmrTransmit.Enabled = true;
}

void Transmitter::tmrTransmit_Timer() {
    tmrTransmit.Enabled = false;
    if (!sending_ || stepping_) return;
    LeftOfStep() > 0 ? SetTimer() : RunStep();
}

// Gives the next line to the port; the little that it is to be early is in the wait for it.
void Transmitter::NextLine() {
    std::string line;
    // Gone, or refusing what it is given: that has been told, and the next line would fare no better.
    draining_ = !parts_.Port.Port().IsOpen() || !lines_->Next(line);
    if (draining_) return;
    if (!parts_.Store.TransmitActive) {
        SendUnits();
        WasCut = true;
        draining_ = true;
        return;
    }
    ShowProgress();
    SendLine(line);
    --left_.Lines;
    left_.Characters -= line.size() + LineEnd.size();
}

void Transmitter::SendLine(const std::string& line) {
    SerialPort& port = parts_.Port.Port();
    // The settings that a reception has left would spoil it.
    Attempt([&] { port.SetSettings(parts_.Port.TX().Settings); });
    Attempt([&] {
        port.Output(line + std::string(LineEnd));
        lastLine_ = line;
    });
    ShowRow(line);
}

void Transmitter::ShowRow(std::string_view line) {
    ListView& list = parts_.Store.lvCncProgram;
    int row = 0;
    Attempt([&] { row = RowOfLine(line, mk2_); });
    // Row 1 is the one of line 00, which the "%", the header and the notes count for too: it is not shown for any.
    if (row <= 1) return;
    Attempt([&] { list.EnsureVisible(row); });
    Attempt([&] { list.Select(row); });
}

// The control's reception ends with the units.
void Transmitter::SendUnits() {
    // A reception meanwhile has put the port to its own settings.
    Attempt([&] { parts_.Port.Port().SetSettings(parts_.Port.TX().Settings); });
    const std::string units = (metric_ ? "M" : "\"") + std::string(LineEnd);
    Attempt([&] { parts_.Port.Port().Output(units); });
}

void Transmitter::ShowProgress() {
    const int lines = allLines_;
    const int line = lines - left_.Lines + 1;
    TransferControls& controls = parts_.Controls;
    controls.prgTransmit.Max = lines;
    controls.prgTransmit.SetValue(line);
    const Texts& texts = parts_.Language;
    controls.lblTransmitLine.Caption =
        Filled(texts.ErrorTexts(text::LineOf), {PlainNumber(line), PlainNumber(lines)});
    const double each = parts_.Port.Port().Line().CharacterMilliseconds();
    const std::string time = MinutesText(static_cast<double>(left_.Characters) * each / 1000);
    controls.lblTransmitLeft.Caption =
        Filled(texts.ErrorTexts(text::TimeLeft), {time, parts_.Port.TX().Baud});
}

// What went wrong has been told in a box.
void Transmitter::TellSent() {
    if (parts_.Port.HasVanished || allLines_ == 0) return;
    const Texts& texts = parts_.Language;
    const std::string lines = PlainNumber(allLines_);
    const std::string sent = PlainNumber(allLines_ - left_.Lines);
    Run(parts_.Calls.Tell, WasCut ? Filled(texts.NoticeTexts(text::SendingStopped), {sent, lines})
                                  : Filled(texts.NoticeTexts(text::LinesSent), {lines}));
}

void Transmitter::TellVanished() {
    if (!parts_.Port.HasVanished) return;
    const Texts& texts = parts_.Language;
    const std::string told = Filled(texts.ErrorTexts(text::PortGoneAfter), {parts_.Port.PortName()});
    parts_.Platform.Dialogs.ShowMessage(Notice(told + std::string(LineEnd) + lastLine_,
                                               texts.ErrorTexts(text::SerialPort), Icon::Exclamation));
}

}  // namespace kvt
