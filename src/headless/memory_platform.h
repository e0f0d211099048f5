#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "headless/memory_port.h"
#include "headless/memory_printer.h"
#include "headless/memory_programs.h"
#include "platform/keyboard.h"
#include "platform/services.h"
#include "platform/twips.h"
#include "platform/window_focus.h"
#include "system/disk_files.h"

namespace kvt {

// Message boxes and dialogs without a display: answers are queued beforehand, and what was shown is kept. A box
// without a queued answer takes its default button, and OnUnanswered is told.
class MemoryDialogs : public DialogService {
public:
    Answer ShowMessage(const MessageBox& box) override;
    bool ShowOpen(FileDialog& dialog) override { return Choose(dialog); }
    bool ShowSave(FileDialog& dialog) override { return Choose(dialog); }
    bool ShowColor(Color& color) override;

    std::vector<MessageBox> Shown;
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

class MemoryScreen : public ScreenService {
public:
    int Width() override { return WidthTwips; }
    int Height() override { return HeightTwips; }
    int WorkAreaHeight() override { return WorkAreaTwips; }
    WindowPlace OnScreen(const WindowPlace& place) override;
    WindowPlace WorkArea(const WindowPlace&) override { return {WorkAreaTwips, 0, 0, WidthTwips}; }
    double PointsPerTwip() override { return 1.0 / TwipsPerPixel; }

    int WidthTwips = 28800;
    int HeightTwips = 16200;
    int WorkAreaTwips = 15600;
};

// The system without a display. Time is virtual and starts at 0. Keys go to the form of the control with the focus.
// What a wait takes next comes from NextEvent.
class MemorySystem : public SystemService, private KeyboardHost {
public:
    // Without a clipboard the keys of copying and pasting do nothing.
    explicit MemorySystem(FocusKeeper& focus, ClipboardService* clipboard = nullptr)
        : focus_(focus), keyboard_(focus, clipboard, *this) {}

    // From now on text boxes copy to and paste from this one.
    void UseClipboard(ClipboardService& clipboard) { keyboard_.UseClipboard(clipboard); }

    bool DoEvents() override;
    // Serves nothing until GiveUpAfter turns have passed; from then on what the user does next comes, as in a wait.
    bool ServeEvents(long long turn) override;
    // Takes one thing that has come up, then lets the clock run on, from tick to tick.
    bool WaitUntil(const std::function<double()>& left) override;
    std::tm Now() override;
    std::string LocalDataFolder() override { return DataFolder; }
    std::string DocumentsFolder() override { return Documents; }
    void PressKey(int key) override { Press(key); }
    void Later(std::function<void()> call) override;
    void Beep() override { ++Beeps; }
    void UseLanguage(std::string_view code) override { LanguageCode = code; }
    void ShowPopupMenu(Menu& menu) override { ShownPopup = &menu; }
    void EndProgram() override { Ended = true; }

    // Events put here by a test; a wait takes one at a time, then asks NextEvent. Where that gives false too
    // nothing can come any more.
    std::deque<std::function<void()>> Events;
    std::function<bool()> NextEvent;
    // The same for a wait that ends by itself: it asks this and nothing else.
    std::function<void()> NextInTimedWait;
    // After how many turns of endless work it takes events as a wait does.
    long long GiveUpAfter = 2'000'000;
    // Runs whenever the clock has moved on.
    std::function<void()> OnClock;

    // Runs what stands for a handler of a user's action, then what it has deferred.
    void Run(const std::function<void()>& handler);

    // A key or a character as a user presses it.
    void Press(int key, int held = 0) { Deliver(PressOf(KeyStroke{key, held})); }
    void Type(char character) { Deliver(PressOf(character)); }
    // Lets the virtual clock run on, with the timers of the forms that are given to it.
    void Advance(int milliseconds);
    void Watch(Form& form);
    // Forgets the forms and keys of a run that has ended; the clock runs on.
    void BeginRun();

    std::string DataFolder, Documents;
    long long Clock = 0;  // milliseconds
    bool Ended = false;
    int Beeps = 0;
    std::string LanguageCode;  // of the last UseLanguage
    Menu* ShownPopup = nullptr;

private:
    void Run(const Control&, const char*, const std::function<void()>& act) override { act(); }
    bool HasEnded() const override { return Ended; }
    bool MenuIsOpen() const override { return ShownPopup != nullptr; }
    void CloseMenu() override { ShownPopup = nullptr; }

    struct DeferredCall {
        std::function<void()> Call;
        int Depth;  // of the handler that has deferred it
    };
    bool ServeWaiting();
    void Deliver(KeyPress press);
    void DeliverWaiting();
    // A timer of a form, and when it was set going: it ticks from there on.
    class TimerPhase : public ControlView {
    public:
        TimerPhase(MemorySystem& system, Timer& timer);
        void PropertyChanged(Control&, PropertyId id) override;
        bool Runs() const { return Subject.Enabled && Subject.Interval > 0; }
        long long NextTick() const;

        Timer& Subject;

    private:
        MemorySystem& system_;
        long long start_;
    };
    long long NextTick(long long end) const;

    FocusKeeper& focus_;
    Keyboard keyboard_;
    std::deque<KeyPress> keys_;
    bool delivering_ = false;
    std::vector<std::unique_ptr<TimerPhase>> timers_;
    std::deque<DeferredCall> deferred_;
    int depth_ = 0;  // of handlers
};

// What the memory half of the platform consists of: the services without a display. Files are those of the disk.
class MemoryServices {
public:
    DiskFiles Files;
    MemoryDialogs Dialogs;
    MemoryClipboard Clipboard;
    MemoryScreen Screen;
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
