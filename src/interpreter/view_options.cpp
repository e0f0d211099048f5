#include "interpreter/view_options.h"

#include "basic/text.h"
#include "program/edit_step.h"

namespace kvt {

ViewOptions::ViewOptions(ProgramStore& store, ViewColumns& view, CodeLists& lists,
                         ControlInterpreter& interpreter, WorkbenchCalls& calls)
    : store_(store), view_(view), lists_(lists), interpreter_(interpreter), calls_(calls) {
    view_.chkViewToolPos.OnClick = [this] { chkViewToolPos_Click(); };
    view_.chkViewLineProperties.OnClick = [this] { chkViewLineProperties_Click(); };
    view_.chkViewMachineTime.OnClick = [this] { chkViewMachineTime_Click(); };
    view_.chkViewGcode.OnClick = [this] { chkViewGcode_Click(); };
}

void ViewOptions::ShowColumns(void (ViewColumns::*make)()) {
    (view_.*make)();
    interpreter_.Interpreter();
    Run(calls_.ControlsPositioning);
}

void ViewOptions::chkViewToolPos_Click() { ShowColumns(&ViewColumns::MakeToolpositionColums); }

void ViewOptions::chkViewLineProperties_Click() { ShowColumns(&ViewColumns::MakeLinePropertiesColumns); }

void ViewOptions::chkViewMachineTime_Click() { ShowColumns(&ViewColumns::MakeMachineTimeColumn); }

void ViewOptions::chkViewGcode_Click() {
    const int lines = store_.LineCount();
    if (lines < 1) return;
    const EditStep step(calls_, {StepKind::CodeComments});
    store_.ProgramChanged = true;
    ListView& list = store_.lvCncProgram;
    const int selected = list.SelectedRow();
    if (view_.chkViewGcode.Value == 0) {
        for (int row = 1; row <= list.Count(); ++row) {
            Cell& comment = list.Row(row)[column::Comment];
            if (comment.View().substr(0, 3) == "@  ") comment = "";
        }
    } else {
        AddComments();
    }
    list.Select(selected);
    interpreter_.Interpreter();
    view_.SetAutoWidth();
    Run(calls_.FirstFieldFocus, "");
}

void ViewOptions::RenewComments() {
    CheckBox& box = view_.chkViewGcode;
    if (box.Value == 0) return;
    for (const int value : {0, 1}) {
        box.Value = value;
        box.Click();
    }
}

void ViewOptions::AddComments() {
    ListView& list = store_.lvCncProgram;
    const ListBox& gCodes = store_.IsMK2()   ? lists_.lstMK2Gcodes
                            : store_.IsMK4() ? lists_.lstMK4Gcodes
                                             : lists_.lstF1Gcodes;
    // No code is chosen in the lists any more.
    (store_.IsMK2() ? lists_.lstMK2Gcodes : lists_.lstMK4Gcodes).ListIndex = -1;
    lists_.lstMK4Mcodes.ListIndex = -1;
    for (int row = 1; row <= list.Count(); ++row) {
        ListRow& item = list.Row(row);
        if (!Trim(item[column::Comment].View()).empty()) continue;
        std::string key(Trim(item[column::Code].View()));
        if (key.empty()) continue;
        if (UpperChar(key[0]) != 'M') key.insert(0, "G");
        // The comments of M codes are those of the lathe on every machine.
        const ListBox& codes = UpperChar(key[0]) == 'M' ? lists_.lstMK4Mcodes : gCodes;
        // An entry names its code by three characters, so M99R has none.
        for (const std::string& entry : codes.Entries()) {
            if (!EqualIgnoringCase(Left(entry, 3), key)) continue;
            item[column::Comment] = "@  " + EntryDescription(entry);
            break;
        }
    }
}

}  // namespace kvt
