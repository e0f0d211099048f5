#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/picture_box.h"

namespace kvt {

// What the user chose for printing. Copies keeps the number last chosen.
struct PrinterDialog {
    int Copies = 1;
};

// One command of the user to print.
struct PrintJob {
    std::string Path;  // of the file that is printed; empty where there is none
    // What of it is printed; stands behind the file's name in the name of a PDF. Empty for the program itself.
    std::string Part;
    std::string PageText = "Page %1 of %2";  // the number of a page, at the right of the head
    std::string FileTitle = "Print to PDF";  // of the dialog that asks for the file of a PDF
    // The lines of the table as they stand on paper, heads first, where they are others than those of the text.
    std::vector<std::string> Table;
    // Shows the pages instead; they can be printed from there.
    bool Preview = false;
};

// What a printed line is. The head stands on every page, with the page's number. A table begins with the names of its
// columns, which stand on every page of it; its lines decide how wide the print is.
enum class PrintedLine : std::uint8_t { Head, Text, Table };

// A drawing, cut to a part of its field, that fills a page below a line of text.
struct PrintedDrawing {
    const PictureBox& Field;
    FieldArea Area;
    std::string Title;  // at the left
    std::string Notes;  // at the right
};

// The printer of the machine. What it is given makes up a document, which is one print job. Without a printer
// every call is error 482.
class PrinterService {
public:
    virtual ~PrinterService() = default;
    // The names of the fonts that it prints with.
    virtual std::vector<std::string> Fonts() = 0;
    // The dialog and the documents that follow belong to one command of the user.
    virtual void BeginJob(const PrintJob& job) = 0;
    // Lets the user choose printer and copies. A cancelled dialog is error 32755.
    virtual void ShowPrinter(PrinterDialog& dialog) = 0;
    // Prints one line; a text with line ends (CR LF) of its own takes several. Pages break by themselves.
    virtual void Print(std::string_view line, PrintedLine what) = 0;
    // Puts a drawing into the document.
    virtual void PrintDrawing(const PrintedDrawing& drawing) = 0;
    // Error 32755 where the user gives no name for a PDF, or leaves a preview without printing.
    virtual void EndDocument() = 0;

    // The PDF file that the last document became; empty where it went to a printer.
    std::string LastFile;
    // Font of what is printed from now on, and its largest size, in points.
    std::string FontName;
    double FontSize = 10;
};

}  // namespace kvt
