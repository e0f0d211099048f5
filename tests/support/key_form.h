#pragma once

#include <string>
#include <vector>

#include "platform/list_view.h"
#include "platform/services.h"

namespace kvt::test {

// A form with a control of each kind that takes keys and handlers of each sort, for both halves of the platform.
struct KeyForm {
    explicit KeyForm(Services& platform);
    // Everything as it was at the beginning.
    void Reset();
    Control& Named(std::string_view name);
    // The control with the focus, what it holds ("|" is the caret, "[" and "]" a selection) and what was told by
    // handlers: "txtA AB| go ".
    std::string Summary();
    // All that keys can have changed, with every key that a handler heard of.
    std::string State();

    Services& Platform;
    Form form{"frmKeys"};
    Menu mnuFile{form, "mnuFile", "File"}, mnuOpen{form, "mnuOpen", "Open"}, mnuSave{form, "mnuSave", "Save"},
        mnuDraw{form, "mnuDraw", "Draw"}, mnuAgain{form, "mnuAgain", "Again"},
        mnuCopy{form, "mnuCopy", "Copy"};
    TextBox txtA{form, "txtA"}, txtB{form, "txtB"}, txtShown{form, "txtShown"}, txtNotes{form, "txtNotes"};
    CommandButton cmdGo{form, "cmdGo", "Go"}, cmdHide{form, "cmdHide", "Hide"};
    CheckBox chkBox{form, "chkBox", "Box"};
    Frame frOptions{form, "frOptions"};
    OptionButton optOne{form, "optOne", "One"}, optTwo{form, "optTwo", "Two"}, optOff{form, "optOff", "Off"},
        optThree{form, "optThree", "Three"};
    ListBox lstCodes{form, "lstCodes"};
    ComboBox cboFont{form, "cboFont"};
    ListView lvRows{form, "lvRows"};
    TabStrip tabPages{form, "tabPages"};
    TextBox txtFirst{form, "txtFirst"}, txtSecond{form, "txtSecond"};
    ScrollBar hsbView{form, "hsbView", false}, vsbView{form, "vsbView", true};
    UpDown udScale{form, "udScale"};
    Label lblWord{form, "lblWord", "Word"}, lblText{form, "lblText", "Text"};
    ListBox lstPick{form, "lstPick"};

private:
    void Place();
    void Wire();
    void Fill();
    std::string Content(Control& control);

    std::string told_;
    std::string keys_;
    bool wired_ = false;
};

// Keys one behind the other, with a blank between them: a character, the name of a key, or ">" and the name of a
// control that gets the focus.
std::vector<std::string> KeysIn(std::string_view sequence);

struct KeyCase {
    const char* Keys;
    const char* Summary;
};

// What a user of a desktop expects of keys.
const std::vector<KeyCase>& KeyCases();

// A number of further sequences, from a seed.
std::vector<std::string> RandomSequences(int count, unsigned seed);

}  // namespace kvt::test
