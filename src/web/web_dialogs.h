#pragma once

#include "web/web_files.h"
#include "web/web_system.h"

namespace kvt {

// Boxes and dialogs of the page. A file that was chosen stands among the files by its name.
class WebDialogs : public DialogService {
public:
    WebDialogs(WebSystem& system, WebFiles& files) : system_(system), files_(files) {}

    Answer ShowMessage(const MessageBox& box) override;
    bool ShowOpen(FileDialog& dialog) override;
    bool ShowSave(FileDialog& dialog) override;
    bool ShowColor(Color& color) override;

private:
    PageEvent AskForFile(const char* task, FileDialog& dialog);

    WebSystem& system_;
    WebFiles& files_;
};

}  // namespace kvt
