#include "files/program_print.h"

#include "basic/run_time_error.h"
#include "basic/text.h"

namespace kvt {

namespace {

constexpr const char* printName = "mnuPrint_Click";

// Runs a statement as Attempt does, but for the dialog that the user has cancelled: false then, and no report.
template <class Statement>
bool GoesOn(const char* procedure, Statement statement) {
    try {
        statement();
    } catch (const RunTimeError& error) {
        if (error.Number == fault::Cancelled) return false;
        TellError(error, procedure);
    }
    return true;
}

}  // namespace

void ProgramPrint::mnuPrint_Click() {
    PrinterService& printer = parts_.Platform.Printer;
    // 1.
    Run(parts_.Calls.cmdReturn_Click);
    Run(parts_.Calls.HideSettings);
    // 2.
    if (parts_.Store.LineCount() == 0) {
        parts_.Platform.Dialogs.ShowMessage(Notice(parts_.Language.ErrorTexts(text::NoLines)));
        return;
    }
    // 3.
    printer.BeginJob(parts_.Controls.lblPath.Caption.Get());
    if (!DirectPrint && !GoesOn(printName, [&] { printer.ShowPrinter(dlgPrint); })) return;
    // 4.
    parts_.Writer.PrintMode = true;
    const std::string text = parts_.Writer.GenerateAll();
    parts_.Writer.PrintMode = false;
    // 5. Each copy is a job of its own.
    const int copies = dlgPrint.Copies;
    for (int copy = 1; copy <= copies; ++copy) {
        const std::string path = parts_.Controls.lblPath.Caption.Get();
        for (const std::string_view line :
             {ExtractFileName(path), std::string_view(path), std::string_view(), std::string_view(text)}) {
            if (!GoesOn(printName, [&] { printer.Print(line); })) return;
        }
        Attempt(printName, [&] { printer.EndDocument(); });
    }
}

void ProgramPrint::cmdPrinterDialog_Click() {
    GoesOn("cmdPrinterDialog_Click", [&] {
        parts_.Platform.Printer.BeginJob(parts_.Controls.lblPath.Caption.Get());
        parts_.Platform.Printer.ShowPrinter(dlgPrint);
    });
}

}  // namespace kvt
