#pragma once

#include "files/cnc_writer.h"

namespace kvt {

// Puts the program on paper: as text, with the columns that are in sight at that moment.
class ProgramPrint {
public:
    struct Parts {
        ProgramStore& Store;
        FileControls& Controls;
        CncWriter& Writer;
        const Texts& Language;
        Services& Platform;
        WorkbenchCalls& Calls;
    };
    explicit ProgramPrint(Parts parts) : parts_(parts) {}

    // Copies keeps the number that the user chose last.
    PrinterDialog dlgPrint;
    // Set while the print button is at work, which asks nothing.
    bool DirectPrint = false;

    void mnuPrint_Click();
    // Lets the user choose a printer, and nothing more.
    void cmdPrinterDialog_Click();

private:
    Parts parts_;
};

}  // namespace kvt
