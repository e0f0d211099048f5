#include "desktop/desktop_printer.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QScreen>
#include <QStandardPaths>
#include <algorithm>
#include <cmath>
#include <utility>

#include "basic/run_time_error.h"
#include "basic/text.h"
#include "desktop/desktop_dialogs.h"
#include "desktop/text.h"

namespace kvt {

namespace {

constexpr double drawingFont = 10;     // points, of the line above a drawing
constexpr double measuringFont = 100;  // points
constexpr double previewShare = 0.85;  // of the screen

constexpr double inch = 72;

QPageLayout::Orientation OrientationOf(bool landscape) {
    return landscape ? QPageLayout::Landscape : QPageLayout::Portrait;
}

bool IsLandscape(const QPrinter& device) {
    return device.pageLayout().orientation() == QPageLayout::Landscape;
}

void SetMargins(QPrinter& device) {
    // What the printer cannot reach anyway is more in some cases.
    const QMarginsF least = device.pageLayout().minimumMargins();
    const double points = PageMargin / 25.4 * inch;
    device.setPageMargins(QMarginsF(std::max(least.left(), points), std::max(least.top(), points),
                                    std::max(least.right(), points), std::max(least.bottom(), points)),
                          QPageLayout::Point);
}

}  // namespace

DesktopPrinter::DesktopPrinter(DesktopContext& desktop) : desktop_(desktop) {
    FontName = FromQt(QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
}

// Those of one pitch. Where the machine says of none that it is, all.
std::vector<std::string> DesktopPrinter::Fonts() {
    std::vector<std::string> fonts;
    for (const bool fixedAlone : {true, false}) {
        for (const QString& family : QFontDatabase::families()) {
            if (fixedAlone && !QFontDatabase::isFixedPitch(family)) continue;
            if (!QFontDatabase::isPrivateFamily(family)) fonts.push_back(FromQt(family));
        }
        if (!fonts.empty()) break;
    }
    return fonts;
}

QPrinter& DesktopPrinter::Device() {
    if (!device_) device_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    return *device_;
}

void DesktopPrinter::BeginJob(const PrintJob& job) {
    job_ = job;
    chosen_ = false;
    turned_ = false;
    document_ = {};
}

void DesktopPrinter::ShowPrinter(PrinterDialog& dialog) {
    if (desktop_.System.Ended()) throw RunTimeError(fault::Cancelled);
    ++desktop_.DialogsShown;
    QPrinter& device = Device();
    device.setCopyCount(dialog.Copies);
    device.setPageOrientation(QPageLayout::Portrait);
    if (device.outputFormat() == QPrinter::PdfFormat) device.setOutputFileName(ProposedFile());
    const DialogParent parent(desktop_);
    QPrintDialog window(&device, parent);
    window.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize |
                      QAbstractPrintDialog::PrintCollateCopies);
    if (window.exec() != QDialog::Accepted) throw RunTimeError(fault::Cancelled);
    dialog.Copies = std::max(1, device.copyCount());
    chosen_ = true;
    turned_ = IsLandscape(device);
}

void DesktopPrinter::PrintToFile(const QString& file) {
    Device().setOutputFileName(file);
    Device().setOutputFormat(QPrinter::PdfFormat);
    chosen_ = true;
}

// The file of the program, and what of it is printed.
QString DesktopPrinter::ProposedFile() const {
    const QString part = job_.Part.empty() ? QString() : u' ' + ToQt(job_.Part);
    const QString ending = part + QStringLiteral(".pdf");
    if (job_.Path.empty()) {
        return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) +
               QStringLiteral("/Program") + ending;
    }
    const QFileInfo program(PathToQt(job_.Path));
    return program.absolutePath() + QLatin1Char('/') + program.completeBaseName() + ending;
}

void DesktopPrinter::AskForFile() {
    QString name;
    if (!desktop_.System.Ended()) {
        ++desktop_.DialogsShown;
        const DialogParent parent(desktop_);
        QFileDialog window(parent, ToQt(job_.FileTitle));
        window.setOptions(QFileDialog::DontUseNativeDialog);
        window.setAcceptMode(QFileDialog::AcceptSave);
        window.setNameFilter(QStringLiteral("PDF (*.pdf)"));
        window.setDefaultSuffix(QStringLiteral("pdf"));
        const QFileInfo proposed(ProposedFile());
        window.setDirectory(proposed.absolutePath());
        window.selectFile(proposed.fileName());
        if (window.exec() == QDialog::Accepted) name = window.selectedFiles().value(0);
    }
    if (name.isEmpty()) throw RunTimeError(fault::Cancelled);
    PrintToFile(name);
}

void DesktopPrinter::Print(std::string_view line, PrintedLine what) {
    AppendPrinted(document_.Lines, job_, line, what);
}

// As it is now: it may be drawn anew, on another ground, before the page is painted.
void DesktopPrinter::PrintDrawing(const PrintedDrawing& drawing) {
    document_.Drawing = TakenFrom(drawing.Field, AreaOnPaper(drawing));
    document_.Title = ShownToQt(drawing.Title);
    document_.Notes = ToQt(drawing.Notes);
}

void DesktopPrinter::EndDocument() {
    const Document document = std::exchange(document_, {});
    if (document.IsEmpty()) return;
    QPrinter& device = Device();
    if (!job_.Preview && device.outputFormat() == QPrinter::PdfFormat && !chosen_) AskForFile();
    // Each copy is a document of its own.
    device.setCopyCount(1);
    device.setDocName(job_.Path.empty() ? QCoreApplication::applicationName()
                                        : QFileInfo(PathToQt(job_.Path)).fileName());
    TurnSheet(document);
    job_.Preview ? ShowPreview(document) : Paint(document, device);
    const bool isFile = device.outputFormat() == QPrinter::PdfFormat;
    LastFile = isFile ? PathText(device.outputFileName()) : std::string();
}

void DesktopPrinter::TurnSheet(const Document& document) {
    QPrinter& device = Device();
    if (!turned_) {
        device.setPageOrientation(QPageLayout::Portrait);
        SetMargins(device);
        const bool across =
            !document.Drawing
                ? LayOutPages(document.Lines, SheetOf(device), FontSize, job_.PageText).Landscape
                : document.Drawing->Area.Width > document.Drawing->Area.Height;
        device.setPageOrientation(OrientationOf(across));
    }
    SetMargins(device);
}

void DesktopPrinter::ShowPreview(const Document& document) {
    if (desktop_.System.Ended()) throw RunTimeError(fault::Cancelled);
    ++desktop_.DialogsShown;
    QPrinter& device = Device();
    if (device.outputFormat() == QPrinter::PdfFormat) device.setOutputFileName(ProposedFile());
    const DialogParent parent(desktop_);
    QPrintPreviewDialog window(&device, parent);
    if (const QScreen* const screen = window.screen()) window.resize(screen->availableSize() * previewShare);
    QObject::connect(&window, &QPrintPreviewDialog::paintRequested, &window,
                     [&](QPrinter* paper) { Paint(document, *paper); });
    // It is accepted by printing alone.
    if (window.exec() != QDialog::Accepted) throw RunTimeError(fault::Cancelled);
}

void DesktopPrinter::Paint(const Document& document, QPrinter& device) const {
    QPainter painter;
    if (!painter.begin(&device)) throw RunTimeError(fault::PrinterError);
    if (!document.Drawing) {
        PaintLines(document, device, painter);
    } else {
        PaintDrawing(document, device, painter);
    }
}

QFont DesktopPrinter::TextFont(double points) const {
    QFont font(ToQt(FontName));
    font.setStyleHint(QFont::Monospace);
    font.setPointSizeF(points);
    return font;
}

Sheet DesktopPrinter::SheetOf(const QPrinter& device) const {
    const QRectF room = device.pageLayout().paintRect(QPageLayout::Point);
    const QFontMetricsF metrics(TextFont(measuringFont), &device);
    const double toPoints = inch / device.resolution() / measuringFont;
    Sheet sheet;
    sheet.Width = std::min(room.width(), room.height());
    sheet.Height = std::max(room.width(), room.height());
    sheet.CharacterWidth = metrics.horizontalAdvance(u'0') * toPoints;
    sheet.LineHeight = metrics.lineSpacing() * toPoints;
    return sheet;
}

void DesktopPrinter::PaintLines(const Document& document, QPrinter& device, QPainter& painter) const {
    const PageLayout layout =
        LayOutPages(document.Lines, SheetOf(device), FontSize, job_.PageText, IsLandscape(device));
    const QFont font = TextFont(layout.FontSize);
    painter.setFont(font);
    const QFontMetricsF metrics(font, &device);
    bool first = true;
    for (const std::vector<PageLine>& page : layout.Pages) {
        if (!std::exchange(first, false)) device.newPage();
        double top = 0;
        for (const PageLine& line : page) {
            // The head names a file; a program is in the code page.
            const bool head = line.What == PrintedLine::Head;
            painter.drawText(QPointF(0, top + metrics.ascent()),
                             head ? ShownToQt(line.Text) : ToQt(line.Text));
            top += metrics.lineSpacing();
        }
    }
}

void DesktopPrinter::PaintDrawing(const Document& document, QPrinter& device, QPainter& painter) const {
    const QRect page = device.pageLayout().paintRectPixels(device.resolution());
    painter.setFont(TextFont(drawingFont));
    const QFontMetricsF metrics(painter.font(), &device);
    const double notes = metrics.horizontalAdvance(document.Notes);
    const QString title = metrics.elidedText(document.Title, Qt::ElideMiddle, page.width() - notes * 1.2);
    painter.drawText(QPointF(0, metrics.ascent()), title);
    painter.drawText(QPointF(page.width() - notes, metrics.ascent()), document.Notes);
    const double top = metrics.lineSpacing() * 1.5;
    const QSizeF room(page.width(), page.height() - top);
    const FieldArea& area = document.Drawing->Area;
    const QSizeF size = QSizeF(area.Width, area.Height).scaled(room, Qt::KeepAspectRatio);
    PaintOnPaper(painter, *document.Drawing, {QPointF((room.width() - size.width()) / 2, top), size});
}

}  // namespace kvt
