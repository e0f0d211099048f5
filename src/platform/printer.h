#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvt {

class Form;

// What the user chose for printing. Copies keeps the number last chosen.
struct PrinterDialog {
    int Copies = 1;
};

// The printer of the machine. What it is given makes up a document, which is one print job. Without a printer
// every call is error 482.
class PrinterService {
public:
    virtual ~PrinterService() = default;
    // The names of the fonts that it prints with.
    virtual std::vector<std::string> Fonts() = 0;
    // The dialog and the documents that follow belong to one command of the user, and print the file of this
    // path; it is empty where there is none.
    virtual void BeginJob(std::string_view path) = 0;
    // Lets the user choose printer and copies. A cancelled dialog is error 32755.
    virtual void ShowPrinter(PrinterDialog& dialog) = 0;
    // Prints one line; a text with line ends (CR LF) of its own takes several. Pages break by themselves.
    virtual void Print(std::string_view line) = 0;
    virtual void EndDocument() = 0;
    // Prints a window as it stands on the screen, as large as the page has room for it.
    virtual void PrintForm(const Form& form) = 0;

    // Font and size, in points, of what is printed from now on.
    std::string FontName;
    double FontSize = 10;
};

}  // namespace kvt
