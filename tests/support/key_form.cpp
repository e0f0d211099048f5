#include "support/key_form.h"

#include <random>
#include <sstream>

#include "platform/keys.h"

namespace kvt::test {

namespace {

// Side by side, in fields of 130 by 110 pixels; a row has five.
void Put(Control& control, int field, int tabIndex) {
    constexpr int pixel = 15;  // twips
    control.Left = (10 + field % 5 * 130) * pixel;
    control.Top = (10 + field / 5 * 110) * pixel;
    control.Width = 120 * pixel;
    control.Height = 100 * pixel;
    control.TabIndex = tabIndex;
}

// A line of what lies within another control.
void PutInside(Control& control, Control& container, int line) {
    control.Container = &container;
    control.Left = 150;
    control.Top = 150 + line * 330;
    control.Width = 1500;
    control.Height = 300;
}

}  // namespace

KeyForm::KeyForm(Services& platform) : Platform(platform) {
    Place();
    Wire();
    Fill();
    Reset();
}

void KeyForm::Place() {
    form.Width = 11000;
    form.Height = 9000;
    int place = 0;
    for (Control* control : form.Controls()) {
        if (control->Kind() == ControlKind::Menu) continue;
        Put(*control, place, place);
        ++place;
    }
    int line = 0;
    for (Control* option : std::initializer_list<Control*>{&optOne, &optTwo, &optOff, &optThree})
        PutInside(*option, frOptions, line++);
    tabPages.Captions = {"One", "Two"};
    txtFirst.Page = 0;
    txtSecond.Page = 1;
    for (TextBox* box : {&txtFirst, &txtSecond}) PutInside(*box, tabPages, 2);
    lblText.TabIndex = -1;
    cmdHide.Picture = "M 4 4 L 20 20";
    lstPick.EnterChooses = true;
    // The keys come there by the mouse alone.
    txtNotes.TabIndex = -1;
    txtNotes.MultiLine = true;
    txtShown.ReadOnly = true;
    for (Menu* entry : {&mnuOpen, &mnuSave, &mnuDraw, &mnuAgain, &mnuCopy}) entry->Container = &mnuFile;
    mnuOpen.Shortcut = "Ctrl+O";
    mnuSave.Shortcut = "Ctrl+S";
    mnuDraw.Shortcut = "F5";
    mnuAgain.Shortcut = "F5";
    mnuCopy.Shortcut = "Ctrl+C";
    mnuSave.Enabled = false;
}

void KeyForm::Fill() {
    for (const char* code :
         {"G00 \tRapid", "G01 \tLinear", "G02 \tArc", "M03 \tSpindle", "M05 \tStop", "M30 \tEnd"})
        lstCodes.AddEntry(code);
    for (int i = 0; i < 20; ++i) lstCodes.AddEntry("X" + std::to_string(i));
    lstPick.SetEntries(lstCodes.Entries());
    for (const char* font : {"Courier", "Cousine", "Mono", "Sans"}) cboFont.AddEntry(font);
    for (int i = 0; i < 40; ++i) lvRows.AddRow()[1] = std::to_string(i);
    lvRows.RowsChanged();
    hsbView.Max = 100;
    vsbView.Min = 100;
    udScale.Max = 10;
    optOff.Enabled = false;
}

void KeyForm::Wire() {
    const auto heard = [this](const Control& control, int key, int held) {
        keys_ += control.Name() + std::to_string(key) + "/" + std::to_string(held) + " ";
    };
    form.OnKeyDown = [this, heard](int pressed, int held) {
        heard(form, pressed, held);
        if (pressed == key::Escape) Platform.Focus.SetFocus(lvRows);
    };
    form.OnKeyPress = [this](int& character) { keys_ += "c" + std::to_string(character) + " "; };
    txtA.OnKeyDown = [this](int pressed, int) {
        if (pressed == key::Down) Platform.Focus.SetFocus(lvRows);
    };
    // Small letters become capitals, x is refused, a comma ends the field.
    txtA.OnKeyPress = [this](int& character) {
        if (character >= 'a' && character <= 'z') character -= 'a' - 'A';
        if (character == ',') Platform.System.PressKey(key::Tab);
        if (character == 'X' || character == ',') character = 0;
    };
    txtA.OnChange = [this] { keys_ += "changed "; };
    // It keeps the keys while it holds a 9, and no more than four characters.
    txtB.OnLostFocus = [this] {
        if (!wired_ || txtB.Text != "9") return;
        told_ += "kept ";
        Platform.Focus.SetFocus(txtB);
    };
    txtB.OnChange = [this] {
        if (txtB.Text.Get().size() > 4) txtB.Text = txtB.Text.Get().substr(0, 4);
    };
    txtFirst.OnKeyPress = [](int& character) {
        if (character == key::Backspace) character = 0;
    };
    txtShown.OnGotFocus = [this] { txtShown.SelectAll(); };
    cmdHide.OnClick = [this] { txtB.Visible = !txtB.Visible; };
    lvRows.OnKeyDown = [this](int pressed, int) {
        if (pressed == key::F2) Platform.System.PressKey(key::Enter);
        if (pressed == key::Enter) told_ += "open" + std::to_string(lvRows.SelectedRow()) + " ";
        if (pressed == key::Delete) lvRows.Enabled = false;
    };
    const std::pair<Control*, const char*> clicked[] = {
        {&cmdGo, "go"},      {&chkBox, "box"},   {&optOne, "one"},   {&optTwo, "two"},   {&optThree, "three"},
        {&lstCodes, "code"}, {&lblWord, "word"}, {&lstPick, "pick"}, {&cboFont, "font"}, {&tabPages, "page"}};
    for (const auto& [control, what] : clicked)
        control->OnClick = [this, control, what] { told_ += what + Content(*control) + " "; };
    for (RangeControl* range : std::initializer_list<RangeControl*>{&hsbView, &vsbView, &udScale}) {
        range->OnChange = [this, range] {
            if (wired_) told_ += range->Name() + std::to_string(range->Value) + " ";
        };
    }
    for (Menu* entry : {&mnuOpen, &mnuSave, &mnuDraw, &mnuAgain, &mnuCopy})
        entry->OnClick = [this, entry] { told_ += entry->Name() + " "; };
}

void KeyForm::Reset() {
    wired_ = false;
    txtB.Visible = true;
    lvRows.Enabled = true;
    for (TextBox* box : {&txtA, &txtB, &txtFirst, &txtSecond}) {
        box->Text = "";
        box->Edits = {};
    }
    txtShown.Text = "shown";
    txtNotes.Text = "one\r\ntwo\r\nthree";
    txtNotes.Selection = TextSelection{};
    chkBox.Value = 0;
    for (OptionButton* option : {&optOne, &optTwo, &optThree}) option->Value = option == &optOne;
    lstCodes.ListIndex = -1;
    lstPick.ListIndex = -1;
    cboFont.ListIndex = 0;
    lvRows.Select(1);
    lvRows.ScrollTo(1);
    tabPages.Value = 0;
    hsbView.SetValue(50);
    vsbView.SetValue(50);
    udScale.SetValue(5);
    Platform.Focus.SetFocus(txtA);
    txtA.Selection = TextSelection{};
    Platform.Clipboard.SetText("clip");
    wired_ = true;
    told_.clear();
    keys_.clear();
}

Control& KeyForm::Named(std::string_view name) { return *form.FindControl(name); }

std::string KeyForm::Content(Control& control) {
    if (auto* box = dynamic_cast<TextBox*>(&control)) {
        const TextSelection selection = box->Selection;
        std::string text = box->Text.Get();
        if (selection.Length > 0)
            text.insert(static_cast<std::size_t>(selection.Start + selection.Length), "]");
        text.insert(static_cast<std::size_t>(selection.Start), selection.Length > 0 ? "[" : "|");
        return text;
    }
    if (auto* check = dynamic_cast<CheckBox*>(&control)) return std::to_string(check->Value);
    if (auto* option = dynamic_cast<OptionButton*>(&control)) return option->Value ? "+" : "-";
    if (auto* list = dynamic_cast<ListBox*>(&control)) return std::to_string(list->ListIndex);
    if (auto* rows = dynamic_cast<ListView*>(&control)) return std::to_string(rows->SelectedRow());
    if (auto* tabs = dynamic_cast<TabStrip*>(&control)) return std::to_string(tabs->Value);
    if (auto* range = dynamic_cast<RangeControl*>(&control)) return std::to_string(range->Value);
    return {};
}

std::string KeyForm::Summary() {
    Control* const focused = Platform.Focus.Focused();
    return (focused ? focused->Name() + " " + Content(*focused) : "none") + " " + told_;
}

std::string KeyForm::State() {
    std::string state = Summary() + "; " + keys_ + "; ";
    for (Control* control : form.Controls()) {
        if (const std::string content = Content(*control); !content.empty())
            state += control->Name() + "=" + content + " ";
    }
    return state + "top " + std::to_string(lvRows.TopRow()) + (txtB.Visible ? "" : " hidden");
}

std::vector<std::string> KeysIn(std::string_view sequence) {
    std::istringstream text{std::string(sequence)};
    std::vector<std::string> keys;
    for (std::string key; text >> key;) keys.push_back(key);
    return keys;
}

const std::vector<KeyCase>& KeyCases() {
    static const std::vector<KeyCase> cases = {
        // Handlers come first: they change a character, refuse it, or press a key that arrives when they have ended.
        {"a b x 1", "txtA AB1| "},
        {"a , 7", "txtB 7| "},
        {"Down", "lvRows 1 "},
        {">txtFirst a b Backspace", "txtFirst ab| "},
        {">txtB 9 Tab 1", "txtB 91| kept "},
        {">txtB 1 2 3 4 5", "txtB 1234| "},
        {"Esc F2", "lvRows 1 open1 "},
        {">lvRows Down Enter Delete Down", "lvRows 2 open2 "},
        // Menus come before the handlers, but not before what edits a text; one that is disabled is no menu.
        {"a Ctrl+O F5 Ctrl+S", "txtA A| mnuOpen mnuDraw "},
        {">cmdGo Ctrl+O Ctrl+S Alt+O Ctrl+C", "cmdGo  mnuOpen mnuCopy "},
        // Fields of one line.
        {"a b c Left Left d", "txtA AD|BC "},
        {"a b c Shift+Left Shift+Left d", "txtA AD| "},
        {"a b c Home Delete End Backspace Backspace", "txtA | "},
        {"a b c Shift+Home Right Shift+Left", "txtA AB[C] "},
        {"a b c Ctrl+A Left 1", "txtA 1|ABC "},
        {"a b Space c d Ctrl+Left Ctrl+Left Ctrl+Right Shift+End", "txtA AB [CD] "},
        {"a b Space c Ctrl+Backspace Ctrl+Home Ctrl+Delete", "txtA | "},
        {"a b Ctrl+A Ctrl+X Ctrl+V Shift+Insert", "txtA ABAB| "},
        {"a b Shift+Left Ctrl+Insert End Ctrl+V Shift+Home Shift+Delete", "txtA | "},
        {"a b Backspace Ctrl+Z Ctrl+Z Ctrl+Z Ctrl+Y", "txtA AB| "},
        {"a b Ctrl+Z", "txtA | "},
        {"a b Ctrl+Y Ctrl+Z Ctrl+Y Ctrl+Y", "txtA AB| "},
        {"a Enter Up PageDown Insert Ctrl+Enter F9", "txtA A| "},
        {"Ctrl+V Esc >txtA +", "txtA clip+| "},
        {">txtShown a Backspace Delete Ctrl+X Ctrl+V End", "txtShown shown| "},
        {">txtShown Ctrl+C Esc >txtA Ctrl+V", "txtA shown| "},
        // And of several.
        {">txtNotes Down Right Enter x End Backspace", "txtNotes one\r\nt\r\nxw|\r\nthree "},
        {">txtNotes Ctrl+End Backspace Delete Home Delete Backspace", "txtNotes one\r\ntwo|hre "},
        {">txtNotes End Shift+Down Ctrl+X Right Right y", "txtNotes one\r\nty|hree "},
        {">txtNotes Right Shift+Ctrl+End Left Ctrl+Right z Ctrl+Right Ctrl+Delete",
         "txtNotes onez\r\n|\r\nthree "},
        {">txtNotes Tab", "txtA | "},
        // Buttons, boxes, options.
        {">cmdGo Space Enter Ctrl+Enter a Down Esc >cmdGo", "cmdGo  go go go "},
        {">cmdHide Space >txtB >txtA Tab Shift+Tab >cmdHide Enter >txtA Tab", "txtB | "},
        {">chkBox Space Enter Space Space +", "chkBox 1 box1 box0 box1 "},
        {">lblWord Enter a Space Down Tab", "lstPick -1 word word "},
        {">optOne Down Down Right Left Up", "optTwo + two+ three+ one+ three+ two+ "},
        // Tab comes to the chosen option alone.
        {">optTwo Enter Space Tab", "lstCodes -1 two+ "},
        {">optTwo Space Tab Shift+Tab Shift+Tab Tab", "optTwo + two+ "},
        // Lists.
        {">lstCodes Down Down Enter Space Home Up", "lstCodes 0 code0 code1 code1 code1 code0 "},
        {">lstCodes End Home Up Down", "lstCodes 1 code25 code0 code1 "},
        {">lstCodes g g g g Left", "lstCodes 0 code0 code1 code2 code0 "},
        {">lstCodes m 0 5 Tab Shift+Tab", "lstCodes 4 code3 code4 "},
        {">lstCodes z 1 F2 Left", "lstCodes -1 "},
        // Where moving does not choose yet, Enter and the blank do.
        {">lstPick Down Down Enter Up Space m Home", "lstPick 0 pick1 pick0 "},
        {">lstPick m Enter Tab", "txtA | pick3 "},
        {">cboFont Down Up Up End Home Enter", "cboFont 0 font1 font0 font3 font0 "},
        {">cboFont m Left s Left c o u s Left", "cboFont 1 font2 font3 font0 font1 "},
        {">cboFont End PageUp c o u s Tab", "lvRows 1 font3 font0 font1 "},
        {">lvRows Down Down Up End Up Home PageDown PageUp a", "lvRows 1 "},
        {">lvRows Up Left Right Space Enter", "lvRows 1 open1 "},
        // Tabs, bars, arrows.
        {">tabPages Right Right Left End Home Up", "tabPages 0 page1 page0 page1 page0 "},
        {">txtFirst a Ctrl+Tab Tab b", "txtSecond b| page1 "},
        {">tabPages Ctrl+Tab Shift+Ctrl+Tab Shift+Ctrl+Tab Tab", "txtSecond | page1 page0 page1 "},
        {"Ctrl+Tab", "txtB | "},
        {">hsbView Right Down Left PageDown PageDown Home End",
         "hsbView 100 hsbView51 hsbView52 hsbView51 hsbView61 hsbView71 hsbView0 hsbView100 "},
        {">vsbView Down PageUp Home Up End", "vsbView 0 vsbView49 vsbView59 vsbView100 vsbView0 "},
        {">udScale Up Right Down Left PageUp Home Up End",
         "udScale 0 udScale6 udScale7 udScale6 udScale5 udScale6 udScale10 udScale0 "},
        {">udScale Tab", "lblWord  "},
    };
    return cases;
}

std::vector<std::string> RandomSequences(int count, unsigned seed) {
    const std::vector<std::string> keys = KeysIn(
        "a b 1 9 x , g m + Tab Tab Shift+Tab Shift+Tab Ctrl+Tab Enter Space Esc Up Down Left Right Home End "
        "PageUp PageDown Insert Delete Backspace Shift+Left Shift+Right Shift+Home Shift+End Ctrl+Left "
        "Ctrl+Right Ctrl+A Ctrl+C Ctrl+X Ctrl+V Ctrl+Z Ctrl+Y Ctrl+O Ctrl+S F2 F5 Ctrl+Enter Ctrl+Space "
        "Shift+Space Ctrl+Delete Ctrl+Backspace Shift+Insert");
    const std::vector<std::string> places = KeysIn(
        ">txtA >txtB >txtShown >cmdGo >cmdHide >chkBox >optOne >optTwo >lstCodes >cboFont >lvRows >tabPages "
        ">txtFirst >hsbView >vsbView >udScale >lblWord >lstPick");
    std::mt19937 random(seed);
    std::vector<std::string> sequences;
    for (int i = 0; i < count; ++i) {
        std::string sequence = places[random() % places.size()];
        for (int key = 0; key < 12; ++key) sequence += " " + keys[random() % keys.size()];
        sequences.push_back(sequence);
    }
    return sequences;
}

}  // namespace kvt::test
