#include "headless/memory_printer.h"

#include <utility>

#include "basic/line_end.h"
#include "basic/run_time_error.h"

namespace kvt {

void MemoryPrinter::Demand() const {
    if (!Present) throw RunTimeError(fault::PrinterError);
}

std::vector<std::string> MemoryPrinter::Fonts() {
    Demand();
    return {"Arial", "Courier", "Courier New", "Times New Roman"};
}

int MemoryPrinter::NextAnswer() {
    if (Answers.empty()) return 0;
    const int answer = Answers.front();
    Answers.pop_front();
    return answer;
}

void MemoryPrinter::ShowPrinter(PrinterDialog& dialog) {
    Demand();
    const int copies = NextAnswer();
    if (copies < 1) throw RunTimeError(fault::Cancelled);
    dialog.Copies = copies;
}

void MemoryPrinter::Print(std::string_view line, PrintedLine) {
    Demand();
    std::string& text = Job.Preview ? pending_ : Printed;
    text += line;
    text += LineEnd;
}

void MemoryPrinter::PrintDrawing(const PrintedDrawing& drawing) {
    Demand();
    if (!Job.Preview) return void(++Drawings);
    ++pendingDrawings_;
    pending_ += drawing.Title + std::string(LineEnd);
}

void MemoryPrinter::EndDocument() {
    Demand();
    const std::string shown = std::exchange(pending_, {});
    const int drawings = std::exchange(pendingDrawings_, 0);
    if (Job.Preview) {
        Previewed += shown;
        if (NextAnswer() < 1) throw RunTimeError(fault::Cancelled);
        if (drawings == 0) Printed += shown;
        Drawings += drawings;
    }
    ++Documents;
}

}  // namespace kvt
