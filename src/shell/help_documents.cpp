#include "shell/help_documents.h"

#include <array>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "files/settings_file.h"
#include "platform/keys.h"
#include "shell/workbench.h"

namespace kvt {

namespace {

constexpr const char* helpName = "mnuHelpText_Click";
constexpr const char* english = "en/";
constexpr const char* helpPage = "editor.html";
constexpr const char* releaseDate = " (2014/07/31)";
constexpr Color foundColor = 0x000000;
constexpr Color missedColor = 0x2000C0;

}  // namespace

HelpDocuments::HelpDocuments(Workbench& bench)
    : mnuHelpText(bench.frmMain, "mnuHelpText", "Help"),
      mnuGhelp(bench.frmMain, "mnuGhelp", "G-Code"),
      mnuAbout(bench.frmMain, "mnuAbout", "About"),
      txtSearch(bench.frmMain, "txtSearch"),
      bench_(bench) {
    for (Menu* entry : {&mnuHelpText, &mnuGhelp, &mnuAbout}) entry->Container = &bench.Main.mnuHelp;
    // The keys act while the menu is disabled too: see TakeKey.
    mnuHelpText.ShownShortcut = "F1";
    mnuGhelp.ShownShortcut = "Shift+F1";
    mnuHelpText.OnClick = [this] { mnuHelpText_Click(); };
    mnuGhelp.OnClick = [this] { mnuGhelp_Click(); };
    mnuAbout.OnClick = [this] { mnuAbout_Click(); };
    txtSearch.Visible = false;
    txtSearch.ToolTip = "Search in this document";
    txtSearch.OnKeyPress = [this](int& character) {
        if (character != key::Enter) return;
        Search();
        character = 0;
    };
}

RichText* HelpDocuments::Shown() const {
    MainControls& main = bench_.Main;
    for (RichText* document : {&main.rtfHelp, &main.rtfGcodeHelpMK2, &main.rtfGcodeHelpMK4, &main.rtfAbout}) {
        if (document->Visible) return document;
    }
    return nullptr;
}

bool HelpDocuments::Show(RichText& document) {
    MainControls& main = bench_.Main;
    bench_.ControlsEnable(0);
    main.mnuHelp.Enabled = false;
    bench_.Main.tabSettings.Visible = false;
    bench_.Entry.cmdReturn.Visible = true;
    bench_.Entry.cmdReturn.Enabled = true;
    HideSearch();
    for (RichText* other : {&main.rtfHelp, &main.rtfGcodeHelpMK2, &main.rtfGcodeHelpMK4, &main.rtfAbout}) {
        if (other != &document) other->Visible = false;
    }
    main.lstAbout.Visible = false;
    if (document.Visible) {
        bench_.cmdReturn_Click();
        FocusService& focus = bench_.Platform.Focus;
        if (bench_.Entry.txtGMcode.ReallyVisible()) focus.SetFocus(bench_.Entry.txtGMcode);
        return false;
    }
    document.Visible = true;
    bench_.Platform.Focus.SetFocus(document);
    return true;
}

void HelpDocuments::mnuHelpText_Click() {
    Load(bench_.Main.rtfHelp, helpPage);
    Show(bench_.Main.rtfHelp);
}

void HelpDocuments::mnuGhelp_Click() {
    MainControls& main = bench_.Main;
    // The mill reads that of the MK4.
    const bool mk2 = bench_.Store.IsMK2();
    RichText& document = mk2 ? main.rtfGcodeHelpMK2 : main.rtfGcodeHelpMK4;
    Load(document, mk2 ? "gcode_mk2.html" : "gcode_mk4.html");
    Show(document);
}

void HelpDocuments::mnuAbout_Click() {
    Load(bench_.Main.rtfAbout, "about.html");
    if (!Show(bench_.Main.rtfAbout)) return;
    FillAbout();
    bench_.Main.lstAbout.Visible = true;
}

void HelpDocuments::FillAbout() {
    const Texts& texts = bench_.Language;
    ListBox& list = bench_.Main.lstAbout;
    list.Clear();
    list.AddEntry(std::string(texts.MessageTexts(text::ProgramVersion)) + ": " + PlainNumber(VersionMajor) +
                  "." + PlainNumber(VersionMinor) + "." + PlainNumber(VersionRevision) + releaseDate);
    list.AddEntry(std::string(texts.MessageTexts(text::LanguageModule)) + ": " +
                  (texts.LanguageName.empty() ? "None" : texts.LanguageName));
    if (!texts.TranslatedBy.empty()) list.AddEntry("Translated by: " + texts.TranslatedBy);
}

std::string HelpDocuments::Found(const std::string& name) const {
    const std::string& start = bench_.Modules.StartFolder;
    for (const std::string& folder : {start + "Help/", start + "../share/kvt/Help/"}) {
        if (bench_.Platform.Files.Exists(folder + name)) return folder + name;
    }
    return {};
}

bool HelpDocuments::UseLanguage(std::string_view helpFileName) {
    const std::string name(helpFileName);
    const std::string path = Found(name);
    if (path.empty()) return false;
    const std::size_t slash = name.find_last_of("/\\");
    folder_ = slash == std::string::npos ? std::string() : name.substr(0, slash + 1);
    MainControls& main = bench_.Main;
    for (RichText* document : {&main.rtfHelp, &main.rtfGcodeHelpMK2, &main.rtfGcodeHelpMK4, &main.rtfAbout})
        document->Text = "";
    main.rtfHelp.Folder = path.substr(0, path.find_last_of("/\\") + 1);
    Attempt(helpName, [&] { main.rtfHelp.Text = WithoutUtf8Mark(bench_.Platform.Files.ReadWhole(path)); });
    return true;
}

void HelpDocuments::Load(RichText& document, const char* name) {
    if (!document.Text.Empty()) return;
    for (const std::string& folder : {folder_, std::string(english)}) {
        const std::string path = Found(folder + name);
        if (path.empty()) continue;
        document.Folder = path.substr(0, path.find_last_of("/\\") + 1);
        if (Attempt(helpName,
                    [&] { document.Text = WithoutUtf8Mark(bench_.Platform.Files.ReadWhole(path)); }))
            return;
    }
    document.Text = "<p>The file of this document was not found: " + bench_.Modules.StartFolder + "Help/" +
                    english + name + "</p>";
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
    if (!document->WasFound) bench_.Platform.System.Beep();
}

bool HelpDocuments::TakeKey(int pressed, int held) {
    FocusService& focus = bench_.Platform.Focus;
    RichText* const document = Shown();
    if (pressed == key::F1) {
        // What is being sent or received keeps the window.
        if (bench_.Store.TransmitActive || bench_.Transfer.frRXcode.Visible) return true;
        const EntryRow& entry = bench_.Entry;
        const std::string code(Trim(entry.txtGMcode.Text));
        const bool atCode = held == 0 && focus.Focused() == &entry.txtGMcode && code.size() >= 2;
        if (held != 0 && held != key::ShiftHeld) return false;
        if (atCode) {
            const std::string anchor = UpperCase(entry.lblGMcode.Caption.Get() + code);
            mnuGhelp_Click();
            if (RichText* const shown = Shown()) shown->ShowSection(anchor);
        } else if (held == key::ShiftHeld) {
            mnuGhelp_Click();
        } else {
            mnuHelpText_Click();
        }
        return true;
    }
    if (!document) return false;
    if (pressed == 'F' && held == key::CtrlHeld) {
        txtSearch.Visible = true;
        txtSearch.ForeColor = foundColor;
        txtSearch.SelectAll();
        focus.SetFocus(txtSearch);
        return true;
    }
    if (pressed == key::F3) return Search(), true;
    if (pressed == key::Escape && txtSearch.Visible) {
        HideSearch();
        focus.SetFocus(*document);
        return true;
    }
    return false;
}

}  // namespace kvt
