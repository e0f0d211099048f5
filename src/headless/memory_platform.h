#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "headless/disk_files.h"
#include "headless/fault_plan.h"
#include "platform/services.h"

namespace kvt {

// Message boxes and dialogs without a display: answers are queued beforehand, and what was shown is kept. A box
// without a queued answer takes its default button, and OnUnanswered is told.
class MemoryDialogs : public DialogService {
public:
    Answer ShowMessage(const MessageBox& box) override;
    bool ShowOpen(FileDialog& dialog) override { return Choose(dialog); }
    bool ShowSave(FileDialog& dialog) override { return Choose(dialog); }

    std::vector<MessageBox> Shown;
    std::deque<Answer> Answers;
    // A path, or nothing for a cancelled dialog. Without one the dialog counts as cancelled.
    struct FileAnswer {
        bool Cancelled = false;
        std::string Path;
    };
    std::deque<FileAnswer> FileAnswers;
    std::function<void(const MessageBox&)> OnUnanswered;

private:
    bool Choose(FileDialog& dialog);
};

class MemoryClipboard : public ClipboardService {
public:
    explicit MemoryClipboard(FaultPlan& faults) : faults_(faults) {}
    std::string GetText() override;
    void Clear() override;
    void SetText(std::string_view text) override;

    std::string Content;

private:
    FaultPlan& faults_;
};

class MemoryScreen : public ScreenService {
public:
    int Width() override { return WidthTwips; }
    int Height() override { return HeightTwips; }
    int WorkAreaHeight() override { return WorkAreaTwips; }

    int WidthTwips = 28800;
    int HeightTwips = 16200;
    int WorkAreaTwips = 15600;
};

// Events are functions that a test or a script has put here; a wait takes one at a time.
class MemorySystem : public SystemService {
public:
    bool DoEvents() override;
    std::tm Now() override;

    std::deque<std::function<void()>> Events;
};

class MemoryFocus : public FocusService {
public:
    void SetFocus(Control& control) override;
    Control* Focused() override { return focused_; }

private:
    Control* focused_ = nullptr;
};

// The memory half of the platform: all services without a display. Files are those of the disk.
class MemoryPlatform {
public:
    FaultPlan Faults;
    DiskFiles Files{Faults};
    MemoryDialogs Dialogs;
    MemoryClipboard Clipboard{Faults};
    MemoryScreen Screen;
    MemorySystem System;
    MemoryFocus Focus;

    kvt::Services Services{Files, Dialogs, Clipboard, Screen, System, Focus};
};

}  // namespace kvt
