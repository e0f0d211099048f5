#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "headless/memory_port.h"
#include "headless/memory_printer.h"
#include "headless/memory_programs.h"
#include "platform/keyboard.h"
#include "system/offscreen_platform.h"

namespace kvt {

// Message boxes and dialogs without a display: answers are queued beforehand, and what was shown is kept. A box
// without a queued answer takes its default button, and OnUnanswered is told.
class MemoryDialogs : public OffscreenDialogs {
public:
    Answer ShowMessage(const MessageBox& box) override;
    bool ShowOpen(FileDialog& dialog) override { return Choose(dialog); }
    bool ShowSave(FileDialog& dialog) override { return Choose(dialog); }
    bool ShowColor(Color& color) override;

    std::deque<Answer> Answers;
    // A path, or nothing for a cancelled dialog. Without one the dialog counts as cancelled.
    struct FileAnswer {
        bool Cancelled = false;
        std::string Path;
    };
    std::deque<FileAnswer> FileAnswers;
    // A colour, or nothing for a cancelled dialog, as it counts without one.
    std::deque<std::optional<Color>> ColorAnswers;
    std::function<void(const MessageBox&)> OnUnanswered;

private:
    bool Choose(FileDialog& dialog);
};

class MemoryClipboard : public ClipboardService {
public:
    std::string GetText() override { return Content; }
    void Clear() override;
    void SetText(std::string_view text) override;
    void SetPicture(const Pixels& picture) override;

    // A text or a picture, as the other is empty.
    std::string Content;
    Pixels Picture;
};

// The system of a script or a test, which presses keys and puts events into its waits. Keys go to the form of the control
// with the focus.
class MemorySystem : public OffscreenSystem, private KeyboardHost {
public:
    // Without a clipboard the keys of copying and pasting do nothing.
    explicit MemorySystem(FocusKeeper& focus, ClipboardService* clipboard = nullptr)
        : focus_(focus), keyboard_(focus, clipboard, *this) {}

    // From now on text boxes copy to and paste from this one.
    void UseClipboard(ClipboardService& clipboard) { keyboard_.UseClipboard(clipboard); }

    bool DoEvents() override;
    // Serves one pending event first.
    bool WaitUntil(const std::function<double()>& left) override;
    std::string LocalDataFolder() override { return DataFolder; }
    std::string DocumentsFolder() override { return Documents; }
    void PressKey(int key) override { Press(key); }
    void Beep() override { ++Beeps; }
    void UseLanguage(std::string_view code) override { LanguageCode = code; }
    void ShowPopupMenu(Menu& menu) override { ShownPopup = &menu; }

    // Events put here by a test; a wait takes one at a time, then asks NextEvent.
    std::deque<std::function<void()>> Events;
    // A wait that ends by itself asks this instead.
    std::function<void()> NextInTimedWait;

    // A key or a character as a user presses it.
    void Press(int key, int held = 0) { Deliver(PressOf(KeyStroke{key, held})); }
    void Type(char character) { Deliver(PressOf(character)); }
    // Forgets the forms and keys of a run that has ended; the clock runs on.
    void BeginRun();

    std::string DataFolder, Documents;
    int Beeps = 0;
    std::string LanguageCode;  // of the last UseLanguage
    Menu* ShownPopup = nullptr;

    using OffscreenSystem::Run;

private:
    void Run(const Control&, const char*, const std::function<void()>& act) override { act(); }
    bool HasEnded() const override { return Ended; }
    bool MenuIsOpen() const override { return ShownPopup != nullptr; }
    void CloseMenu() override { ShownPopup = nullptr; }

    bool InterruptsWork() const override { return !Events.empty(); }
    // The keys that wait, or one of the events.
    bool ServeWaiting() override;
    void ServeTimedWait() override;
    void Deliver(KeyPress press);
    void DeliverWaiting();

    FocusKeeper& focus_;
    Keyboard keyboard_;
    std::deque<KeyPress> keys_;
    bool delivering_ = false;
};

// What the memory half of the platform consists of: the services without a display. Files are those of the disk.
class MemoryServices {
public:
    DiskFiles Files;
    MemoryDialogs Dialogs;
    MemoryClipboard Clipboard;
    OffscreenScreen Screen;
    WindowFocus Focus;
    MemorySystem System{Focus, &Clipboard};
    MemoryPort Port{System.Clock};
    MemoryPrinter Printer;
    MemoryPrograms Programs;

    MemoryServices() {
        System.OnClock = [this] { Port.ClockMoved(); };
    }

    // For a new run of the program: its windows have gone, with the focus; what lies outside it stays.
    void BeginRun() {
        Focus = WindowFocus();
        System.BeginRun();
        Port.Reset();
        Port.OnComm = nullptr;
        Printer.BeginRun();
    }
};

// These services as they are. With planned failures around them they are a FaultyPlatform.
class MemoryPlatform : public MemoryServices {
public:
    kvt::Services Services{Files, Dialogs, Clipboard, Screen, System, Focus, Port, Printer, Programs};
};

}  // namespace kvt
