#pragma once

#include <QPrinter>
#include <memory>
#include <optional>
#include <vector>

#include "desktop/paper_painter.h"
#include "desktop/view.h"
#include "platform/page_layout.h"

namespace kvt {

// The printers of the system. A machine always has one: where none is installed what is printed becomes a PDF
// file, and the user is asked for its name where no dialog has asked before. It prints in fixed pitch, so that
// columns stay columns, and turns the sheet to what is printed.
class DesktopPrinter : public PrinterService {
public:
    explicit DesktopPrinter(DesktopContext& desktop);

    std::vector<std::string> Fonts() override;
    void BeginJob(const PrintJob& job) override;
    void ShowPrinter(PrinterDialog& dialog) override;
    void Print(std::string_view line, PrintedLine what) override;
    void PrintDrawing(const PrintedDrawing& drawing) override;
    void EndDocument() override;

    // Prints what follows to this PDF file without a question.
    void PrintToFile(const QString& file);

private:
    // A document is gathered, and painted when it ends: how it lies on the page follows from all of it.
    struct Document {
        std::vector<PageLine> Lines;
        std::optional<PaperDrawing> Drawing;
        QString Title, Notes;  // of the drawing

        bool IsEmpty() const { return Lines.empty() && !Drawing; }
    };

    QPrinter& Device();
    // Chooses how the sheet lies, unless the user has done so in the dialog.
    void TurnSheet(const Document& document);
    void Paint(const Document& document, QPrinter& device) const;
    void PaintLines(const Document& document, QPrinter& device, QPainter& painter) const;
    void PaintDrawing(const Document& document, QPrinter& device, QPainter& painter) const;
    Sheet SheetOf(const QPrinter& device) const;
    QFont TextFont(double points) const;
    void ShowPreview(const Document& document);
    void AskForFile();
    QString ProposedFile() const;

    DesktopContext& desktop_;
    std::unique_ptr<QPrinter> device_;
    PrintJob job_;
    Document document_;
    // A file or a printer was chosen for this job; the sheet was turned by the user.
    bool chosen_ = false;
    bool turned_ = false;
};

}  // namespace kvt
