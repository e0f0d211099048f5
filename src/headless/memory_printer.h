#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/printer.h"

namespace kvt {

// A printer without paper: it keeps the text that it was given, each line with CR LF.
class MemoryPrinter : public PrinterService {
public:
    MemoryPrinter() { BeginRun(); }
    // For a new run of the program: font and size as the printer has them.
    void BeginRun() {
        FontName = "Courier New";
        FontSize = 10;
    }

    std::vector<std::string> Fonts() override;
    void BeginJob(const PrintJob& job) override { Job = job; }
    void ShowPrinter(PrinterDialog& dialog) override;
    void Print(std::string_view line, PrintedLine what) override;
    void PrintDrawing(const PrintedDrawing& drawing) override;
    void EndDocument() override;

    // False for a machine without a printer.
    bool Present = true;
    std::string Printed;
    // What previews have shown; a title for each drawing.
    std::string Previewed;
    PrintJob Job;
    int Documents = 0;
    // How many drawings were printed.
    int Drawings = 0;
    // The copies that a user chooses, 0 for a cancelled dialog, or for a preview that is left without printing. Without
    // an answer the one counts as cancelled, the other as left.
    std::deque<int> Answers;

private:
    void Demand() const;
    int NextAnswer();

    std::string pending_;  // of a document that a preview will show
    int pendingDrawings_ = 0;
};

}  // namespace kvt
