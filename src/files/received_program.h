#pragma once

#include <string>

#include "files/cnc_reader.h"

namespace kvt {

// A program that came as text, from the clipboard or the machine, and its way into the store: through a scratch
// file, so that it is recognised as any file is.
class ReceivedProgram {
public:
    struct Parts {
        ProgramStore& Store;
        FileControls& Controls;
        CncReader& Reader;
        const Texts& Language;
        Services& Platform;
        WorkbenchCalls& Calls;
    };
    ReceivedProgram(Form& form, Parts parts);

    TextBox txtRX;  // collects what has come

    // The folder of the scratch file, with a separator at its end.
    std::string SettingsFolder;

    // Brings the text of txtRX into the editor as a changed program without a file. An empty text is told.
    void cmdReceiveImport_Click();
    // Leaves the receive view and empties it.
    void cmdReceiveExit_Click();
    // The same for the clipboard's text, after a question where a changed program would go.
    void LoadClipboardModule();

private:
    Parts parts_;
};

}  // namespace kvt
