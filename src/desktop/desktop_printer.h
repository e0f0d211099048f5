#pragma once

#include <QPainter>
#include <QPrinter>
#include <memory>

#include "desktop/view.h"
#include "platform/printer.h"

namespace kvt {

// The printers of the system. A machine always has one: where none is installed what is printed becomes a PDF
// file, and the user is asked for its name where no dialog has asked before. It prints in fixed pitch, so that
// columns stay columns; a line that is too long for the page goes on in the next one.
class DesktopPrinter : public PrinterService {
public:
    explicit DesktopPrinter(DesktopContext& desktop);

    std::vector<std::string> Fonts() override;
    void BeginJob(std::string_view path) override;
    void ShowPrinter(PrinterDialog& dialog) override;
    void Print(std::string_view line) override;
    void EndDocument() override;
    void PrintForm(const Form& form) override;

    // Prints what follows to this PDF file without a question.
    void PrintToFile(const QString& file);

private:
    QPrinter& Device();
    // Opens a document. Error 32755 where the user gave no name for its file, 482 where it cannot be opened.
    void Begin();
    void PutLine(const QString& line);
    void AskForFile();
    QString ProposedFile() const;

    DesktopContext& desktop_;
    std::unique_ptr<QPrinter> device_;
    std::unique_ptr<QPainter> painter_;
    QString path_;
    bool chosen_ = false;
    // In the pixels of the device.
    double top_ = 0;
};

}  // namespace kvt
