#pragma once

#include "headless/faulty_files.h"
#include "headless/faulty_services.h"
#include "headless/memory_platform.h"

namespace kvt {

// The memory half whose calls can be planned to fail, for tests and scripts. Its parts themselves are met by no failure:
// what a test does with them is not what is tried.
class FaultyPlatform : public MemoryServices {
public:
    FaultPlan Faults;

    FaultyPlatform() { System.UseClipboard(clipboard_); }

    void BeginRun() {
        MemoryServices::BeginRun();
        printer_.BeginRun();
    }

private:
    FaultyFiles files_{Files, Faults};
    FaultyClipboard clipboard_{Clipboard, Faults};
    FaultyPort port_{Port, Faults};
    FaultyPrinter printer_{Printer, Faults};
    FaultyPrograms programs_{Programs, Faults};

public:
    kvt::Services Services{files_, Dialogs, clipboard_, Screen, System, Focus, port_, printer_, programs_};
};

}  // namespace kvt
