#pragma once

#include "desktop/view.h"
#include "platform/services.h"

namespace kvt {

// Message boxes and file dialogs of the toolkit. A box without a title has the program's name.
class DesktopDialogs : public DialogService {
public:
    explicit DesktopDialogs(DesktopContext& desktop) : desktop_(desktop) {}

    Answer ShowMessage(const MessageBox& box) override;
    bool ShowOpen(FileDialog& dialog) override { return Choose(dialog, false); }
    bool ShowSave(FileDialog& dialog) override { return Choose(dialog, true); }
    bool ShowColor(Color& color) override;

private:
    bool Choose(FileDialog& dialog, bool saves);

    DesktopContext& desktop_;
};

}  // namespace kvt
