#pragma once

#include <string>

#include "files/cnc_reader.h"
#include "files/file_controls.h"
#include "platform/services.h"
#include "program/texts.h"

namespace kvt {

// The file that a start opens: that of the command line, else the one that was in the editor at the last end.
class LastFile {
public:
    LastFile(FileControls& file, CncReader& reader, const Texts& language, Services& platform)
        : file_(file), reader_(reader), language_(language), platform_(platform) {}

    // The text of the command line, which is looked at where the settings name the last file.
    std::string CommandLine;

    // The settings name this file; empty where they name none.
    void Choose(const std::string& last);
    // Opens nothing.
    void Forget();
    // Opens the file, where it exists.
    void Open();
    bool Exists() const { return !name_.empty() && platform_.Files.Exists(name_); }
    // The file that the next start is to open.
    std::string ForNextStart() const;
    // Tells that the command line names a file that is not there.
    void TellMissing();

private:
    // The text between the outer double quotes of the command line, if it has any.
    std::string NameInCommandLine() const;

    FileControls& file_;
    CncReader& reader_;
    const Texts& language_;
    Services& platform_;
    std::string name_;  // of the file to open; empty where there is none
    // The command line names a file that is not there.
    bool missing_ = false;
};

}  // namespace kvt
