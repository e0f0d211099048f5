#include "editor/find_window.h"

#include "basic/text.h"
#include "platform/keys.h"

namespace kvt {

FindWindow::FindWindow(ProgramStore& store, const Texts& texts, FocusService& focus, WorkbenchCalls& calls)
    : frmFind("frmFind"),
      lblFind(frmFind, "lblFind", "Find"),
      txtFind(frmFind, "txtFind"),
      store_(store),
      texts_(texts),
      focus_(focus),
      calls_(calls) {
    frmFind.Caption = "Find";
    frmFind.Visible = false;
    frmFind.TopMost = true;
    frmFind.Width = 4500;
    frmFind.Height = 660;
    lblFind.Left = 120;
    lblFind.Top = 210;
    lblFind.Width = 780;
    lblFind.Height = 240;
    txtFind.Left = 960;
    txtFind.Top = 150;
    txtFind.Width = 3420;
    txtFind.Height = 360;
    txtFind.TabIndex = 0;
    txtFind.OnGotFocus = [this] {
        txtFind.SelectAll();
        FindNextMode = true;
    };
    txtFind.OnChange = [this] { FindNextMode = false; };
    txtFind.OnKeyPress = [this](int& character) {
        if (character != key::Enter) return;
        character = 0;
        FindNext();
    };
    frmFind.OnKeyDown = [this](int pressed, int) {
        if (pressed == key::Escape) Close();
    };
    frmFind.OnQueryUnload = [this] { Close(); };
}

void FindWindow::mnuFind_Click() {
    if (!frmFind.Visible) focusBefore_ = focus_.Focused();
    frmFind.PlaceOver(store_.lvCncProgram.OwningForm());
    frmFind.Visible = true;
    focus_.SetFocus(txtFind);
}

// The focus goes back to where it was.
void FindWindow::Close() {
    if (!frmFind.Visible) return;
    frmFind.Visible = false;
    if (focusBefore_) focus_.SetFocus(*focusBefore_);
}

void FindWindow::FindNext() {
    ListView& list = store_.lvCncProgram;
    const int first = FindNextMode ? list.SelectedRow() + 1 : 1;
    // The focus leaves the window only once: no field on its way hears of it.
    frmFind.Visible = false;
    const int lines = store_.LineCount();
    for (int row = first; row <= lines; ++row) {
        if (!Matches(list.Row(row))) continue;
        list.Select(row);
        list.EnsureVisible(row);
        focus_.SetFocus(list);
        Run(calls_.Tell, "");
        return;
    }
    if (focusBefore_) focus_.SetFocus(*focusBefore_);
    Run(calls_.Tell, Filled(texts_.NoticeTexts(text::NothingFound), {txtFind.Text.Get()}));
}

bool FindWindow::Matches(const ListRow& row) const {
    for (int c = column::Number; c <= column::Comment; ++c) {
        const bool inSight = store_.lvCncProgram.Header(c + 1).Width > 0;
        if (inSight && Find(row[c].View(), txtFind.Text.Get(), Compare::IgnoreCase) > 0) return true;
    }
    return false;
}

}  // namespace kvt
