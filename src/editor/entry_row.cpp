#include "editor/entry_row.h"

#include "basic/text.h"

namespace kvt {

EntryRow::EntryRow(Form& form)
    : frEntry(form, "frEntry", "Parameters"),
      lblGMcode(form, "lblGMcode", "G"),
      lblXI(form, "lblXI", "X"),
      lblYJ(form, "lblYJ", "Y"),
      lblZK(form, "lblZK", "Z"),
      lblFKTL(form, "lblFKTL", "F"),
      lblH(form, "lblH", "H"),
      txtGMcode(form, "txtGMcode"),
      txtXI(form, "txtXI"),
      txtYJ(form, "txtYJ"),
      txtZK(form, "txtZK"),
      txtFKTL(form, "txtFKTL"),
      txtH(form, "txtH"),
      txtComment(form, "txtComment"),
      lblBefore(form, "lblBefore"),
      txtFeedA(form, "txtFeedA"),
      txtFeedB(form, "txtFeedB"),
      cmdFeedA(form, "cmdFeedA", "Feed A"),
      cmdFeedB(form, "cmdFeedB", "Feed B"),
      chkSettingsDWC(form, "chkSettingsDWC", "Delete without confirmation"),
      picXYaxes(form, "picXYaxes"),
      picZXaxes(form, "picZXaxes"),
      cmdReturn(form, "cmdReturn", "Return") {
    for (const Field& field : Fields()) {
        field.Caption.Visible = false;
        field.Box.Visible = false;
        field.Box.Numeric = true;
    }
    for (TextBox* numeric : {&txtGMcode, &txtFeedA, &txtFeedB}) numeric->Numeric = true;
    for (Control* inEntry :
         std::initializer_list<Control*>{&lblGMcode, &lblXI, &lblYJ, &lblZK, &lblFKTL, &lblH, &txtGMcode,
                                         &txtXI, &txtYJ, &txtZK, &txtFKTL, &txtH, &txtComment}) {
        inEntry->Container = &frEntry;
    }
    lblGMcode.ToolTip = "Code";
    cmdFeedA.Enabled = false;
    cmdFeedB.Enabled = false;
    picXYaxes.Visible = false;
    picZXaxes.Visible = false;
    cmdReturn.Visible = false;
    txtFeedA.Text = "  100";
    txtFeedB.Text = "   50";
    RememberFeeds();
}

std::array<EntryRow::Field, 5> EntryRow::Fields() {
    return {{{lblXI, txtXI}, {lblYJ, txtYJ}, {lblZK, txtZK}, {lblFKTL, txtFKTL}, {lblH, txtH}}};
}

void EntryRow::RememberFeeds() {
    OldFeedA = " " + std::string(Trim(txtFeedA.Text));
    OldFeedB = " " + std::string(Trim(txtFeedB.Text));
}

void EntryRow::ForgetEdits() {
    txtGMcode.Edits = {};
    txtComment.Edits = {};
    for (const Field& field : Fields()) field.Box.Edits = {};
}

}  // namespace kvt
