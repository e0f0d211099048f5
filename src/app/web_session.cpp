#include "app/web_session.h"

namespace kvt {

WebSession::WebSession(PageLink& link) : Platform(link, programs_), Workbench(Platform.Services) {}

void WebSession::Start() {
    InstallResetCopies(Platform.Files, Platform.System.LocalDataFolder());
    Workbench.Help.StartFolder = "/share/";
    Workbench.Form_Load({});
    if (Platform.System.Ended()) return;
    // The page is its window.
    Workbench.frmMain.State = WindowState::Maximised;
    for (Form* form : Workbench.Forms()) Platform.Show(*form);
    Platform.Focus.TellAgain();
}

}  // namespace kvt
