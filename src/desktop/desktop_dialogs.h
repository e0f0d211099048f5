#pragma once

#include <QPointer>
#include <QWidget>

#include "desktop/view.h"
#include "platform/services.h"

namespace kvt {

// The window that a dialog belongs to: the one in front, or any that is to be seen. It gets the keys back when the
// dialog has gone, also where no window manager sees to that.
class DialogParent {
public:
    DialogParent();
    ~DialogParent();
    DialogParent(const DialogParent&) = delete;
    operator QWidget*() const { return window_; }

private:
    QPointer<QWidget> window_;
};

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
