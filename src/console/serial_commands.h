#pragma once

#include <memory>
#include <string>

#include "shell/workbench.h"
#include "system/offscreen_platform.h"
#include "system/posix_system.h"
#include "system/temporary_folder.h"

namespace kvt {

// The command line has named the file that a dialog would ask for.
class SerialDialogs : public OffscreenDialogs {
public:
    bool ShowSave(FileDialog& dialog) override;

    std::string FileName;
};

// A workbench without a window on a real port.
class SerialWorkbench {
public:
    // The device, and the settings of both directions as "300,N,8,1"; see PosixPort for speedUp.
    SerialWorkbench(const std::string& device, const std::string& settings, double speedUp = 1);
    SerialWorkbench(const SerialWorkbench&) = delete;
    SerialWorkbench& operator=(const SerialWorkbench&) = delete;

    OffscreenPlatform Platform;
    SerialDialogs Dialogs;
    PosixPort Port;
    PosixSystem System;
    kvt::Services Services;
    std::unique_ptr<kvt::Workbench> Workbench;

private:
    TemporaryFolder scratch_;
};

struct SerialOptions {
    std::string File;
    std::string Port;
    std::string Settings = "300,N,8,1";
    bool WithComments = false;  // sends notes and comments too
    double Idle = 0;            // seconds without a character that end a reception; 0 for never
};

struct MachineOptions {
    std::string Machine = "MK4";
    int Baud = 300;
    std::string Port;  // a pseudo-terminal of its own without one
    std::string Send;
    std::string Receive;
    long DropAfter = -1;
};

// Sends a program to the machine as the window does; Ctrl+C stops it as the Stop button does.
int SendFile(const SerialOptions& options);
// Collects what the machine sends until Ctrl+C, or silence, and writes it as the receive view does.
int ReceiveFile(const SerialOptions& options);
// Plays the machine at the other end.
int PlayMachine(const MachineOptions& options);

}  // namespace kvt
