#include "headless/memory_printer.h"

namespace kvt {

void MemoryPrinter::Called() {
    if (!Present) throw RunTimeError(fault::PrinterError);
    faults_.Pass("printer", fault::PrinterError);
}

std::vector<std::string> MemoryPrinter::Fonts() {
    Called();
    return {"Arial", "Courier", "Courier New", "Times New Roman"};
}

void MemoryPrinter::ShowPrinter(PrinterDialog& dialog) {
    Called();
    int copies = 0;
    if (!Answers.empty()) {
        copies = Answers.front();
        Answers.pop_front();
    }
    if (copies < 1) throw RunTimeError(fault::Cancelled);
    dialog.Copies = copies;
}

void MemoryPrinter::Print(std::string_view line) {
    Called();
    Printed += line;
    Printed += "\r\n";
}

void MemoryPrinter::EndDocument() {
    Called();
    ++Documents;
}

void MemoryPrinter::PrintForm(const Form& form) {
    Called();
    ++Forms;
    if (OnForm) OnForm(form);
}

}  // namespace kvt
