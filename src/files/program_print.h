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
    // Shows the pages, from where they can be printed.
    void mnuPrintPreview_Click();
    // Lets the user choose a printer, and nothing more.
    void cmdPrinterDialog_Click();

private:
    PrintJob Job(bool preview) const;
    // Leaves what lies over the list. False, and told, for a program without lines.
    bool Begin();
    std::string Text();
    // One document. False where a cancelled dialog has ended it.
    bool PrintDocument(std::string_view text);
    void TellPrinted();

    Parts parts_;
};

}  // namespace kvt
