#include "system/offscreen_platform.h"

#include <algorithm>

#include "basic/run_time_error.h"

namespace kvt {

Answer OffscreenDialogs::ShowMessage(const MessageBox& box) {
    Shown.push_back(box);
    // Titles that nobody named are the program's.
    if (box.Title.empty()) Shown.back().Title = "Kestrel Vise Toolkit";
    return box.Choice == Buttons::Ok ? Answer::Ok : Answer::Yes;
}

bool OffscreenDialogs::Cancel(const FileDialog& dialog) {
    if (dialog.CancelError) throw RunTimeError(fault::Cancelled);
    return false;
}

WindowPlace OffscreenScreen::OnScreen(const WindowPlace& place) {
    const int width = std::min(place.Width, WidthTwips);
    const int height = std::min(place.Height, HeightTwips);
    return {height, std::clamp(place.Left, 0, WidthTwips - width),
            std::clamp(place.Top, 0, HeightTwips - height), width};
}

void NoPort::Open() { throw RunTimeError(fault::PortAlreadyOpen); }
void NoPort::Output(std::string_view) { throw RunTimeError(fault::PortNotOpen); }
std::string NoPort::Input() { throw RunTimeError(fault::PortNotOpen); }

std::vector<std::string> NoPrinter::Fonts() { throw RunTimeError(fault::PrinterError); }
void NoPrinter::ShowPrinter(PrinterDialog&) { throw RunTimeError(fault::PrinterError); }
void NoPrinter::Print(std::string_view, PrintedLine) { throw RunTimeError(fault::PrinterError); }
void NoPrinter::PrintDrawing(const PrintedDrawing&) { throw RunTimeError(fault::PrinterError); }
void NoPrinter::EndDocument() { throw RunTimeError(fault::PrinterError); }

int OffscreenPrograms::Start(std::string_view, std::string_view) { throw RunTimeError(fault::FileNotFound); }

}  // namespace kvt
