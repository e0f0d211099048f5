#pragma once

#include <string>

#include "platform/controls.h"

namespace kvt {

class Workbench;

// Keeps an unsaved program in "Recovery.txt", for the start after a crash. The file has the form of a program
// file; behind its units line, where no reader looks, stands the name that the program had.
class Recovery {
public:
    explicit Recovery(Workbench& bench);

    // Writes what has changed since the last time, twice a second while the window is up.
    Timer tmrRecovery;

    // At the start: asks about what a crash has left, and loads it as a changed program under its old name. On No
    // it is kept once, as "Recovery.old.txt".
    void Restore();
    // At the end: the file goes where the program was saved or is dropped, and holds the last state otherwise.
    void End(bool dropped);
    // Whether the program in the window is in no file.
    bool Unsaved() const;

private:
    void tmrRecovery_Timer();
    void Keep();
    void Remove();
    void SetAside(const std::string& text);
    std::string FileName() const;

    Workbench& bench_;
    std::string kept_;  // what the file is to hold; empty while there is none of this run
    bool failed_ = false;
};

}  // namespace kvt
