#include "console/serial_commands.h"

#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <optional>
#include <utility>

#include "basic/code_page.h"
#include "basic/line_end.h"
#include "basic/number.h"
#include "basic/text.h"
#include "console/commands.h"
#include "console/loaded_file.h"
#include "console/output_file.h"
#include "console/played_machine.h"
#include "shell/arrived_program.h"
#include "system/interrupts.h"

namespace kvt {

namespace {

// One line of a terminal that is written over and over; nothing where there is no terminal.
class ProgressLine {
public:
    void Show(const std::string& text) {
        if (!terminal_ || text == shown_) return;
        std::fprintf(stderr, "\r%-60s", text.c_str());
        std::fflush(stderr);
        shown_ = text;
    }
    ~ProgressLine() {
        if (!shown_.empty()) std::fputc('\n', stderr);
    }

private:
    bool terminal_ = isatty(STDERR_FILENO) == 1;
    std::string shown_;
};

// The boxes that nobody could see; true where one tells a failure. Refused settings are none.
bool TellMessages(const std::string& name, const OffscreenDialogs& dialogs) {
    bool failed = false;
    for (const MessageBox& box : dialogs.Shown) {
        Complain(name, Replace(box.Text, LineEnd, " "));
        failed = failed || box.Picture != Icon::Information;
    }
    return failed;
}

void UseSettings(PortSide& side, const LineSettings& line) {
    side.Baud = PlainNumber(line.Baud);
    side.Parity = std::string(1, line.Parity);
    side.DataBits = PlainNumber(line.DataBits);
    side.StopBits = PlainNumber(line.StopBits);
}

// Opens the port of a serial; false, and told, where it does not open.
bool OpenPort(SerialWorkbench& serial, const std::string& name) {
    if (Attempt("kvtc", [&] { serial.Port.Open(); })) return true;
    Complain(name, "cannot be opened as a serial port");
    return false;
}

}  // namespace

bool SerialDialogs::ShowSave(FileDialog& dialog) {
    dialog.FileName = FileName;
    return true;
}

SerialWorkbench::SerialWorkbench(const std::string& device, const std::string& settings, double speedUp)
    : Port({device}, speedUp),
      System(Port),
      Services{Platform.Files, Dialogs, Platform.Clipboard, Platform.Screen,  System,
               Platform.Focus, Port,    Platform.Printer,   Platform.Programs},
      Workbench(std::make_unique<kvt::Workbench>(Services)) {
    for (std::string* folder : {&Workbench->Transmit.SettingsFolder, &Workbench->Received.SettingsFolder})
        *folder = NameFromSystem(scratch_.Path().string()) + "/";
    const LineSettings line = ParseLineSettings(settings);
    for (PortSide* side : {&Workbench->Transfer.TX, &Workbench->Transfer.RX}) UseSettings(*side, line);
    Workbench->Port.UpdateComSettings();
    Port.SetSettings(Workbench->Transfer.TX.Settings);
}

int SendFile(const SerialOptions& options) {
    SerialWorkbench serial(options.Port, options.Settings);
    std::string name = NameFromSystem(options.File);
    if (serial.Workbench->Reader.LoadFile(name) != LoadResult::Loaded)
        return Complain(options.File, "cannot be read as a CNC program");
    serial.Dialogs.Shown.clear();
    serial.Workbench->Transfer.TX.chkFilter.Value = options.WithComments ? 0 : 1;
    // A stop from here on is obeyed when the first line has left.
    Interrupts interrupts;
    if (!OpenPort(serial, options.Port)) return status::Usage;

    bool stopped = false;
    {
        ProgressLine progress;
        const TransferControls& shown = serial.Workbench->Transfer;
        serial.System.OnLook = [&] {
            progress.Show(shown.lblTransmitLine.Caption.Get() + ", " + shown.lblTransmitLeft.Caption.Get());
            if (!stopped && interrupts.Came()) {
                stopped = true;
                serial.Workbench->Results.cmdStop.Click();
            }
        };
        serial.Workbench->Transmit.mnuTX_Click();
    }
    if (TellMessages(options.Port, serial.Dialogs))
        return serial.Workbench->Port.HasVanished ? status::Finding : status::Usage;
    // A stop behind the last line has cut nothing.
    const bool cut = serial.Workbench->Transmit.WasCut;
    std::printf(cut ? "%s: stopped, the reception was ended with the units mark\n" : "%s: sent\n",
                options.File.c_str());
    return cut ? status::Finding : status::Succeeded;
}

namespace {

// Collects characters until the user ends it, the line goes, or nothing has come for a while.
void Collect(SerialWorkbench& serial, double longestSilence, Interrupts& interrupts) {
    using Clock = std::chrono::steady_clock;
    constexpr double look = 10;  // milliseconds
    ProgressLine progress;
    Clock::time_point last = Clock::now();
    long long arrived = 0;
    serial.System.WaitUntil([&] {
        progress.Show(serial.Workbench->Transfer.lblReceived.Caption.Get());
        if (std::exchange(arrived, serial.Port.Arrived()) != serial.Port.Arrived()) last = Clock::now();
        const double silence = std::chrono::duration<double>(Clock::now() - last).count();
        const bool silent = longestSilence > 0 && arrived > 0 && silence >= longestSilence;
        return silent || !serial.Port.IsOpen() || interrupts.Came() ? 0.0 : look;
    });
}

// As the button of the receive view does; false where the file could not be written.
bool SaveReceived(SerialWorkbench& serial, const std::string& name) {
    SerialDialogs& dialogs = serial.Dialogs;
    const std::size_t shown = dialogs.Shown.size();
    dialogs.FileName = name;
    serial.Workbench->Received.cmdReceiveSave_Click();
    const bool failed = dialogs.Shown.size() > shown;
    dialogs.Shown.resize(shown);
    return !failed;
}

}  // namespace

int ReceiveFile(const SerialOptions& options) {
    if (const std::string why = WhyNotWritten(options.File); !why.empty()) return Complain(options.File, why);
    SerialWorkbench serial(options.Port, options.Settings);
    PrepareToWrite(serial.Platform.Files);
    Interrupts interrupts;
    if (!OpenPort(serial, options.Port)) return status::Usage;
    Collect(serial, options.Idle, interrupts);

    const bool gone = !serial.Port.IsOpen();
    TellMessages(options.Port, serial.Dialogs);
    const TransferControls& shown = serial.Workbench->Transfer;
    const std::string& text = shown.txtRX.Text.Get();
    if (Trim(text).empty()) {
        Complain(options.File, "nothing was received");
        return gone ? status::Finding : status::Usage;
    }
    const std::string count = shown.lblReceived.Caption.Get();
    const auto save = [&](const std::string& name) { return SaveReceived(serial, name); };
    if (!WriteOrKeep(options.File, text, save)) return status::Usage;
    std::printf("%s: %s\n", options.File.c_str(), count.c_str());
    return gone ? status::Finding : status::Succeeded;
}

namespace {

const char* WordsOf(TransferEnd end) {
    switch (end) {
        case TransferEnd::Completed: return "to the end";
        case TransferEnd::Stopped: return "and stopped";
        case TransferEnd::Disconnected: return "until the line went";
        case TransferEnd::CutOff: break;
    }
    return "and dropped";
}

// What the machine makes of a program that has come.
int ReportReceived(const std::string& received, const std::string& machine) {
    OffscreenPlatform platform;
    const TemporaryFolder folder;
    const std::string name = NameFromSystem((folder.Path() / "received").string());
    platform.Files.WriteWhole(name, ReceivedFile(received));
    const std::optional<ArrivedProgram> program = ReadArrivedProgram(platform.Services, name);
    if (!program) {
        std::printf("It is no program that a machine takes.\n");
        return status::Finding;
    }
    const bool fits = MachineNamed(machine) == program->Machine;
    std::printf("It is a program of %d lines for %s%s.\n", program->Lines, FactsOf(program->Machine).Name,
                fits ? "" : ", not for this machine");
    return fits ? status::Succeeded : status::Finding;
}

}  // namespace

int PlayMachine(const MachineOptions& options) {
    if (const std::string why = WhyNotWritten(options.Receive, options.Send);
        !options.Receive.empty() && !why.empty())
        return Complain(options.Receive, why);
    DiskFiles files;
    PrepareToWrite(files);
    std::string program;
    if (!options.Send.empty() &&
        !Attempt("kvtc", [&] { program = files.ReadWhole(NameFromSystem(options.Send)); }))
        return Complain(options.Send, "cannot be read");

    std::optional<PseudoTerminal> terminal;
    PlayedMachine::Line line;
    line.Settings.Baud = options.Baud;
    line.DropAfter = options.DropAfter;
    line.Pseudo = options.Port.empty();
    if (line.Pseudo) {
        line.Handle = terminal.emplace().Handle();
    } else {
        line.Handle = open(options.Port.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
        if (line.Handle < 0 || !SetUpLine(line.Handle, line.Settings))
            return Complain(options.Port, "cannot be opened as a serial port");
    }
    std::printf("%s at %d baud. The workbench finds it with\nKVT_PORTS=%s\n", options.Machine.c_str(),
                options.Baud, line.Pseudo ? terminal->Path().c_str() : options.Port.c_str());
    std::fflush(stdout);

    Interrupts interrupts;
    PlayedMachine machine(line);
    machine.StopRequested = [&] { return interrupts.Came(); };
    int result = status::Succeeded;
    TransferEnd end = TransferEnd::Completed;
    if (!options.Receive.empty() || options.Send.empty()) {
        std::string received;
        end = machine.Receive(received);
        const auto save = [&](const std::string& name) {
            return Attempt("kvtc", [&] { files.WriteWhole(name, received); });
        };
        if (!options.Receive.empty() && !WriteOrKeep(options.Receive, received, save)) return status::Usage;
        std::printf("Received %d characters %s.\n", static_cast<int>(received.size()), WordsOf(end));
        result = end == TransferEnd::Completed ? ReportReceived(received, options.Machine) : status::Finding;
    }
    if (!options.Send.empty() && end == TransferEnd::Completed) {
        end = machine.SendProgram(program);
        std::printf("Sent %s %s.\n", options.Send.c_str(), WordsOf(end));
        if (end != TransferEnd::Completed) result = status::Finding;
    }
    std::fflush(stdout);
    if (end == TransferEnd::Completed) machine.AwaitRelease();
    if (!line.Pseudo) close(line.Handle);
    return result;
}

}  // namespace kvt
