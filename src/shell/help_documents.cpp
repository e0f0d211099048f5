#include "shell/help_documents.h"

#include "basic/installation.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "files/folders.h"
#include "files/settings_file.h"
#include "platform/keys.h"
#include "program/explanations.h"

namespace kvt {

namespace {

constexpr const char* helpName = "mnuHelpText_Click";
constexpr const char* english = "en/";
constexpr const char* helpPage = "editor.html";
constexpr const char* releaseDate = " (2014/07/31)";
constexpr Color foundColor = 0x000000;
constexpr Color missedColor = 0x2000C0;

}  // namespace

HelpDocuments::HelpDocuments(const Parts& parts)
    : mnuHelpText(parts.Main.Window, "mnuHelpText", "Help"),
      mnuGhelp(parts.Main.Window, "mnuGhelp", "G-Code"),
      mnuAbout(parts.Main.Window, "mnuAbout", "About"),
      txtSearch(parts.Main.Window, "txtSearch"),
      parts_(parts) {
    // The keys act while the menu is disabled too: see HandleKey.
    mnuHelpText.ShownShortcut = "F1";
    mnuGhelp.ShownShortcut = "Shift+F1";
    mnuHelpText.OnClick = [this] { mnuHelpText_Click(); };
    mnuGhelp.OnClick = [this] { mnuGhelp_Click(); };
    mnuAbout.OnClick = [this] { mnuAbout_Click(); };
    txtSearch.ToolTip = "Search in this document";
    txtSearch.OnKeyPress = [this](int& character) {
        if (character != key::Enter) return;
        Search();
        character = 0;
    };
}

RichText* HelpDocuments::Shown() const {
    for (RichText* document : parts_.Main.Documents()) {
        if (document->Visible) return document;
    }
    return nullptr;
}

bool HelpDocuments::Show(RichText& document) {
    MainControls& main = parts_.Main;
    if (!Shown()) cameFrom_ = parts_.Platform.Focus.Focused();
    Run(parts_.Calls.ControlsEnable, ControlsMode::Frozen);
    main.mnuHelp.Enabled = false;
    main.tabSettings.Visible = false;
    parts_.Entry.cmdReturn.Visible = true;
    parts_.Entry.cmdReturn.Enabled = true;
    HideSearch();
    for (RichText* other : main.Documents()) {
        if (other != &document) other->Visible = false;
    }
    main.lstAbout.Visible = false;
    if (document.Visible) {
        Run(parts_.Calls.cmdReturn_Click);
        if (!FocusBack()) parts_.Platform.Focus.SetFocus(parts_.Entry.txtGMcode);
        return false;
    }
    document.Visible = true;
    parts_.Platform.Focus.SetFocus(document);
    return true;
}

bool HelpDocuments::FocusBack() {
    const Control* const to = cameFrom_;
    if (!to || !to->EffectivelyVisible() || !to->EffectivelyEnabled()) return false;
    parts_.Platform.Focus.SetFocus(*cameFrom_);
    return true;
}

void HelpDocuments::mnuHelpText_Click() {
    Load(parts_.Main.rtfHelp, helpPage, helpPage_);
    Show(parts_.Main.rtfHelp);
}

std::string HelpDocuments::AnchorOf(MachineModel machine, const std::string& code) {
    return (machine == MachineModel::F1 ? "F1_" : "") + UpperCase(code);
}

void HelpDocuments::mnuGhelp_Click() {
    MainControls& main = parts_.Main;
    // The mill reads that of the MK4.
    const bool mk2 = parts_.Store.IsMK2();
    RichText& document = mk2 ? main.rtfGcodeHelpMK2 : main.rtfGcodeHelpMK4;
    Load(document, mk2 ? "gcode_mk2.html" : "gcode_mk4.html");
    if (Show(document) && parts_.Store.IsF1()) document.ShowSection("F1");
}

void HelpDocuments::mnuAbout_Click() {
    Load(parts_.Main.rtfAbout, "about.html");
    if (!Show(parts_.Main.rtfAbout)) return;
    FillAbout();
    parts_.Main.lstAbout.Visible = true;
}

void HelpDocuments::FillAbout() {
    const Texts& texts = parts_.Language;
    ListBox& list = parts_.Main.lstAbout;
    list.Clear();
    list.AddEntry(std::string(texts.MessageTexts(text::ProgramVersion)) + ": " + VersionText() + releaseDate);
    list.AddEntry(
        std::string(texts.MessageTexts(text::LanguageModule)) + ": " +
        (texts.LanguageName.empty() ? std::string(texts.DialogTexts(text::NoModule)) : texts.LanguageName));
    if (texts.TranslatedBy.empty()) return;
    list.AddEntry(std::string(texts.DialogTexts(text::TranslatedBy)) + ": " + texts.TranslatedBy);
}

std::string HelpDocuments::PathOf(const std::string& name) const {
    for (const std::string& folder : ProgramFolders(StartFolder, "Help")) {
        if (parts_.Platform.Files.Exists(folder + name)) return folder + name;
    }
    return {};
}

bool HelpDocuments::UseLanguage(std::string_view helpFileName) {
    const std::string name(helpFileName);
    const std::string path = PathOf(name);
    if (path.empty()) return false;
    const std::size_t slash = name.find_last_of("/\\");
    folder_ = slash == std::string::npos ? std::string() : name.substr(0, slash + 1);
    helpPage_ = name.substr(folder_.size());
    Forget();
    return true;
}

// They are read when they are asked for.
void HelpDocuments::Forget() {
    for (RichText* document : parts_.Main.Documents()) document->Text = "";
}

void HelpDocuments::UseEnglish() {
    folder_ = english;
    helpPage_ = helpPage;
    Forget();
}

void HelpDocuments::Load(RichText& document, const char* name, std::string_view ofLanguage) {
    if (!document.Text.Empty()) return;
    const std::string own = folder_ + std::string(ofLanguage.empty() ? name : ofLanguage);
    for (const std::string& file : {own, english + std::string(name)}) {
        const std::string path = PathOf(file);
        if (path.empty()) continue;
        document.Folder = path.substr(0, path.find_last_of("/\\") + 1);
        if (Attempt(helpName,
                    [&] { document.Text = WithoutUtf8Mark(parts_.Platform.Files.ReadWhole(path)); }))
            return;
    }
    document.Text = "<p>" + std::string(parts_.Language.DialogTexts(text::NoDocument)) + " " + StartFolder +
                    "Help/" + english + name + "</p>";
}

void HelpDocuments::HideSearch() {
    txtSearch.Visible = false;
    txtSearch.Text = "";
}

void HelpDocuments::Search() {
    RichText* const document = Shown();
    if (!document || txtSearch.Text.Empty()) return;
    document->Find(txtSearch.Text);
    txtSearch.ForeColor = document->WasFound ? foundColor : missedColor;
    if (!document->WasFound) parts_.Platform.System.Beep();
}

void HelpDocuments::ShowSearch() {
    txtSearch.Visible = true;
    txtSearch.ForeColor = foundColor;
    txtSearch.SelectAll();
    parts_.Platform.Focus.SetFocus(txtSearch);
}

std::string HelpDocuments::CodeAtFocus() const {
    const EntryRow& entry = parts_.Entry;
    const Control* const focused = parts_.Platform.Focus.Focused();
    if (focused == &entry.txtGMcode) {
        const std::string code(Trim(entry.txtGMcode.Text));
        return code.size() < 2 ? std::string() : entry.lblGMcode.Caption.Get() + code;
    }
    const ListBox* const list = parts_.Lists.Find(focused);
    return list && list->ListIndex >= 0 ? std::string(Trim(Left(list->Entry(list->ListIndex), 4)))
                                        : std::string();
}

std::string HelpDocuments::CodeOfFields() const {
    const EntryRow& entry = parts_.Entry;
    const Control* const focused = parts_.Platform.Focus.Focused();
    const bool inFields = focused && focused->Container == &entry.frEntry;
    const std::string code(Trim(entry.txtGMcode.Text));
    return inFields && code.size() >= 2 ? entry.lblGMcode.Caption.Get() + code : std::string();
}

void HelpDocuments::ShowCode(const std::string& code) {
    mnuGhelp_Click();
    RichText* const shown = Shown();
    if (shown && !code.empty()) shown->ShowSection(AnchorOf(parts_.Store.Machine, code));
}

// At a code, that code's section; on a line with a finding, what explains that.
void HelpDocuments::ShowHelpFor(int held) {
    const std::string ofFields = CodeOfFields();
    if (const std::string code = CodeAtFocus(); !code.empty()) return ShowCode(code);
    if (held == key::ShiftHeld) return ShowCode(ofFields);
    const Control* const focused = parts_.Platform.Focus.Focused();
    const bool inLine =
        focused == &parts_.Store.lvCncProgram || (focused && focused->Container == &parts_.Entry.frEntry);
    ShowFinding(inLine ? FindingOfLine() : 0);
    if (Shown() && !ofFields.empty())
        Run(parts_.Calls.Tell, Filled(parts_.Language.EntryTexts(EntryText::CodeHelp), {ofFields}));
}

int HelpDocuments::FindingOfLine() const {
    const ListView& list = parts_.Store.lvCncProgram;
    const int row = list.SelectedRow();
    return row > 0 ? FindingNumber(list.Row(row)[column::Error], parts_.Language) : 0;
}

void HelpDocuments::ShowFinding(int number) {
    mnuHelpText_Click();
    RichText* const shown = Shown();
    if (shown && number > 0) shown->ShowSection(FindingSection(number));
}

bool HelpDocuments::HandleKey(int pressed, int held) {
    if (pressed == key::F1) {
        // What is being sent or received keeps the window.
        if (parts_.Store.TransmitActive || parts_.Transfer.frRXcode.Visible) return true;
        if (held != 0 && held != key::ShiftHeld) return false;
        return ShowHelpFor(held), true;
    }
    RichText* const document = Shown();
    if (!document) return false;
    if (pressed == 'F' && held == key::CtrlHeld) return ShowSearch(), true;
    if (pressed == key::F3) return Search(), true;
    if (pressed == key::Escape && txtSearch.Visible) {
        HideSearch();
        parts_.Platform.Focus.SetFocus(*document);
        return true;
    }
    return false;
}

}  // namespace kvt
