#include "app/web_session.h"

#include "basic/text.h"
#include "files/folders.h"
#include "program/page_texts.h"

namespace kvt {

namespace {

// Where what an address of the page has brought stands; nothing is ever saved there.
constexpr const char* linkFolder = "/link/";

}  // namespace

WebSession::WebSession(PageLink& link) : Platform(link, programs_), Workbench(Platform.Services) {
    programs_.UseFiles(Platform.Files);
    Platform.System.AddTexts = [this](Message& message) { AddTexts(message); };
}

// The page's own texts, by the names that it has for them.
void WebSession::AddTexts(Message& message) const {
    message.Name("texts").BeginObject();
    int place = 0;
    for (const char* name : PageTextNames()) message.Code(name, Workbench.Language.PageTexts.At(++place));
    message.EndObject();
}

void WebSession::Start() {
    // In English, until the settings or the browser name another language.
    Platform.System.UseLanguage({});
    const std::string settings = FoldersBelow(Platform.System.LocalDataFolder()).SettingsFolder;
    const bool firstVisit = Platform.Files.List(settings, "*.txt").empty();
    InstallResetCopies(Platform.Files, Platform.System.LocalDataFolder());
    Workbench.Help.StartFolder = "/share/";
    programs_.Install(FoldersBelow(Platform.System.LocalDataFolder()).PreProcessorFolder);
    Workbench.Form_Load({});
    if (Platform.System.Ended()) return;
    if (firstVisit) Workbench.Languages.LoadByCode(Platform.Hello().Raw("language"));
    // A browser that cannot open a file again has forgotten those of the last visit.
    Workbench.ForgetFiles([this](const std::string& path) { return !Platform.Files.Knows(path); });
    // The page is its window.
    Workbench.frmMain.State = WindowState::Maximised;
    for (Form* form : Workbench.Forms()) Platform.Show(*form);
    Platform.FillPage(Workbench.frmMain);
    Platform.Focus.TellAgain();
    Platform.Port.OnNames = [this] { Workbench.Port.FollowDevices(); };
    Platform.OnOther["brought"] = [this](const PageEvent& event) { TakeBrought(event); };
    Platform.OnOther["link"] = [this](const PageEvent&) { GiveProgram(); };
    // A page goes without a word, or is hidden and then forgotten.
    Platform.OnOther["unload"] = [this](const PageEvent&) { Workbench.KeepSettings(); };
    Platform.OnOther["hidden"] = [this](const PageEvent& event) {
        if (event.Flag("hidden")) Workbench.KeepSettings();
    };
    if (Platform.Hello().Has("name")) TakeBrought(Platform.Hello());
}

// It comes as a sample does: with a name, and no file that a save could write over. Not while the program must stay.
void WebSession::TakeBrought(const PageEvent& event) {
    if (Workbench.LineIsUsed()) return;
    const std::string name(ExtractFileName(event.Path("name")));
    std::string path = event.Path("file");
    if (path.empty()) {
        path = linkFolder + name;
        Platform.Files.PutAside(path, event.Bytes("content"));
    }
    LoadAs as;
    as.Name = PathIn(Platform.System.DocumentsFolder(), name);
    as.FromSource = true;
    Workbench.Reader.LoadFile(path, as);
    kvt::Run(Workbench.Calls.RefreshTitle);
}

void WebSession::GiveProgram() {
    Message message("link");
    message.Shown("name", ExtractFileName(Workbench.File.lblPath.Caption));
    message.Bytes("content", Workbench.Writer.GenerateAll());
    Platform.Page.Send(message);
}

}  // namespace kvt
