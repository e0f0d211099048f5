#pragma once

#include <array>
#include <string>

#include "files/cnc_reader.h"
#include "program/program_store.h"
#include "program/workbench_calls.h"
#include "transfer/port_control.h"

namespace kvt {

// The receive view: collects whatever the machine sends until the user ends it, and brings it into the editor or
// to a file. There is no end mark. The clipboard's text goes the same way into the editor.
class Receiver {
public:
    struct Parts {
        ProgramStore& Store;
        TransferControls& Controls;
        PortControl& Port;
        FileControls& File;
        CncReader& Reader;
        // The editor's frames, in whose place the view's buttons stand.
        std::array<Frame*, 3> EditorFrames;
        const Texts& Language;
        Services& Platform;
        WorkbenchCalls& Calls;
    };
    explicit Receiver(Parts parts);
    ~Receiver();
    Receiver(const Receiver&) = delete;
    Receiver& operator=(const Receiver&) = delete;

    // The folder of the scratch file, with a separator at its end.
    std::string SettingsFolder;

    // Opens the view, empty. Nothing while communication is off.
    void mnuRX_Click();
    // An event of the port.
    void MSComm1_OnComm(CommEvent event);
    // Brings what has come into the editor as a changed program without a file; an unsaved one that stood there
    // stays as a copy for the next start. What cannot be brought in is told, and the view stays as it is. Beeps
    // while something is being sent.
    void cmdReceiveImport_Click();
    // Writes it to a file, which is replaced without a question.
    void cmdReceiveSave_Click();
    void cmdReceiveNew_Click();
    // Leaves the view and empties it.
    void cmdReceiveExit_Click();
    // The clipboard's text as if it had been received, after a question where a changed program would go.
    void LoadClipboardModule();

private:
    void AppendReceived();
    void Add(std::string_view text);
    void Count(std::string_view text);
    void ShowCount();
    void ShowView(bool shown);
    LoadResult Import(std::string_view text, UnsavedProgram old, StepKind kind);
    void TellUnwritten(const std::string& name);

    Parts parts_;
    long long characters_ = 0;
    long long lines_ = 0;
    char last_ = 0;
};

}  // namespace kvt
