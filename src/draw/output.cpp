#include "draw/output.h"

#include <algorithm>
#include <utility>

#include "basic/run_time_error.h"
#include "basic/stack_guard.h"
#include "basic/text.h"
#include "draw/pdf.h"
#include "files/questions.h"
#include "platform/picture_painter.h"

namespace kvt {

namespace {

constexpr const char* printName = "mnuPrint_Click";
constexpr const char* savePictureName = "mnuSavePicture_Click";
constexpr const char* toFile = "ToFile";
constexpr const char* toClipboard = "ToClipboard";
constexpr int printedHeight = 800;
constexpr int shownHeight = 620;

// A path without the ending of its file's name; a folder keeps its points.
std::string WithoutEnding(std::string_view path) {
    return std::string(path.substr(0, path.size() - PictureKindOf(path).size()));
}

}  // namespace

std::string PictureKindOf(std::string_view path) {
    const std::string_view name = ExtractFileName(path);
    return UpperCase(name.substr(RemoveExtension(name).size()));
}

bool IsPictureKind(std::string_view kind) {
    return kind == ".PNG" || kind == ".SVG" || kind == ".PDF" || kind == ".BMP";
}

DrawingOutput::DrawingOutput(DrawParts& parts) : parts_(parts), controls_(parts.Controls) {
    controls_.mnuSaveBMP.OnClick = [this] { mnuSaveBMP_Click(); };
    controls_.mnuSaveClipboard.OnClick = [this] { mnuSaveClipboard_Click(); };
    controls_.mnuSavePicture.OnClick = [this] { mnuSavePicture_Click(); };
    controls_.mnuPrint.OnClick = [this] { mnuPrint_Click(); };
    controls_.mnuPrintPreview.OnClick = [this] { mnuPrintPreview_Click(); };
}

void DrawingOutput::SaveImage(std::string_view target) {
    const PictureBox& field = controls_.pbxDrawField;
    Services& platform = parts_.Platform;
    const std::string path = WithoutEnding(parts_.File.lblPath.Caption);
    PictureBox& size = controls_.pbxDummy;
    size.Width = controls_.pbxViewWindow.Width.Get();
    size.Height = controls_.pbxViewWindow.Height.Get();
    const FieldArea seen{-1.0 * field.Left, -1.0 * field.Top, 1.0 * size.Width, 1.0 * size.Height};
    if (target == toFile) {
        const std::string name = path + ".BMP";
        const bool written = Attempt(toFile, [&] { platform.Files.WriteWhole(name, BmpOf(PointsOf(seen))); });
        return ShowResult(written, name);
    }
    const std::string name = std::string(ExtractFileName(path)) + ".BMP";
    const bool put = Attempt(toClipboard, [&] {
        const Pixels picture = PointsOf(seen);
        platform.Clipboard.Clear();
        platform.Clipboard.SetPicture(picture);
    });
    if (put) platform.Dialogs.ShowMessage(Notice(name + ": " + controls_.mnuSaveClipboard.Caption.Get()));
}

void DrawingOutput::ShowResult(bool written, std::string_view name) {
    const Texts& texts = parts_.Language;
    if (written) {
        std::string message(texts.DrawErrorTexts(text::HasBeenSaved));
        message += " ";
        message += name;
        parts_.Platform.Dialogs.ShowMessage(Notice(message));
        return;
    }
    std::string message(texts.MessageTexts(text::TheFile));
    message += " \"";
    message += name;
    message += "\" ";
    message += texts.DrawErrorTexts(text::NotWritten);
    parts_.Platform.Dialogs.ShowMessage(
        Notice(message, texts.ErrorTexts(text::SaveTitle), Icon::Exclamation));
}

bool DrawingOutput::AskForName(std::string& name) {
    FileDialog& dialog = controls_.dlgPicture;
    Services& platform = parts_.Platform;
    // The place beside the program's file; the kind is the one that was taken last.
    const std::string kind =
        IsPictureKind(PictureKindOf(name)) ? name.substr(WithoutEnding(name).size()) : ".png";
    const std::string program = WithoutEnding(parts_.File.lblPath.Caption);
    for (;;) {
        dialog.FileName = (program.empty() ? "drawing" : program) + kind;
        if (!platform.Dialogs.ShowSave(dialog) || dialog.FileName.empty()) return false;
        name = dialog.FileName;
        if (!IsPictureKind(PictureKindOf(name))) name += ".png";
        const Answer answer = AskToOverwrite(platform, parts_.Language, name);
        if (answer == Answer::Yes) return true;
        if (answer == Answer::Cancel) return false;
    }
}

void DrawingOutput::mnuSavePicture_Click() {
    std::string name = controls_.dlgPicture.FileName;
    if (!AskForName(name)) return;
    const bool written = Attempt(
        savePictureName, [&] { parts_.Platform.Files.WriteWhole(name, Picture(PictureKindOf(name))); });
    ShowResult(written, name);
}

SvgHead DrawingOutput::Head() const {
    const PictureBox& field = controls_.pbxDrawField;
    return {std::string(ExtractFileName(parts_.File.lblPath.Caption)), parts_.State.DrawScale,
            parts_.Store.Metric ? "0.01 mm" : "0.001 inch", field.ScaleWidth(), field.ScaleHeight()};
}

std::string DrawingOutput::Picture(std::string_view kind) const {
    const PictureBox& field = controls_.pbxDrawField;
    const SvgHead head = Head();
    if (kind == ".SVG") return SvgOf(field.Operations(), head);
    if (kind == ".PDF") return PdfOf(field.Operations(), head);
    const FieldArea area = AreaOf(field.Operations(), head.FieldWidth, head.FieldHeight);
    if (kind == ".PNG") return PngOf(PointsOf(area));
    if (kind == ".BMP") return BmpOf(PointsOf(area));
    throw RunTimeError(fault::InvalidCall);
}

Pixels DrawingOutput::PointsOf(const FieldArea& area) const {
    return PaintPicture(controls_.pbxDrawField, area, parts_.Platform.Screen.PointsPerTwip());
}

void DrawingOutput::mnuPrint_Click() { BeginPrint(false); }

void DrawingOutput::mnuPrintPreview_Click() { BeginPrint(true); }

void DrawingOutput::BeginPrint(bool preview) {
    if (parts_.Store.ErrorFlagged) return;
    if (parts_.Store.LineCount() < 1) {
        parts_.Platform.Dialogs.ShowMessage(Notice(parts_.Language.ErrorTexts(text::NoLines)));
        return;
    }
    // A drawing under way would come out unfinished, and on the wrong background.
    parts_.AfterWalk([this, preview] { PrintDrawing(preview); });
}

void DrawingOutput::PrintDrawing(bool preview) {
    // Asked for again while the drawing for it waits: one print is enough.
    const StackGuard guard(printing_);
    if (!guard.Entered()) return;
    // The page has the file's name in place of the scroll bars.
    controls_.hsbViewWindow.Visible = false;
    controls_.vsbViewWindow.Visible = false;
    controls_.lblFileName.Visible = true;
    controls_.lblGrid.Visible = true;
    controls_.frProperties.Height = printedHeight;
    // Paper is white, whatever the screen.
    whiteForPrint_ = !controls_.mnuBackground.Checked;
    if (whiteForPrint_) {
        controls_.mnuBackground.Checked = true;
        parts_.Redraw();
    }
    // The window may have been closed in a wait of that drawing.
    if (controls_.frmDraw.Visible) PutOnPaper(preview);
    if (whiteForPrint_) {
        RestoreBackground();
        parts_.Redraw();
    }
    controls_.lblFileName.Visible = false;
    controls_.hsbViewWindow.Visible = true;
    controls_.vsbViewWindow.Visible = true;
    controls_.frProperties.Height = shownHeight;
}

void DrawingOutput::RestoreBackground() {
    if (std::exchange(whiteForPrint_, false)) controls_.mnuBackground.Checked = false;
}

FieldArea DrawingOutput::PrintedArea() const {
    const PictureBox& field = controls_.pbxDrawField;
    const FieldArea drawn = AreaOf(field.Operations(), field.ScaleWidth(), field.ScaleHeight());
    const double left = std::max(drawn.Left, -1.0 * field.Left);
    const double top = std::max(drawn.Top, -1.0 * field.Top);
    const double right = std::min(drawn.Left + drawn.Width, 1.0 * controls_.pbxViewWindow.Width - field.Left);
    const double bottom =
        std::min(drawn.Top + drawn.Height, 1.0 * controls_.pbxViewWindow.Height - field.Top);
    // Where nothing of it is in sight, all of it.
    if (right <= left || bottom <= top) return drawn;
    return {left, top, right - left, bottom - top};
}

// No name for the PDF where there is no printer is the user's cancel, not a failure; so is a preview that is left.
void DrawingOutput::PutOnPaper(bool preview) {
    PrinterService& printer = parts_.Platform.Printer;
    const Texts& texts = parts_.Language;
    const std::string path = parts_.File.lblPath.Caption.Get();
    const std::string name(ExtractFileName(path));
    PrintJob job;
    job.Path = path;
    job.Part = Trim(texts.NoticeTexts(text::DrawingName));
    job.FileTitle = texts.NoticeTexts(text::PrintToPdf);
    job.Preview = preview;
    try {
        printer.BeginJob(job);
        printer.PrintDrawing({controls_.pbxDrawField, PrintedArea(), name,
                              controls_.lblGrid.Caption.Get() + " " + controls_.txtGrid.Text.Get()});
        printer.EndDocument();
        parts_.Tell(PrintedNotice(texts, printer, path));
    } catch (const RunTimeError& error) {
        if (error.Number != fault::Cancelled) TellError(error, printName);
    }
}

}  // namespace kvt
