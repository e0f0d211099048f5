#include "desktop/desktop_printer.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPrintDialog>
#include <QStandardPaths>
#include <algorithm>

#include "basic/run_time_error.h"
#include "desktop/desktop_dialogs.h"
#include "desktop/text.h"

namespace kvt {

namespace {

// Characters that a broken line has below its last column; with less it goes on farther left.
constexpr qsizetype leastRoom = 10;

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

void DesktopPrinter::BeginJob(std::string_view path) {
    path_ = PathToQt(path);
    chosen_ = false;
}

void DesktopPrinter::ShowPrinter(PrinterDialog& dialog) {
    if (desktop_.System.Ended()) throw RunTimeError(fault::Cancelled);
    ++desktop_.DialogsShown;
    QPrinter& device = Device();
    device.setCopyCount(dialog.Copies);
    if (device.outputFormat() == QPrinter::PdfFormat) device.setOutputFileName(ProposedFile());
    const DialogParent parent(desktop_);
    QPrintDialog window(&device, parent);
    window.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize |
                      QAbstractPrintDialog::PrintCollateCopies);
    if (window.exec() != QDialog::Accepted) throw RunTimeError(fault::Cancelled);
    dialog.Copies = std::max(1, device.copyCount());
    chosen_ = true;
}

void DesktopPrinter::PrintToFile(const QString& file) {
    Device().setOutputFileName(file);
    Device().setOutputFormat(QPrinter::PdfFormat);
    chosen_ = true;
}

QString DesktopPrinter::ProposedFile() const {
    if (path_.isEmpty()) {
        return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) +
               QStringLiteral("/Program.pdf");
    }
    const QFileInfo program(path_);
    return program.absolutePath() + QLatin1Char('/') + program.completeBaseName() + QStringLiteral(".pdf");
}

void DesktopPrinter::AskForFile() {
    QString name;
    if (!desktop_.System.Ended()) {
        ++desktop_.DialogsShown;
        const DialogParent parent(desktop_);
        QFileDialog window(parent, QCoreApplication::translate("QPrintDialog", "Print to File (PDF)"));
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

void DesktopPrinter::Begin() {
    QPrinter& device = Device();
    if (device.outputFormat() == QPrinter::PdfFormat && !chosen_) AskForFile();
    // Each copy is a document of its own.
    device.setCopyCount(1);
    device.setDocName(path_.isEmpty() ? QCoreApplication::applicationName() : QFileInfo(path_).fileName());
    painter_ = std::make_unique<QPainter>();
    if (painter_->begin(&device)) return void(top_ = 0);
    painter_.reset();
    throw RunTimeError(fault::PrinterError);
}

void DesktopPrinter::Print(std::string_view line) {
    if (!painter_) Begin();
    QFont font(ToQt(FontName));
    font.setStyleHint(QFont::Monospace);
    font.setPointSizeF(FontSize);
    painter_->setFont(font);
    // The head is a line of its own and names a file; a program is in the code page.
    const bool head = line.find("\r\n") == std::string_view::npos;
    for (const QString& part : (head ? ShownToQt(line) : ToQt(line)).split(QStringLiteral("\r\n")))
        PutLine(part);
}

// A line that is too long is broken at a blank, and goes on below its last column.
void DesktopPrinter::PutLine(const QString& line) {
    const QFontMetricsF metrics(painter_->font(), device_.get());
    const QRect page = device_->pageLayout().paintRectPixels(device_->resolution());
    QString rest = line;
    qsizetype indent = 0;
    do {
        if (top_ > 0 && top_ + metrics.height() > page.height()) {
            device_->newPage();
            top_ = 0;
        }
        qsizetype fits = rest.size();
        while (fits > indent + 1 && metrics.horizontalAdvance(rest.left(fits)) > page.width()) --fits;
        if (fits < rest.size()) {
            const qsizetype blank = rest.lastIndexOf(u' ', fits);
            if (blank > std::max(indent, fits / 2)) fits = blank;
        }
        painter_->drawText(QPointF(0, top_ + metrics.ascent()), rest.left(fits));
        top_ += metrics.lineSpacing();
        if (rest.size() == line.size()) {
            const qsizetype column = line.left(fits).lastIndexOf(QStringLiteral("  ")) + 2;
            indent = column >= 2 && column <= fits - leastRoom ? column : std::min<qsizetype>(4, fits / 2);
        }
        rest = rest.mid(fits).trimmed();
        if (!rest.isEmpty()) rest.prepend(QString(indent, u' '));
    } while (!rest.isEmpty());
}

void DesktopPrinter::EndDocument() { painter_.reset(); }

// What the window shows goes first: the question for a file would stand in front of it.
void DesktopPrinter::PrintForm(const Form& form) {
    View* const view = View::Of(form);
    if (!view) throw RunTimeError(fault::PrinterError);
    const QPixmap shown = view->Widget()->grab();
    if (!painter_) Begin();
    const QRect page = device_->pageLayout().paintRectPixels(device_->resolution());
    const QSize size = shown.size().scaled(page.size(), Qt::KeepAspectRatio);
    painter_->setRenderHint(QPainter::SmoothPixmapTransform);
    painter_->drawPixmap(QRect(QPoint(0, 0), size), shown);
}

}  // namespace kvt
