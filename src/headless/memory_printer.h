#pragma once

#include <deque>
#include <functional>
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
    void BeginJob(std::string_view) override {}
    void ShowPrinter(PrinterDialog& dialog) override;
    void Print(std::string_view line) override;
    void EndDocument() override;
    void PrintForm(const Form& form) override;

    // False for a machine without a printer.
    bool Present = true;
    std::string Printed;
    int Documents = 0;
    // How many windows were printed; OnForm looks at each while it is.
    int Forms = 0;
    std::function<void(const Form&)> OnForm;
    // The copies that a user chooses, 0 for a cancelled dialog. Without an answer the dialog counts as cancelled.
    std::deque<int> Answers;

private:
    void Demand() const;
};

}  // namespace kvt
