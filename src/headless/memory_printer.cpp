#include "headless/memory_printer.h"

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

void MemoryPrinter::ShowPrinter(PrinterDialog& dialog) {
    Demand();
    int copies = 0;
    if (!Answers.empty()) {
        copies = Answers.front();
        Answers.pop_front();
    }
    if (copies < 1) throw RunTimeError(fault::Cancelled);
    dialog.Copies = copies;
}

void MemoryPrinter::Print(std::string_view line) {
    Demand();
    Printed += line;
    Printed += LineEnd;
}

void MemoryPrinter::EndDocument() {
    Demand();
    ++Documents;
}

void MemoryPrinter::PrintForm(const Form& form) {
    Demand();
    ++Forms;
    if (OnForm) OnForm(form);
}

}  // namespace kvt
