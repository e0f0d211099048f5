#include "program/texts.h"

#include "basic/run_time_error.h"
#include "basic/text.h"

namespace kvt {

namespace {

constexpr DefaultText programErrorDefaults[] = {
    {1, "!Unknown ControlCommand"},
    {2, "!Start and End same value"},
    {3, "!1 quadrant max"},
    {4, "!G24 must precede G90/G92"},
    {5, "!Invalid SUB"},
    {6, "!Max 5 nested SUBs"},
    {7, "!Endless loop"},
    {8, "!Line doesn't exist"},
    {9, "!RETURN without SUB"},
    {10, "!Must be preceded by G02/03"},
    {12, "!Division-of-cut error"},
    {13, "!Not a full quadrant"},
    {14, "!Invalid arc"},
    {15, "!Radius too small"},
    {16, "!Must be preceded by M06"},
    {17, "!Pocket too small for tool radius"},
    {18, "!Too many lines executed"},
};

constexpr DefaultText errorDefaults[] = {
    {1, "No Lines of code present"},
    {3, "Delete selected line?"},
    {4, "Maximum number of lines has been reached"},
    {5, "was not found"},
    {6, "Entered value must be numeric"},
    {7, "could not be written. Nothing was sent."},
    {8, "!No 3-d allowed"},
    {9, "Unknown code"},
    {10, "!No % allowed"},
    {11, "cannot be read."},
    {12, "could not be written. The program is still open."},
    {13, "Open File"},
    {14, "Save File"},
    {15, "Confirm"},
    {16, "port problem"},
    {17, "No printer found. A printer MUST be installed in Windows before running KVT"},
    {18, "Serial port"},
    {19, "The serial port %1 has gone. Connect it again and enable communication in the settings."},
    {20, "The serial port %1 has gone or takes nothing any more. The last line sent was:"},
    {21, "The serial port %1 does not take the settings %2. It goes on with what it has."},
    {22, "could not be written. The received code is still here."},
    {23, "Line %1 of %2"},
    {24, "%1 left at %2 baud"},
    {25, "%1 characters, %2 lines"},
};

constexpr DefaultText messageDefaults[] = {
    {1, "Do you want to save the open file now?"},
    {2, "File has been changed. Clear anyway?"},
    {3, "Continue?"},
    {4, "Clear?"},
    {5, "No file specified"},
    {6, "No calculator was found on this machine"},
    {7, "The pre-processor is still at work on"},
    {8, "The pre-processor has failed. It left no program for"},
    {9, "The pre-processor could not be started:"},
    {10, "The result of an earlier conversion is in the way and could not be removed:"},
    {11, "minimum"},
    {12, "maximum"},
    {13, "Program Version"},
    {14, "Language Module"},
    {15, "The file"},
    {16, " does not appear to be an Emco CNC formatted file"},
    {17, "File Recognizing Problem"},
    {18, "No serial port was found"},
    {19, "Overwrite"},
    {20, "Lowest value for this field is"},
    {21, "Highest value for this field is"},
    {22, "The serial port did not open or has gone"},
    {23, "max RPM"},
    {24, "L"},
    {25, "R"},
    {26, "To maximise the screen, drag down taskbar until it is invisible or set it to auto hide"},
    {27,
     "The lower part of your view will be blocked by the taskbar. You could drag down the taskbar until it "
     "is "
     "invisible or set it to auto hide."},
    {28, "An unsaved program was found. Restore it?"},
    {29, "Settings and unsaved programs cannot be kept. This folder cannot be written:"},
    {31, "Communication is switched off in the settings"},
};

constexpr DefaultText drawViewDefaults[] = {
    {1, "View"},       {2, "Radii Arcs"},  {3, "Fill Cycles"}, {4, "Program"},
    {5, "Tool Width"}, {6, "Tool Center"}, {7, "Grid"},        {8, "Background"},
};

constexpr DefaultText drawErrorDefaults[] = {
    {1, "has been saved"},        {2, "Too many subprog-Calls"},
    {3, "max 5 subcalls"},        {6, " (ControlCommand not recognised)"},
    {7, "could not be written."},
};

}  // namespace

std::string_view LanguageText(std::string_view defaultText, std::string_view text) {
    return Trim(text).empty() ? defaultText : text;
}

std::string_view TextTable::operator()(int index) const {
    if (index < 1 || index > Size()) throw RunTimeError(fault::SubscriptOutOfRange);
    std::string_view defaultText;
    for (std::size_t i = 0; i < defaultCount_; ++i) {
        if (defaults_[i].Index == index) defaultText = defaults_[i].Text;
    }
    return LanguageText(defaultText, entries_[static_cast<std::size_t>(index) - 1]);
}

void TextTable::Set(int index, std::string_view text) {
    if (index < 1 || index > Size()) throw RunTimeError(fault::SubscriptOutOfRange);
    entries_[static_cast<std::size_t>(index) - 1] = text;
}

Texts::Texts()
    : ProgramErrorTexts(22, programErrorDefaults),
      ErrorTexts(30, errorDefaults),
      MessageTexts(31, messageDefaults),
      DrawErrorTexts(20, drawErrorDefaults),
      DrawViewTexts(8, drawViewDefaults) {}

std::string FileMessage(const Texts& texts, std::string_view name, int index) {
    std::string message(texts.MessageTexts(text::TheFile));
    message += " \"";
    message += name;
    message += "\" ";
    message += texts.ErrorTexts(index);
    return message;
}

std::string Filled(std::string_view sentence, std::initializer_list<std::string> values) {
    std::string filled;
    for (std::size_t i = 0; i < sentence.size(); ++i) {
        const std::size_t place =
            i + 1 < sentence.size() ? static_cast<std::size_t>(sentence[i + 1] - '1') : 9;
        if (sentence[i] == '%' && place < values.size()) {
            filled += values.begin()[place];
            ++i;
        } else {
            filled += sentence[i];
        }
    }
    return filled;
}

}  // namespace kvt
