#pragma once

#include <QPointer>
#include <QWidget>

#include "desktop/view.h"
#include "platform/services.h"

namespace kvt {

// The window that a dialog belongs to: that whose command has led to it, or else the one in front, or any that is to be
// seen. When the dialog has gone the window that had the keys before gets them back, also where no window manager sees to
// that.
class DialogParent {
public:
    explicit DialogParent(const DesktopContext& desktop);
    ~DialogParent();
    DialogParent(const DialogParent&) = delete;
    operator QWidget*() const { return window_; }

private:
    QPointer<QWidget> window_, before_;
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
