#include "editor/code_choice.h"

#include "basic/run_time_error.h"
#include "basic/text.h"

namespace kvt {

namespace {

constexpr const char* openLineName = "lvCncProgram_Click";

}  // namespace

CodeChoice::CodeChoice(Parts parts) : parts_(parts) {
    CodeLists& lists = parts_.Lists;
    lists.lstMK2Gcodes.OnClick = [this] { lstMK2Gcodes_Click(); };
    lists.lstMK4Gcodes.OnClick = [this] { lstMK4Gcodes_Click(); };
    lists.lstMK4Mcodes.OnClick = [this] { lstMK4Mcodes_Click(); };
    lists.lstF1Gcodes.OnClick = [this] { lstF1Gcodes_Click(); };
    lists.lstF1Mcodes.OnClick = [this] { lstF1Mcodes_Click(); };
    parts_.Store.lvCncProgram.OnClick = [this] { lvCncProgram_Click(); };
    parts_.Store.lvCncProgram.OnColumnClick = [this](int header) { lvCncProgram_ColumnClick(header); };
}

ListBox& CodeChoice::ListOf(std::string_view mode) {
    CodeLists& lists = parts_.Lists;
    if (parts_.Store.IsMK2()) return lists.lstMK2Gcodes;
    if (parts_.Store.IsMK4()) return mode == "M" ? lists.lstMK4Mcodes : lists.lstMK4Gcodes;
    return mode == "M" ? lists.lstF1Mcodes : lists.lstF1Gcodes;
}

void CodeChoice::ListClick(ListBox& list, ListBox* other, const char* mode) {
    EntryRow& entry = parts_.Entry;
    if (list.ListIndex < 0) return;
    const std::string row = list.Entry(list.ListIndex);
    entry.frEntry.Caption = EntryDescription(row);
    entry.lblGMcode.Caption = mode;
    entry.txtGMcode.Text = Trim(Mid(row, 2, 3));
    entry.txtGMcode.ForeColor = list.ForeColor;
    // One code is chosen at a time.
    if (other) other->ListIndex = -1;
    entry.txtComment.Text = "";
    std::string code = entry.txtGMcode.Text.Get();
    parts_.Layout.InputFields(code);
    parts_.Layout.FirstFieldFocus("");
    // The comment of the code before goes, also where none takes its place.
    if (parts_.View.chkViewGcode.Value != 0) {
        entry.txtComment.Text = "@  " + std::string(Mid(row, 6));
    } else {
        entry.txtComment.Text = "";
    }
}

void CodeChoice::lvCncProgram_Click() {
    EntryRow& entry = parts_.Entry;
    ProgramStore& store = parts_.Store;
    if (store.TransmitActive || store.EditorRunMode) return;
    Run(parts_.Calls.HideSettings);
    // In a narrow window the quiet line lies where the row tells of the line that is opened.
    Run(parts_.Calls.Tell, "");
    parts_.Interpreter.RefreshLineCount();
    const int place = store.lvCncProgram.SelectedRow();
    if (place == 0) return;
    const ListRow row = store.lvCncProgram.Row(place);
    entry.Opened.Close();
    parts_.Lists.Unselect();
    // The open line has no code: the fields go, with what stood in them, and a new code is awaited.
    if (Trim(row[column::Code]).empty()) {
        parts_.Layout.HideInputFields();
        FillFields(entry, row, store.IsF1());
        entry.txtComment.Text = "";
        parts_.Platform.Focus.SetFocus(entry.txtGMcode);
        return;
    }
    std::string code(TrimLeft(row[column::Code]));
    if (UpperChar(code[0]) != 'M') code.insert(0, "G");
    // The code comes from the row, so that one that no list knows is shown too; choosing its entry in the list then acts
    // as a click on it.
    const std::string mode = UpperCase(code.substr(0, 1));
    entry.lblGMcode.Caption = mode;
    entry.txtGMcode.Text = Trim(Mid(code, 2, 3));
    ListBox& list = ListOf(mode);
    for (int i = 0; i < list.Count(); ++i) {
        if (!EqualIgnoringCase(Left(list.Entry(i), 4), Left(code, 4))) continue;
        list.ListIndex = i;
        list.Click();
        break;
    }
    parts_.Layout.InputFields(code);
    FillFields(entry, row, store.IsF1());
    RememberOpenedLine(entry, row, place);
    // Only here a first value beyond its range gets a message; it stays, and the field can be left.
    entry.txtGMcode.SelectAll();
    entry.Opened.BeingOpened = true;
    parts_.Platform.Focus.SetFocus(entry.txtGMcode);
    entry.Opened.BeingOpened = false;
}

void CodeChoice::lvCncProgram_ColumnClick(int header) {
    if (header != ErrorHeader) return;
    ListView& list = parts_.Store.lvCncProgram;
    Attempt(openLineName, [&] {
        const int row = static_cast<int>(parts_.Store.ErrorLine) + 1;
        list.EnsureVisible(row);
        list.Select(row);
        lvCncProgram_Click();
    });
}

}  // namespace kvt
