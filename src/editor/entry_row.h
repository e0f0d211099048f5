#pragma once

#include <array>

#include "editor/opened_line.h"
#include "platform/controls.h"
#include "platform/picture_box.h"

namespace kvt {

// The row in which one program line is entered, the feed presets beside it, and what helps while entering.
// A parameter field holds its range in its Tag: two whole numbers joined by "TO", empty for no limit.
struct EntryRow {
    explicit EntryRow(Form& form);

    Frame frEntry;
    Label lblGMcode, lblXI, lblYJ, lblZK, lblFKTL, lblH;
    TextBox txtGMcode, txtXI, txtYJ, txtZK, txtFKTL, txtH;
    TextBox txtComment;
    Label lblBefore;  // what the line holds that Enter would change
    TextBox txtFeedA, txtFeedB;
    CommandButton cmdFeedA, cmdFeedB;
    CheckBox chkSettingsDWC;  // delete without confirmation
    PictureBox picXYaxes, picZXaxes;
    CommandButton cmdReturn;

    OpenedLine Opened;

    // What a replacement of a feed looks for: a blank and the trimmed number.
    std::string OldFeedA, OldFeedB;

    // A parameter field with its label, in the order of the chain.
    struct Field {
        Label& Caption;
        TextBox& Box;
    };
    std::array<Field, 5> Fields();
    // Notes the feed presets as OldFeedA and OldFeedB.
    void RememberFeeds();
    // What was typed into code, fields and comment cannot be taken back in them any more.
    void ForgetEdits();
};

}  // namespace kvt
