#pragma once

#include <string>
#include <vector>

#include "files/cnc_reader.h"
#include "files/cnc_writer.h"
#include "platform/controls.h"
#include "shell/user_data.h"

namespace kvt {

// Keeps an unsaved program in "Recovery.txt", for the start after a crash. The file has the form of a program
// file; the name that the program had follows its units line, where no reader looks.
class Recovery {
public:
    struct Parts {
        ProgramStore& Store;
        FileControls& File;
        CncReader& Reader;
        CncWriter& Writer;
        const Texts& Language;
        UserData& Data;
        Services& Platform;
        WorkbenchCalls& Calls;
    };
    Recovery(Form& window, const Parts& parts);

    // Writes what has changed since the last time, twice a second while the window is up.
    Timer tmrRecovery;

    // At the start: asks about what a crash or a program given up has left, the latest first, until one is wanted; it
    // is loaded as a changed program under its old name. One that is not is kept as "Recovery.old.txt", the
    // next one as "Recovery.old.2.txt".
    void Restore();
    // Puts a copy of the unsaved program beside the file, under a name that no other one has, for the next start.
    // False where it could not be written.
    bool KeepRecoveryCopy();
    // At the end: the file goes where the program was saved or is dropped, and holds the last state otherwise. What
    // the user has tried to save in vain is not dropped.
    void End(bool dropped);

private:
    void tmrRecovery_Timer();
    // Writes the copy, or takes it away.
    void Write();
    void Remove();
    // The files that a start looks at, the latest first.
    std::vector<std::string> Copies() const;
    std::string Text() const;
    bool IsWanted(const std::string& file, const std::string& text);
    void Load(const std::string& file, const std::string& text);
    void SetAside(const std::string& file, const std::string& text);
    std::string FileName() const;

    Parts parts_;
    std::string written_;  // what the file is to hold; empty while there is none of this run
    bool failed_ = false;
};

}  // namespace kvt
