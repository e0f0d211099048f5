#include "program/texts.h"

#include "basic/run_time_error.h"
#include "basic/text.h"
#include "program/explanations.h"
#include "program/page_texts.h"

namespace kvt {

namespace {

constexpr TextsOf<ProgramErrorText>::Default programErrorDefaults[] = {
    {text::UnknownControlCommand, "!Unknown ControlCommand"},
    {text::StartAndEndSame, "!Start and End same value"},
    {text::OneQuadrantMax, "!1 quadrant max"},
    {text::G24BeforeG90, "!G24 must precede G90/G92"},
    {text::InvalidSub, "!Invalid SUB"},
    {text::MaxNestedSubs, "!Max 5 nested SUBs"},
    {text::EndlessLoop, "!Endless loop"},
    {text::NoSuchLine, "!Line doesn't exist"},
    {text::ReturnWithoutSub, "!RETURN without SUB"},
    {text::MustFollowArc, "!Must be preceded by G02/03"},
    {text::DivisionOfCut, "!Division-of-cut error"},
    {text::NotFullQuadrant, "!Not a full quadrant"},
    {text::InvalidArc, "!Invalid arc"},
    {text::RadiusTooSmall, "!Radius too small"},
    {text::MustFollowM06, "!Must be preceded by M06"},
    {text::PocketTooSmall, "!Pocket too small for tool radius"},
    {text::TooManyLines, "!Too many lines executed"},
};

constexpr TextsOf<ErrorText>::Default errorDefaults[] = {
    {text::NoLines, "No Lines of code present"},
    {text::DeleteLine, "Delete selected line?"},
    {text::MaximumLines, "Maximum number of lines has been reached"},
    {text::NotFound, "was not found"},
    {text::MustBeNumeric, "Entered value must be numeric"},
    {text::NotSent, "could not be written. Nothing was sent."},
    {text::No3d, "!No 3-d allowed"},
    {text::UnknownCode, "Unknown code"},
    {text::NoPercent, "!No % allowed"},
    {text::CannotRead, "cannot be read."},
    {text::CannotWrite, "could not be written. The program is still open."},
    {text::OpenTitle, "Open File"},
    {text::SaveTitle, "Save File"},
    {text::DeleteTitle, "Confirm"},
    {text::PortProblem, "port problem"},
    {text::NoPrinter, "No printer found. A printer MUST be installed in Windows before running KVT"},
    {text::SerialPort, "Serial port"},
    {text::PortGone,
     "The serial port %1 has gone. Connect it again and enable communication in the settings."},
    {text::PortGoneAfter, "The serial port %1 has gone or takes nothing any more. The last line sent was:"},
    {text::SettingsRefused, "The serial port %1 does not take the settings %2. It goes on with what it has."},
    {text::ReceivedKept, "could not be written. The received code is still here."},
    {text::LineOf, "Line %1 of %2"},
    {text::TimeLeft, "%1 left at %2 baud"},
    {text::ReceivedCount, "%1 characters, %2 lines"},
    {text::NoPortChosen, "No serial port was chosen. Nothing was sent or received."},
};

constexpr TextsOf<MessageText>::Default messageDefaults[] = {
    {text::SaveNow, "Do you want to save the open file now?"},
    {text::ClearAnyway, "File has been changed. Clear anyway?"},
    {text::ContinueTitle, "Continue?"},
    {text::ClearTitle, "Clear?"},
    {text::NoFileSpecified, "No file specified"},
    {text::NoCalculator, "No calculator was found on this machine"},
    {text::StillAtWork, "The pre-processor is still at work on"},
    {text::NoProgramLeft, "The pre-processor has failed. It left no program for"},
    {text::NotStarted, "The pre-processor could not be started:"},
    {text::OldResultStays, "The result of an earlier conversion is in the way and could not be removed:"},
    {text::Minimum, "minimum"},
    {text::Maximum, "maximum"},
    {text::ProgramVersion, "Program Version"},
    {text::LanguageModule, "Language Module"},
    {text::TheFile, "The file"},
    {text::NotACncFile, " does not appear to be an Emco CNC formatted file"},
    {text::RecognizingProblem, "File Recognizing Problem"},
    {text::NoSerialPort, "No serial port was found"},
    {text::Overwrite, "Overwrite"},
    {text::LowestValue, "Lowest value for this field is"},
    {text::HighestValue, "Highest value for this field is"},
    {text::PortStayedClosed, "The serial port did not open or has gone"},
    {text::MaxRpm, "max RPM"},
    {text::LeftAngle, "L"},
    {text::RightAngle, "R"},
    {text::DragTaskbar,
     "To maximise the screen, drag down taskbar until it is invisible or set it to auto hide"},
    {text::BlockedByTaskbar,
     "The lower part of your view will be blocked by the taskbar. You could drag down the taskbar until it "
     "is "
     "invisible or set it to auto hide."},
    {text::RestoreUnsaved, "An unsaved program was found. Restore it?"},
    {text::CannotKeep, "Settings and unsaved programs cannot be kept. This folder cannot be written:"},
    {text::SwitchedOff, "Communication is switched off in the settings"},
};

constexpr TextsOf<DialogText>::Default dialogDefaults[] = {
    {text::NoModule, "None"},
    {text::TranslatedBy, "Translated by"},
    {text::NoDocument, "The file of this document was not found:"},
    {text::ProgramFiles, "cnc files (*.txt or *.cnc or *.c5n)"},
    {text::AllFiles, "All Files (*.*)"},
    {text::PreProcessorFiles, "pre-processor files (*.*)"},
    {text::PreProcessorError, "PreProcessor Error!"},
    {text::PreProcessorInformation, "PreProcessor Information"},
    {text::PreProcessorWaits, "PreProcessor"},
    {text::ValueCheck, "Value Check"},
    {text::RangeOfField, "%1 = Low, Hi = %2"},
    {text::TargetLine, "Line"},
};

constexpr TextsOf<int>::Default drawViewDefaults[] = {
    {1, "View"},       {2, "Radii Arcs"},  {3, "Fill Cycles"}, {4, "Program"},
    {5, "Tool Width"}, {6, "Tool Center"}, {7, "Grid"},        {8, "Background"},
};

constexpr TextsOf<DrawErrorText>::Default drawErrorDefaults[] = {
    {text::HasBeenSaved, "has been saved"},
    {text::TooManyCalls, "Too many subprog-Calls"},
    {text::MostCalls, "max 5 subcalls"},
    {text::NotRecognised, " (ControlCommand not recognised)"},
    {text::NotWritten, "could not be written."},
    {text::StrokeOfLine, "Line %1: %2, ends at %3"},
    {text::MeasureEnd, "Measuring: click the second point. Esc ends."},
    {text::MeasureDone, "Measuring: change the fields, or click to end. Esc ends."},
    {text::MouseDoes, "Click: measure. Twice: fit. Wheel: zoom. Middle button: move."},
    {text::WaitsForStep, "Step: Enter or Step draws the next line, Esc the rest."},
    {text::WaitsForClick, "The program waits: a click or Enter goes on, Esc draws the rest."},
    {text::DrawsSlowly, "Drawing line by line: Run or Esc draws the rest."},
    {text::Draws, "Drawing. Esc ends."},
    {text::SimulationStays, "%1 stays chosen: R begins again, Run draws all at once."},
    {text::ThinTool, "The thin tool is hidden by its white center: View, Tool Center."},
};

constexpr TextsOf<StepText>::Default stepDefaults[] = {
    {StepText::Undo, "Undo"},
    {StepText::Redo, "Redo"},
    {StepText::LineChanged, "line %1 changed"},
    {StepText::LineAdded, "line %1 added"},
    {StepText::LineInserted, "line %1 inserted"},
    {StepText::LineDeleted, "line %1 deleted"},
    {StepText::Notes, "file notes"},
    {StepText::Units, "other units"},
    {StepText::Conversion, "conversion of the units"},
    {StepText::Feeds, "feeds replaced"},
    {StepText::CommentsDeleted, "comments deleted"},
    {StepText::CodeComments, "comments of the codes"},
    {StepText::NewProgram, "new program"},
    {StepText::Machine, "other machine"},
    {StepText::Opened, "file opened"},
    {StepText::Imported, "file imported"},
    {StepText::Received, "program received"},
    {StepText::Clipboard, "program from the clipboard"},
};

constexpr TextsOf<EntryText>::Default entryDefaults[] = {
    {EntryText::Line, "Line %1"},
    {EntryText::NewLine, "New line %1"},
    {EntryText::WithFieldsOf, "Line %1 from line %2"},
    {EntryText::WithFieldsOfDeleted, "Line %1 from a deleted line"},
    {EntryText::Before, "Before:"},
    {EntryText::Replaces, "Replaces:"},
    {EntryText::ReplacesLine, "Replaces line %1"},
    {EntryText::CarriedOver, "%1 still holds the %2 of an earlier line: %3"},
    {EntryText::Range, "%1: %2 to %3"},
    {EntryText::RangeIn, "%1 (%4): %2 to %3"},
    {EntryText::CodeHelp, "Shift+F1 explains %1"},
};

constexpr TextsOf<FoundText>::Default foundDefaults[] = {
    {FoundText::Program, "%1 (lines: %2), kept on %3 at %4"},
    {FoundText::WithoutFile, "A program without a file"},
    {FoundText::CancelledSave,
     "A save that you cancel loses nothing: the next start offers the program again."},
};

constexpr TextsOf<NoticeText>::Default noticeDefaults[] = {
    {text::Saved, "Saved: %1"},
    {text::Printed, "Printed: %1"},
    {text::LinesSent, "Lines sent: %1"},
    {text::SendingStopped, "Stopped; lines sent: %1 of %2"},
    {text::FeedReplaced, "Feeds replaced: %3 (%1 by %2)"},
    {text::NoSuchFeed, "No line has the feed %1"},
    {text::NothingFound, "Not found: %1"},
    {text::Received, "Lines received: %1"},
    {text::Restored, "Restored: %1"},
    {text::Copied, "Lines on the clipboard: %1"},
    {text::NoLinesYet, "The program has no lines yet"},
    {text::NothingChanged, "Nothing to save: the program has not changed"},
    {text::DocumentOpen, "Return or Esc leaves the help first"},
    {text::IsSending, "The program is being sent; Stop ends that"},
    {text::IsReceiving, "Exit leaves the received code first"},
    {text::NoFeed, "This code takes no feed"},
    {text::UnitsAlready, "The program has these units already"},
    {text::FindingAt, "Line %1: %2 (F1 explains it)"},
    {text::NoFinding, "The check finds no error"},
    {text::FileGone, "No longer there: %1"},
    {text::SampleOpened, "A sample: Save asks for a name of your own"},
    {text::TheControl, "The control:"},
    {text::Why, "Why:"},
    {text::WhatHelps, "What helps:"},
    {text::OrMore, "%1 or more"},
    {text::OrLess, "%1 or less"},
    {text::PageOf, "Page %1 of %2"},
    {text::DrawingName, "drawing"},
    {text::NoName, "a program without a name"},
    {text::PrintToPdf, "Print to PDF"},
    {text::PaperUnits, "Units: %1"},
};

}  // namespace

std::string_view LanguageText(std::string_view defaultText, std::string_view text) {
    return Trim(text).empty() ? defaultText : text;
}

std::size_t TextTable::Checked(int index) const {
    if (index < 1 || index > Size()) throw RunTimeError(fault::SubscriptOutOfRange);
    return static_cast<std::size_t>(index) - 1;
}

std::string_view TextTable::At(int index) const {
    const std::size_t place = Checked(index);
    return LanguageText(defaults_[place], entries_[place]);
}

void TextTable::Set(int index, std::string_view text) { entries_[Checked(index)] = text; }

void TextTable::Clear() {
    for (std::string& entry : entries_) entry.clear();
}

Texts::Texts()
    : ProgramErrorTexts(22, programErrorDefaults),
      ErrorTexts(30, errorDefaults),
      MessageTexts(31, messageDefaults),
      DrawErrorTexts(22, drawErrorDefaults),
      DialogTexts(30, dialogDefaults),
      StepTexts(18, stepDefaults),
      EntryTexts(11, entryDefaults),
      FoundTexts(3, foundDefaults),
      NoticeTexts(31, noticeDefaults),
      ExplanationTexts(ExplanationPartCount * FindingCount, ExplanationDefaults()),
      PageTexts(static_cast<int>(PageTextNames().size()), PageTextDefaults()),
      DrawViewTexts(8, drawViewDefaults) {}

std::string FileMessage(const Texts& texts, std::string_view name, ErrorText end) {
    std::string message(texts.MessageTexts(text::TheFile));
    message += " \"";
    message += name;
    message += "\" ";
    message += texts.ErrorTexts(end);
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
