#pragma once

#include <string>
#include <string_view>

#include "files/folders.h"
#include "platform/picture_box.h"
#include "program/machine.h"

namespace kvt {

class Workbench;

// The life of the main window: start, the pulse of every second, modes, options, and the one way out.
class MainWindow {
public:
    explicit MainWindow(Workbench& bench);

    // Starts the workbench with the text of the command line: folders, settings, the file that is named there,
    // layout, and the focus on the code field.
    void Form_Load(std::string_view commandLine);
    void Form_Activate();
    void Form_Resize();
    void tmr1sec_Timer();
    void mnuNew_Click();
    void mnuExit_Click();
    // Tells that there is no printer, and ends.
    void EndWithoutPrinter();
    // Whether the way out has been taken; a question about unsaved changes may still stand.
    bool Ending() const { return ended_; }
    // Shows the settings on a page, over the program list; on the page that is in front it leaves them.
    void ShowSettings(int page);
    // Brings the paths on the info page up to date.
    void ShowPaths();
    // The title: the file's name, and a mark while the program has changed.
    void RefreshTitle();

    kvt::Folders Folders;

private:
    void WireMenus();
    void WireOptions();
    void WireKeys();
    void cmdTopButtons_Click(int index);
    void ChooseMachine(MachineModel machine);
    void ChooseUnits(Units units);
    void ChooseUnits(Units units, bool horizontal);
    // Asks for one of the mode colours, and colours the lines with it.
    void ChooseColor(Color& color);
    // Shows a picture of the axes over the program list, or leaves it.
    void ShowAxes(PictureBox& picture);
    void OpenFile(std::string name);
    void txtFileNotes_KeyPress(int& character);
    void FitSmallScreen();
    void mnuCalculator_Click();
    // Reads the fonts of the printer. A machine without one ends the program; false then.
    bool FindPrinter();

    Workbench& bench_;
    bool ended_ = false;
};

}  // namespace kvt
