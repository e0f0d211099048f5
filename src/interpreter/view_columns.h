#pragma once

#include "platform/services.h"
#include "program/program_store.h"

namespace kvt {

// Which result columns of the list are in sight: a column is hidden by a width of 0. Widths are twips.
class ViewColumns {
public:
    ViewColumns(Form& form, ProgramStore& store, ScreenService& screen);

    CheckBox chkViewToolPos, chkViewLineProperties, chkViewMachineTime, chkViewGcode, chkViewFileNotes;
    CheckBox chkSettingsAutowidth;

    void MakeToolpositionColums();
    void MakeLinePropertiesColumns();
    void MakeMachineTimeColumn();
    // The columns whose width the machine decides: N, X and Y.
    void MakeMachineColumns();
    // How wide the window is that its columns in sight fit in.
    int FittingWidth() const;
    // Fits the window to the columns in sight where the setting is on; never wider than the screen.
    void SetAutoWidth();

private:
    // Shows or hides a column; one that shows is as wide as its header's text, at least minimum.
    void Show(bool shown, int c, int minimum);

    Form& form_;
    ProgramStore& store_;
    ScreenService& screen_;
};

}  // namespace kvt
