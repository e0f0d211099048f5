#pragma once

#include "interpreter/interpreter.h"

namespace kvt {

// The view check boxes: which result columns are in sight, and the automatic comments.
class ViewOptions {
public:
    ViewOptions(ProgramStore& store, ViewColumns& view, CodeLists& lists, ControlInterpreter& interpreter,
                WorkbenchCalls& calls);

    void chkViewToolPos_Click();
    void chkViewLineProperties_Click();
    void chkViewMachineTime_Click();
    // Fills empty comments with the descriptions of the codes, or takes such comments out again.
    void chkViewGcode_Click();
    // Makes automatic comments anew, where they are in sight: the descriptions have changed.
    void RenewComments();

private:
    void ShowColumns(void (ViewColumns::*make)());
    void AddComments();

    ProgramStore& store_;
    ViewColumns& view_;
    CodeLists& lists_;
    ControlInterpreter& interpreter_;
    WorkbenchCalls& calls_;
};

}  // namespace kvt
