#pragma once

#include <string>
#include <string_view>

#include "draw/draw_parts.h"
#include "draw/svg.h"

namespace kvt {

// The ending of a path, in upper case and with its point, empty for none; and whether it is that of a picture which
// can be made: ".PNG", ".SVG", ".PDF" or ".BMP".
std::string PictureKindOf(std::string_view path);
bool IsPictureKind(std::string_view kind);

// What leaves the drawing window: pictures in files and on the clipboard, and the window on paper.
class DrawingOutput {
public:
    explicit DrawingOutput(DrawParts& parts);

    // What the view window shows, as a bitmap beside the program's file ("ToFile") or on the clipboard
    // ("ToClipboard").
    void SaveImage(std::string_view target);
    void mnuSaveBMP_Click() { SaveImage("ToFile"); }
    void mnuSaveClipboard_Click() { SaveImage("ToClipboard"); }
    // The whole drawing in a file that the user names.
    void mnuSavePicture_Click();
    // Prints the window on a white background.
    void mnuPrint_Click();
    // Shows the printed page.
    void mnuPrintPreview_Click();

    // Takes back the white background that printing has set; closing the window meanwhile keeps the user's own.
    void RestoreBackground();

    // The whole drawing as the content of a file of a kind of picture; another kind is error 5.
    std::string Picture(std::string_view kind) const;

private:
    SvgHead Head() const;
    Pixels PointsOf(const FieldArea& area) const;
    bool AskForName(std::string& name);
    // A message that tells whether a file was written.
    void ShowResult(bool written, std::string_view name);
    void BeginPrint(bool preview);
    void PrintDrawing(bool preview);
    void PutOnPaper(bool preview);
    // What of the field is printed: what was drawn, so far as it is in sight.
    FieldArea PrintedArea() const;

    DrawParts& parts_;
    DrawControls& controls_;
    bool whiteForPrint_ = false;
    bool printing_ = false;
};

}  // namespace kvt
