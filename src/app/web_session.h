#pragma once

#include "shell/workbench.h"
#include "web/web_platform.h"

namespace kvt {

// No other programs can be started from a page.
class NoPrograms : public ProgramService {
public:
    int Start(std::string_view commandLine, std::string_view file) override;
    bool HasEnded(int) override { return true; }
    bool WasCutOff(int) override { return false; }
    void End(int) override {}
    bool Launch(std::string_view) override { return false; }
};

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
