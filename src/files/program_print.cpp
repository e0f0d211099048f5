#include "files/program_print.h"

#include <vector>

#include "basic/line_end.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "files/paper_table.h"
#include "files/questions.h"
#include "program/machine_controls.h"

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

// Where the table begins in the printed text of a program: behind the notes. It ends with the names of the columns, a
// line for each of the program, and the units.
std::size_t TableIn(std::string_view text, int lines) {
    std::size_t at = text.size();
    for (int line = 0; line < lines + 2 && at >= LineEnd.size(); ++line) {
        const std::size_t before = text.rfind(LineEnd, at - LineEnd.size() - 1);
        if (at <= LineEnd.size() || before == std::string_view::npos) return 0;
        at = before + LineEnd.size();
    }
    return at;
}

}  // namespace

PrintJob ProgramPrint::Job(bool preview) const {
    PrintJob job;
    job.Path = parts_.Controls.lblPath.Caption.Get();
    job.PageText = parts_.Language.NoticeTexts(text::PageOf);
    job.FileTitle = parts_.Language.NoticeTexts(text::PrintToPdf);
    job.Preview = preview;
    const std::string units =
        Filled(parts_.Language.NoticeTexts(text::PaperUnits), {UnitsText(parts_.Store)});
    job.Table = PaperTable(parts_.Store, parts_.Writer, units);
    return job;
}

bool ProgramPrint::Begin() {
    Run(parts_.Calls.cmdReturn_Click);
    Run(parts_.Calls.HideSettings);
    if (parts_.Store.LineCount() > 0) return true;
    parts_.Platform.Dialogs.ShowMessage(Notice(parts_.Language.ErrorTexts(text::NoLines)));
    return false;
}

void ProgramPrint::mnuPrint_Click() {
    if (!Begin()) return;
    PrinterService& printer = parts_.Platform.Printer;
    printer.BeginJob(Job(false));
    if (!DirectPrint && !AttemptUnlessCancelled(printName, [&] { printer.ShowPrinter(dlgPrint); })) return;
    const std::string text = Text();
    // Each copy is a job of its own.
    const int copies = dlgPrint.Copies;
    for (int copy = 1; copy <= copies; ++copy) {
        if (!PrintDocument(text)) return;
    }
    TellPrinted();
}

void ProgramPrint::mnuPrintPreview_Click() {
    if (!Begin()) return;
    parts_.Platform.Printer.BeginJob(Job(true));
    if (PrintDocument(Text())) TellPrinted();
}

std::string ProgramPrint::Text() {
    parts_.Writer.PrintMode = true;
    std::string text = parts_.Writer.GenerateAll();
    parts_.Writer.PrintMode = false;
    return text;
}

bool ProgramPrint::PrintDocument(std::string_view text) {
    PrinterService& printer = parts_.Platform.Printer;
    const std::string path = parts_.Controls.lblPath.Caption.Get();
    const std::size_t tableAt = TableIn(text, parts_.Store.LineCount());
    struct Piece {
        std::string_view Text;
        PrintedLine What;
    };
    const std::string_view name = ExtractFileName(path);
    std::vector<Piece> pieces = {{name, PrintedLine::Head}};
    // Where there are no folders the path tells nothing more.
    if (name != path) pieces.push_back({path, PrintedLine::Head});
    pieces.push_back({std::string_view(), PrintedLine::Head});
    if (tableAt > 0) pieces.push_back({text.substr(0, tableAt - LineEnd.size()), PrintedLine::Text});
    pieces.push_back({text.substr(tableAt), PrintedLine::Table});
    for (const Piece& piece : pieces) {
        if (!AttemptUnlessCancelled(printName, [&] { printer.Print(piece.Text, piece.What); })) return false;
    }
    return AttemptUnlessCancelled(printName, [&] { printer.EndDocument(); });
}

void ProgramPrint::TellPrinted() {
    Run(parts_.Calls.Tell,
        PrintedNotice(parts_.Language, parts_.Platform.Printer, parts_.Controls.lblPath.Caption));
}

void ProgramPrint::cmdPrinterDialog_Click() {
    AttemptUnlessCancelled("cmdPrinterDialog_Click", [&] {
        parts_.Platform.Printer.BeginJob(Job(false));
        parts_.Platform.Printer.ShowPrinter(dlgPrint);
    });
}

}  // namespace kvt
