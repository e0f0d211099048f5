#pragma once

#include <string_view>

#include "platform/controls.h"
#include "platform/printer.h"

namespace kvt {

// The page of the settings that chooses the font of what is printed.
class PrinterPage {
public:
    PrinterPage(Form& form, PrinterService& printer);

    Label lblFontName, lblFontSize;
    ComboBox cboFontName, cboFontSize;
    CommandButton cmdPrinterDialog;

    // Fills the list with the printer's fonts and shows the font and the size in force. Error 482 without a printer.
    void FillFonts();
    // The first font named "Courier"; a "Courier New" behind it takes its place. Error 482 without a printer.
    void ChooseBuiltInFont();
    // Give the printer a font, or a size in points, which the lists show. What a list does not hold joins it: it
    // may be a font of another machine. An empty name, or a size that is not 1 to 200, changes nothing.
    void SetFontName(std::string_view name);
    void SetFontSize(double points);

private:
    PrinterService& printer_;
};

}  // namespace kvt
