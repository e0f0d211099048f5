#include "files/program_print.h"

#include "basic/run_time_error.h"
#include "basic/text.h"

namespace kvt {

namespace {

constexpr const char* printName = "mnuPrint_Click";

// Runs a statement as Attempt does, but for the dialog that the user has cancelled: false then, and no report.
template <class Statement>
bool AttemptUnlessCancelled(const char* procedure, Statement statement) {
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
    Run(parts_.Calls.cmdReturn_Click);
    Run(parts_.Calls.HideSettings);
    if (parts_.Store.LineCount() == 0) {
        parts_.Platform.Dialogs.ShowMessage(Notice(parts_.Language.ErrorTexts(text::NoLines)));
        return;
    }
    printer.BeginJob(parts_.Controls.lblPath.Caption.Get());
    if (!DirectPrint && !AttemptUnlessCancelled(printName, [&] { printer.ShowPrinter(dlgPrint); })) return;
    parts_.Writer.PrintMode = true;
    const std::string text = parts_.Writer.GenerateAll();
    parts_.Writer.PrintMode = false;
    // Each copy is a job of its own.
    const int copies = dlgPrint.Copies;
    for (int copy = 1; copy <= copies; ++copy) {
        const std::string path = parts_.Controls.lblPath.Caption.Get();
        for (const std::string_view line :
             {ExtractFileName(path), std::string_view(path), std::string_view(), std::string_view(text)}) {
            if (!AttemptUnlessCancelled(printName, [&] { printer.Print(line); })) return;
        }
        Attempt(printName, [&] { printer.EndDocument(); });
    }
}

void ProgramPrint::cmdPrinterDialog_Click() {
    AttemptUnlessCancelled("cmdPrinterDialog_Click", [&] {
        parts_.Platform.Printer.BeginJob(parts_.Controls.lblPath.Caption.Get());
        parts_.Platform.Printer.ShowPrinter(dlgPrint);
    });
}

}  // namespace kvt
