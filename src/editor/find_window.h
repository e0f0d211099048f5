#pragma once

#include "platform/services.h"
#include "program/program_store.h"
#include "program/texts.h"
#include "program/workbench_calls.h"

namespace kvt {

// Searches all columns in sight for a text. The window stays on top of the others.
class FindWindow {
public:
    FindWindow(ProgramStore& store, const Texts& texts, FocusService& focus, WorkbenchCalls& calls);

    Form frmFind;
    Label lblFind;
    TextBox txtFind;
    // The search goes on behind the selected line. A new text starts at the top.
    bool FindNextMode = false;

    void mnuFind_Click();
    // Hides the window and selects the next line that matches. Without one nothing moves.
    void FindNext();

private:
    void Close();
    bool Matches(const ListRow& row) const;

    ProgramStore& store_;
    const Texts& texts_;
    FocusService& focus_;
    WorkbenchCalls& calls_;
    // Where the focus was before the window came.
    Control* focusBefore_ = nullptr;
};

}  // namespace kvt
