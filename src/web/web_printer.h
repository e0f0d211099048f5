#pragma once

#include <string>
#include <vector>

#include "platform/page_layout.h"
#include "web/web_system.h"

namespace kvt {

// Prints by the browser, whose dialog knows the printers and the number of copies: the page is given A4 sheets, each a
// picture of strokes and letters (SVG).
class WebPrinter : public PrinterService {
public:
    explicit WebPrinter(WebSystem& system);

    std::vector<std::string> Fonts() override;
    void BeginJob(const PrintJob& job) override;
    // Tells that there is none but the browser's, where nothing is printed then.
    void ShowPrinter(PrinterDialog& dialog) override;
    void Print(std::string_view line, PrintedLine what) override;
    void PrintDrawing(const PrintedDrawing& drawing) override;
    void EndDocument() override;

private:
    std::vector<std::string> TextPages() const;
    std::string PageOf(const PageLayout& layout, const std::vector<PageLine>& lines) const;
    std::string Face(double points) const;
    std::string FileName() const;

    WebSystem& system_;
    PrintJob job_;
    bool showsPrinter_ = false;
    std::vector<PageLine> lines_;
    std::string drawing_;
};

}  // namespace kvt
