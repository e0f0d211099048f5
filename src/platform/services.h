#pragma once

#include <ctime>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls.h"
#include "platform/pictures.h"
#include "platform/printer.h"
#include "platform/programs.h"
#include "platform/serial_port.h"

// What the rooms ask of the platform. Each half implements it; failures are RunTimeErrors.
namespace kvt {

// A text longer than this is refused with error 75.
inline constexpr std::size_t LargestText = std::size_t{64} << 20;

// Files by path; both "\" and "/" separate folders.
class FileService {
public:
    virtual ~FileService() = default;
    virtual bool Exists(std::string_view path) = 0;
    // When a file was written last, in local time; nothing where that cannot be told.
    virtual std::optional<std::tm> WrittenAt(std::string_view path) = 0;
    // The whole content. No file is error 53; a folder, what is no plain file, no permission or a text beyond
    // LargestText error 75.
    virtual std::string ReadWhole(std::string_view path) = 0;
    // Writes the whole content through a new file, which takes the place of the old one only when it is
    // complete. A failure is error 75 and leaves the old file as it was.
    virtual void WriteWhole(std::string_view path, std::string_view content) = 0;
    // Adds to a file's end and makes the file where it is missing; error 75.
    virtual void Append(std::string_view path, std::string_view content) = 0;
    // Whether files can be made in a folder, so far as one can tell beforehand.
    virtual bool CanWrite(std::string_view folder) = 0;
    // No file is error 53, another failure error 75.
    virtual void Delete(std::string_view path) = 0;
    // Makes a folder with its parents; one that exists is fine. Error 75.
    virtual void MakeFolder(std::string_view path) = 0;
    // The same files for what the program keeps by itself, aside from what its user does.
    virtual FileService& InBackground() { return *this; }
    // The names of the plain files of a folder that end in what follows the "*" of the pattern (case ignored), in
    // the order of the alphabet. A folder that is missing has none; one that cannot be read is error 75.
    virtual std::vector<std::string> List(std::string_view folder, std::string_view pattern) = 0;
};

enum class Icon : std::uint8_t { None, Information, Exclamation, Question, Critical };
enum class Buttons : std::uint8_t { Ok, YesNo, YesNoCancel };
enum class Answer : std::uint8_t { Ok, Yes, No, Cancel };

struct MessageBox {
    std::string Text;
    std::string Title;
    Icon Picture = Icon::None;
    Buttons Choice = Buttons::Ok;
    // What stands below the text: what it is about. Empty for nothing.
    std::string Details = {};
};

// A box with a text and an OK button.
inline MessageBox Notice(std::string_view text, std::string_view title = {}, Icon picture = Icon::None) {
    return {std::string(text), std::string(title), picture, Buttons::Ok};
}
// A question under a title.
inline MessageBox Question(std::string_view text, std::string_view title, Buttons choice = Buttons::YesNo) {
    return {std::string(text), std::string(title), Icon::None, choice};
}

class DialogService {
public:
    virtual ~DialogService() = default;
    virtual Answer ShowMessage(const MessageBox& box) = 0;
    // Show the dialog and put the chosen name into FileName. False when it was cancelled: the name stays then,
    // and with CancelError set the cancel is error 32755.
    virtual bool ShowOpen(FileDialog& dialog) = 0;
    virtual bool ShowSave(FileDialog& dialog) = 0;
    // Shows colours, the given one chosen, and takes the one that the user chooses; false when it was cancelled.
    virtual bool ShowColor(Color& color) = 0;
};

class ClipboardService {
public:
    virtual ~ClipboardService() = default;
    virtual std::string GetText() = 0;
    virtual void Clear() = 0;
    virtual void SetText(std::string_view text) = 0;
    virtual void SetPicture(const Pixels& picture) = 0;
};

// Twips.
class ScreenService {
public:
    virtual ~ScreenService() = default;
    virtual int Width() = 0;
    virtual int Height() = 0;
    virtual int WorkAreaHeight() = 0;
    // A window's place, moved and made smaller where no screen would show all of it.
    virtual WindowPlace OnScreen(const WindowPlace& place) = 0;
    // What windows can have of the screen that shows most of a place: all but bars and panels.
    virtual WindowPlace WorkArea(const WindowPlace& place) = 0;
    // What a window has room for on it, of a length that it wants. All of it where the rest would lie beyond the edge;
    // less where the user can scroll to the rest.
    virtual int WidthFor(int wanted) { return wanted; }
    virtual int HeightFor(int wanted) { return wanted; }
    // How fine it is: the points of a picture that shows what it shows.
    virtual double PointsPerTwip() = 0;
};

class SystemService {
public:
    virtual ~SystemService() = default;
    // Work that goes on, no wait, calls this often, with the number of its turn from 1: pending events are
    // delivered every now and then, at least every 50 ms. False when the work is to end: the program has, or
    // nothing can end endless work any more.
    virtual bool ServeEvents(long long turn) = 0;
    // One turn of a wait for what the user does: lets the system deliver pending events. False when nothing can
    // come any more: the wait then ends.
    virtual bool DoEvents() = 0;
    // A wait that ends by itself: serves events until left, asked over and over, gives no more milliseconds that
    // are to pass. False when the program has ended.
    virtual bool WaitUntil(const std::function<double()>& left) = 0;
    virtual std::tm Now() = 0;
    // The user's folder for local application data, without a separator at its end.
    virtual std::string LocalDataFolder() = 0;
    // The user's folder for documents of his own, the same way.
    virtual std::string DocumentsFolder() = 0;
    // Puts a key press (a number of keys.h) into the input, as if the user had pressed it. It arrives when the
    // handler that is running has ended.
    virtual void PressKey(int key) = 0;
    // Puts off a call until the handler that is running has ended with all that it does; asked for outside of
    // every handler, until events are served next.
    virtual void Later(std::function<void()> call) = 0;
    virtual void Beep() = 0;
    // Has boxes, dialogs and menus of the system's own speak a language, "de" or "pt_BR". One that is not known, or
    // empty, is English.
    virtual void UseLanguage(std::string_view code) = 0;
    // Shows the entries of a menu at the pointer.
    virtual void ShowPopupMenu(Menu& menu) = 0;
    // Ends the program: no window is left and no wait goes on.
    virtual void EndProgram() = 0;

    // Runs behind every handler, also inside a wait: what is shown of a state that handlers change.
    std::function<void()> OnHandled;
};

// The control that takes the keys. One that is hidden or disabled does not take the focus.
class FocusService {
public:
    virtual ~FocusService() = default;
    virtual void SetFocus(Control& control) = 0;
    virtual Control* Focused() = 0;
};

struct Services {
    FileService& Files;
    DialogService& Dialogs;
    ClipboardService& Clipboard;
    ScreenService& Screen;
    SystemService& System;
    FocusService& Focus;
    SerialPort& Port;
    PrinterService& Printer;
    ProgramService& Programs;
};

}  // namespace kvt
