#pragma once

#include "platform/no_programs.h"
#include "shell/workbench.h"
#include "web/web_platform.h"

namespace kvt {

// The workbench in a page: the rooms on the half of the platform that talks with it.
class WebSession {
public:
    // Waits for the page's first event.
    explicit WebSession(PageLink& link);

    // Starts the workbench and shows its windows.
    void Start();
    // Serves the page until the program ends.
    void Run() { Platform.Run(); }

private:
    NoPrograms programs_;

public:
    WebPlatform Platform;
    kvt::Workbench Workbench;
};

}  // namespace kvt
