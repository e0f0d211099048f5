#pragma once

#include "app/web_leaving.h"
#include "app/web_machine.h"
#include "app/web_programs.h"
#include "shell/workbench.h"
#include "web/web_platform.h"

namespace kvt {

// The workbench in a page: the rooms on the half of the platform that talks with it.
class WebSession {
public:
    // Waits for the page's first event.
    explicit WebSession(PageLink& link);
    // What shows the rooms goes before them.
    ~WebSession() { Platform.TakeDownWindows(); }
    WebSession(const WebSession&) = delete;
    WebSession& operator=(const WebSession&) = delete;

    // Starts the workbench and shows its windows.
    void Start();
    // Serves the page until the program ends.
    void Run() { Platform.Run(); }

private:
    void AddTexts(Message& message) const;
    // A program that the page's address has brought, a sample or its text: asks before it takes an unsaved one's place.
    void TakeBrought(const PageEvent& event);
    // The program's text, for the page to make an address of.
    void GiveProgram();

    WebPrograms programs_;

public:
    WebPlatform Platform;
    kvt::Workbench Workbench;

private:
    WebMachine machine_{Platform, [this] { return Workbench.Port.IsSending; }};
    WebLeaving leaving_{Platform.System,
                        [this] { return Workbench.Store.Unsaved() || Workbench.LineIsUsed(); }};
};

}  // namespace kvt
