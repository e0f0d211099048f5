#include "program/page_texts.h"

#include <array>

namespace kvt {

namespace {

struct Row {
    const char* Name;
    const char* English;
};

// Language modules number them: a new one goes to the end.
constexpr Row rows[] = {
    // Boxes and windows
    {"ok", "OK"},
    {"yes", "Yes"},
    {"no", "No"},
    {"cancel", "Cancel"},
    {"close", "Close"},
    {"maximise", "Maximise"},
    {"restore", "Restore"},
    {"menu", "Menu"},
    {"color", "Choose a colour"},
    {"print", "Print"},
    {"preview", "Print preview"},
    // Files and storage
    {"save", "Save"},
    {"chooseFile", "Choose a file"},
    {"chooseButton", "Choose\x85"},
    {"fileName", "File name"},
    {"saveHint", "This browser saves files as downloads."},
    {"unreadable", "The file cannot be read, or is larger than 64 MB."},
    {"openAgain", "The last program was %1."},
    {"open", "Open it"},
    {"noStorage", "This browser keeps nothing for this page: settings and recovery end with it."},
    {"secondTab",
     "The workbench is open in another tab too. Neither settings nor unsaved work of this one are kept."},
    // Links
    {"copyLink", "Copy link"},
    {"linkCopied", "The link to this program is in the clipboard."},
    {"linkTooLong", "The program is too long for a link: 8 kB is the most."},
    {"linkEmpty", "There is no program to link to."},
    {"linkUnreadable", "The link holds no program that can be read."},
    {"showLink", "Copy this link:"},
    // The end
    {"ended", "The workbench has ended. You can close this tab."},
    {"again", "Start again"},
    {"stopped",
     "The workbench has stopped because of a fault. What was typed is kept; start again to go on."},
    // Serial port and played machine
    {"serialPort", "Serial port"},
    {"newPort", "Port to choose"},
    {"grantPort", "Choose the serial port of the machine"},
    {"grantButton", "Choose port\x85"},
    {"noSerial",
     "This browser has no serial port; Chrome, Edge and Opera on a computer have one. TX and RX work with "
     "the "
     "played machine."},
    {"machine", "Played machine"},
    {"machineHint",
     "While this is open it is the machine: TX sends to it at the rate of Settings, COM, and what it sends "
     "comes to RX."},
    {"speed", "Sends at baud"},
    {"send", "Send"},
    {"clear", "Clear"},
    {"hidden", "Hide"},
    {"received", "Received"},
    {"machineSending", "Sending: %1 of %2 characters, %3 left."},
    {"machineSent", "Sent: %1 characters."},
    {"machineNothing", "The machine has no program yet: transmit one to it first."},
    {"stopSending", "Stop"},
    {"machineWaits", "A transmission is under way; the line is left as it is until that has ended."},
    {"machineListening", "Ready: the control listens."},
    {"machineReceiving", "Receiving: %1 characters."},
    {"machineReceived", "Received: a program of %1 lines for %2. The control listens no longer."},
    {"machineNoProgram", "Received: %1 characters that are no program. The control listens no longer."},
    {"machineStopped", "Stopped after %1 of %2 characters."},
    {"machinePortClosed", "The workbench does not listen: enable communication in Settings, COM."},
    {"machineLost", "What came while it did not listen is lost: %1 characters."},
    {"printers", "Printers and copies are in the dialog of the browser, when you print."},
    {"notSecure",
     "A browser gives a page no serial port where its address begins with http: open it by https, or "
     "kvt.html from a disk, in Chrome, Edge or Opera. TX and RX work with the played machine."},
    {"pictureRefused",
     "The browser has not taken the picture into the clipboard. Save it as a file instead."},
};

template <class Part>
auto OfRows(const Part& part) {
    std::array<decltype(part(0, rows[0])), std::size(rows)> all = {};
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = part(static_cast<int>(i) + 1, rows[i]);
    return all;
}

}  // namespace

std::span<const char* const> PageTextNames() {
    static const auto names = OfRows([](int, const Row& row) { return row.Name; });
    return names;
}

std::span<const TextsOf<int>::Default> PageTextDefaults() {
    static const auto defaults = OfRows([](int place, const Row& row) {
        return TextsOf<int>::Default{place, row.English};
    });
    return defaults;
}

}  // namespace kvt
