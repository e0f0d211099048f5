#include "shell/printer_page.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/text.h"

namespace kvt {

namespace {

constexpr int offeredSizes[] = {6, 7, 8, 9, 10, 11, 12, 14, 16, 18};
constexpr double largestSize = 200;

// Selects an entry, case ignored, and adds it where it is missing.
void Show(ComboBox& list, std::string_view entry) {
    const std::vector<std::string>& entries = list.Entries();
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const std::string& one) { return EqualIgnoringCase(one, entry); });
    const auto index = static_cast<int>(found - entries.begin());
    if (found == entries.end()) list.AddEntry(entry);
    list.ListIndex = index;
}

}  // namespace

PrinterPage::PrinterPage(Form& form, PrinterService& printer)
    : lblFontName(form, "lblFontName", "Font"),
      lblFontSize(form, "lblFontSize", "Size"),
      cboFontName(form, "cboFontName"),
      cboFontSize(form, "cboFontSize"),
      cmdPrinterDialog(form, "cmdPrinterDialog", "Printer Settings"),
      printer_(printer) {
    for (const int size : offeredSizes) cboFontSize.AddEntry(PlainNumber(size));
    SetFontSize(printer_.FontSize);
    cboFontName.OnClick = [this] {
        if (cboFontName.ListIndex >= 0) SetFontName(std::string(cboFontName.Entry(cboFontName.ListIndex)));
    };
    cboFontSize.OnClick = [this] {
        if (cboFontSize.ListIndex >= 0) SetFontSize(Val(cboFontSize.Entry(cboFontSize.ListIndex)));
    };
}

void PrinterPage::FillFonts() {
    const std::vector<std::string> fonts = printer_.Fonts();
    cboFontName.Clear();
    for (const std::string& font : fonts) cboFontName.AddEntry(font);
    SetFontName(printer_.FontName);
    SetFontSize(printer_.FontSize);
}

void PrinterPage::ChooseBuiltInFont() {
    const char* wanted = "Courier";
    for (const std::string& font : printer_.Fonts()) {
        if (!EqualIgnoringCase(font, wanted)) continue;
        SetFontName(font);
        wanted = "Courier New";
    }
}

void PrinterPage::SetFontName(std::string_view name) {
    if (Trim(name).empty()) return;
    Show(cboFontName, Trim(name));
    printer_.FontName = cboFontName.Entry(cboFontName.ListIndex);
}

void PrinterPage::SetFontSize(double points) {
    if (!(points >= 1 && points <= largestSize)) return;
    printer_.FontSize = points;
    Show(cboFontSize, PlainNumber(static_cast<float>(points)));
}

}  // namespace kvt
