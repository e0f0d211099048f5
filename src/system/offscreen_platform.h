#pragma once

#include <vector>

#include "platform/twips.h"
#include "platform/window_focus.h"
#include "system/disk_files.h"
#include "system/offscreen_system.h"

namespace kvt {

// Message boxes and dialogs that nobody sees: boxes are kept and take their default button, dialogs count as cancelled.
class OffscreenDialogs : public DialogService {
public:
    Answer ShowMessage(const MessageBox& box) override;
    bool ShowOpen(FileDialog& dialog) override { return Cancel(dialog); }
    bool ShowSave(FileDialog& dialog) override { return Cancel(dialog); }
    bool ShowColor(Color&) override { return false; }

    std::vector<MessageBox> Shown;

protected:
    // Ends a dialog as its Cancel button does.
    static bool Cancel(const FileDialog& dialog);
};

class OffscreenScreen : public ScreenService {
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

// A machine without them. The clipboard is empty and takes nothing.
class NoClipboard : public ClipboardService {
public:
    std::string GetText() override { return {}; }
    void Clear() override {}
    void SetText(std::string_view) override {}
    void SetPicture(const Pixels&) override {}
};

class NoPort : public SerialPort {
public:
    void Open() override;
    void Close() override {}
    bool IsOpen() const override { return false; }
    void Output(std::string_view text) override;
    double MillisecondsLeft() const override { return 0; }
    std::string Input() override;
    std::string DeviceName(int) const override { return {}; }

protected:
    void SettingsChanged() override {}
};

class NoPrinter : public PrinterService {
public:
    std::vector<std::string> Fonts() override;
    void BeginJob(const PrintJob&) override {}
    void ShowPrinter(PrinterDialog& dialog) override;
    void Print(std::string_view line, PrintedLine what) override;
    void PrintDrawing(const PrintedDrawing& drawing) override;
    void EndDocument() override;
};

class OffscreenPrograms : public ProgramService {
public:
    int Start(std::string_view commandLine, std::string_view file) override;
    bool HasEnded(int) override { return true; }
    bool WasCutOff(int) override { return false; }
    void End(int) override {}
    bool Launch(std::string_view) override { return false; }
};

// What the workbench needs besides files where nobody is there to answer: a screen that nobody sees, and nothing else.
class OffscreenServices {
public:
    kvt::Services On(FileService& files) {
        return {files, Dialogs, Clipboard, Screen, System, Focus, Port, Printer, Programs};
    }

    OffscreenDialogs Dialogs;
    NoClipboard Clipboard;
    OffscreenScreen Screen;
    WindowFocus Focus;
    OffscreenSystem System;
    NoPort Port;
    NoPrinter Printer;
    OffscreenPrograms Programs;
};

// What a command runs the workbench on: these and the files of the disk.
class OffscreenPlatform : public OffscreenServices {
public:
    DiskFiles Files;
    kvt::Services Services = On(Files);
};

}  // namespace kvt
