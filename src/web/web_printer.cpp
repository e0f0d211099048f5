#include "web/web_printer.h"

#include <algorithm>
#include <utility>

#include "basic/code_page.h"
#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "platform/operations.h"
#include "platform/svg_strokes.h"

namespace kvt {

namespace {

constexpr double inch = 72;         // points
constexpr double drawingFont = 10;  // points, of the line above a drawing
constexpr double paperWidth = 595.28, paperHeight = 841.89;
constexpr double margin = PageMargin / 25.4 * inch;
constexpr double ascent = 0.8;  // of a font's size

std::string Number(double value) { return PlainNumber(ToSingle(value)); }

std::string PageBegin(bool landscape) {
    const std::string width = Number(landscape ? paperHeight : paperWidth);
    const std::string height = Number(landscape ? paperWidth : paperHeight);
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + width + "pt\" height=\"" + height +
           "pt\" viewBox=\"0 0 " + width + " " + height + "\">";
}

std::string TextAt(double x, double y, const std::string& more, const std::string& utf8) {
    return "<text x=\"" + Number(x) + "\" y=\"" + Number(y) + "\" xml:space=\"preserve\"" + more + ">" +
           SvgText(utf8) + "</text>";
}

// Shortened in its middle.
std::string Fitted(const std::string& text, std::size_t longest) {
    if (text.size() <= longest) return text;
    const std::size_t half = std::max<std::size_t>(longest, 5) / 2 - 1;
    return text.substr(0, half) + "..." + text.substr(text.size() - half);
}

}  // namespace

WebPrinter::WebPrinter(WebSystem& system) : system_(system) { FontName = Fonts().front(); }

// A browser tells of no fonts; these stand for one of the same pitch wherever they are missing.
std::vector<std::string> WebPrinter::Fonts() { return {"Courier New", "DejaVu Sans Mono", "monospace"}; }

void WebPrinter::ShowPrinter(PrinterDialog& dialog) {
    dialog.Copies = 1;
    showsPrinter_ = true;
    system_.Later([this] {
        if (std::exchange(showsPrinter_, false)) system_.Tell(Message("printers"));
    });
}

void WebPrinter::BeginJob(const PrintJob& job) {
    job_ = job;
    lines_.clear();
    drawing_.clear();
}

void WebPrinter::Print(std::string_view line, PrintedLine what) { AppendPrinted(lines_, job_, line, what); }

std::string WebPrinter::Face(double points) const {
    return " font-family=\"'" + SvgText(ToUtf8(FontName)) + "', monospace\" font-size=\"" + Number(points) +
           "\"";
}

std::vector<std::string> WebPrinter::TextPages() const {
    const Sheet sheet{paperWidth - 2 * margin, paperHeight - 2 * margin};
    const PageLayout layout = LayOutPages(lines_, sheet, FontSize, job_.PageText);
    std::vector<std::string> pages;
    for (const std::vector<PageLine>& lines : layout.Pages) pages.push_back(PageOf(layout, lines));
    return pages;
}

std::string WebPrinter::PageOf(const PageLayout& layout, const std::vector<PageLine>& lines) const {
    const double lineHeight = Sheet().LineHeight * layout.FontSize;
    std::string page = PageBegin(layout.Landscape) + "<g" + Face(layout.FontSize) + ">";
    double y = margin + ascent * layout.FontSize;
    for (const PageLine& line : lines) {
        // The head names a file; a program is in the code page.
        const bool head = line.What == PrintedLine::Head;
        if (!line.Text.empty())
            page += TextAt(margin, y, {}, head ? ShownToUtf8(line.Text) : ToUtf8(line.Text));
        y += lineHeight;
    }
    return page + "</g></svg>";
}

// As it stands now: it may be drawn anew, on another ground, before the page is shown.
void WebPrinter::PrintDrawing(const PrintedDrawing& drawing) {
    const FieldArea area = AreaOnPaper(drawing);
    const bool landscape = area.Width > area.Height;
    const double width = (landscape ? paperHeight : paperWidth) - 2 * margin;
    const double height = (landscape ? paperWidth : paperHeight) - 2 * margin;
    const double characterWidth = Sheet().CharacterWidth * drawingFont;
    const double room = width / characterWidth - 1.2 * static_cast<double>(drawing.Notes.size());
    const double y = margin + ascent * drawingFont;
    const double top = 1.5 * Sheet().LineHeight * drawingFont;
    const std::string title = Fitted(drawing.Title, static_cast<std::size_t>(std::max(room, 0.0)));
    drawing_ =
        PageBegin(landscape) + "<g" + Face(drawingFont) + ">" + TextAt(margin, y, {}, ShownToUtf8(title)) +
        TextAt(margin + width, y, " text-anchor=\"end\"", ToUtf8(drawing.Notes)) + "</g><svg x=\"" +
        Number(margin) + "\" y=\"" + Number(margin + top) + "\" width=\"" + Number(width) + "\" height=\"" +
        Number(height - top) + "\" viewBox=\"" + Number(area.Left) + " " + Number(area.Top) + " " +
        Number(area.Width) + " " + Number(area.Height) + "\" preserveAspectRatio=\"xMidYMin meet\">" +
        SvgHatch() + SvgStrokesOf(SeenIn(drawing.Field.Operations(), area)) + "</svg></svg>";
}

// What the browser proposes for a PDF: the file of the program, and what of it is printed.
std::string WebPrinter::FileName() const {
    const std::string name(RemoveExtension(ExtractFileName(job_.Path)));
    return (name.empty() ? "Program" : name) + (job_.Part.empty() ? "" : " " + job_.Part);
}

void WebPrinter::EndDocument() {
    showsPrinter_ = false;
    std::vector<std::string> pages;
    if (const std::string drawing = std::exchange(drawing_, {}); !drawing.empty()) {
        pages.push_back(drawing);
    } else if (!lines_.empty()) {
        pages = TextPages();
    }
    lines_.clear();
    if (pages.empty()) return;
    if (system_.Ended()) throw RunTimeError(fault::Cancelled);
    Message message("print");
    message.Add("preview", job_.Preview)
        .Shown("title", ExtractFileName(job_.Path))
        .Shown("file", FileName())
        .Name("pages")
        .BeginArray();
    for (const std::string& page : pages) message.Put(std::string_view(page));
    message.EndArray();
    if (system_.Ask(message, WebSystem::Meanwhile::Timers).Flag("cancelled"))
        throw RunTimeError(fault::Cancelled);
}

}  // namespace kvt
