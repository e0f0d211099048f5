#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kvt {

// text if it is not blank after trimming, else the default.
std::string_view LanguageText(std::string_view defaultText, std::string_view text);

// One table of messages, indexed from 1. The entries come from a language module; a blank one gives the
// built-in English. An index outside the table is error 9.
class TextTable {
public:
    explicit TextTable(int size)
        : entries_(static_cast<std::size_t>(size)), defaults_(static_cast<std::size_t>(size), "") {}

    int Size() const { return static_cast<int>(entries_.size()); }
    // The text to show.
    std::string_view At(int index) const;
    // What the language module set.
    void Set(int index, std::string_view text);
    // Back to the built-in English.
    void Clear();

protected:
    std::size_t Checked(int index) const;

    std::vector<std::string> entries_;
    std::vector<const char*> defaults_;
};

// A table whose entries have names of their own.
template <class Entry>
class TextsOf : public TextTable {
public:
    struct Default {
        Entry Of;
        const char* Text;
    };

    TextsOf(int size, std::span<const Default> defaults) : TextTable(size) {
        for (const Default& one : defaults) defaults_[Checked(static_cast<int>(one.Of))] = one.Text;
    }

    std::string_view operator()(Entry entry) const { return At(static_cast<int>(entry)); }
};

// The places in the tables, as language modules number them.
enum class ProgramErrorText {
    UnknownControlCommand = 1,
    StartAndEndSame = 2,
    OneQuadrantMax = 3,
    G24BeforeG90 = 4,
    InvalidSub = 5,
    MaxNestedSubs = 6,
    EndlessLoop = 7,
    NoSuchLine = 8,
    ReturnWithoutSub = 9,
    MustFollowArc = 10,
    DivisionOfCut = 12,
    NotFullQuadrant = 13,
    InvalidArc = 14,
    RadiusTooSmall = 15,
    MustFollowM06 = 16,
    PocketTooSmall = 17,
    TooManyLines = 18,
};

enum class ErrorText {
    NoLines = 1,
    DeleteLine = 3,
    MaximumLines = 4,
    NotFound = 5,
    MustBeNumeric = 6,
    NotSent = 7,
    No3d = 8,
    UnknownCode = 9,
    NoPercent = 10,
    CannotRead = 11,
    CannotWrite = 12,
    OpenTitle = 13,
    SaveTitle = 14,
    DeleteTitle = 15,
    PortProblem = 16,
    NoPrinter = 17,
    SerialPort = 18,
    PortGone = 19,
    PortGoneAfter = 20,
    SettingsRefused = 21,
    ReceivedKept = 22,
    LineOf = 23,
    TimeLeft = 24,
    ReceivedCount = 25,
    NoPortChosen = 26,
};

enum class MessageText {
    SaveNow = 1,
    ClearAnyway = 2,
    ContinueTitle = 3,
    ClearTitle = 4,
    NoFileSpecified = 5,
    NoCalculator = 6,
    StillAtWork = 7,
    NoProgramLeft = 8,
    NotStarted = 9,
    OldResultStays = 10,
    Minimum = 11,
    Maximum = 12,
    ProgramVersion = 13,
    LanguageModule = 14,
    TheFile = 15,
    NotACncFile = 16,
    RecognizingProblem = 17,
    NoSerialPort = 18,
    Overwrite = 19,
    LowestValue = 20,
    HighestValue = 21,
    PortStayedClosed = 22,
    MaxRpm = 23,
    LeftAngle = 24,
    RightAngle = 25,
    DragTaskbar = 26,
    BlockedByTaskbar = 27,
    RestoreUnsaved = 28,
    CannotKeep = 29,
    SwitchedOff = 31,
};

enum class DrawErrorText {
    HasBeenSaved = 1,
    TooManyCalls = 2,
    MostCalls = 3,
    NotRecognised = 6,
    NotWritten = 7,
    StrokeOfLine = 8,
    MeasureEnd = 14,
    MeasureDone = 15,
    MouseDoes = 16,
    WaitsForStep = 17,
    WaitsForClick = 18,
    DrawsSlowly = 19,
    Draws = 20,
    SimulationStays = 21,
    ThinTool = 22,
};

// What belongs to windows and dialogs and is the caption of no control.
enum class DialogText {
    NoModule = 1,
    TranslatedBy = 2,
    NoDocument = 3,
    ProgramFiles = 4,
    AllFiles = 5,
    PreProcessorFiles = 6,
    PreProcessorError = 7,
    PreProcessorInformation = 8,
    PreProcessorWaits = 9,
    ValueCheck = 10,
    RangeOfField = 11,
    TargetLine = 12,
};

// What can be taken back, behind "Undo" and "Redo".
enum class StepText {
    Undo = 1,
    Redo = 2,
    LineChanged = 3,
    LineAdded = 4,
    LineInserted = 5,
    LineDeleted = 6,
    Notes = 7,
    Units = 8,
    Conversion = 9,
    Feeds = 10,
    CommentsDeleted = 11,
    CodeComments = 12,
    NewProgram = 13,
    Machine = 14,
    Opened = 15,
    Imported = 16,
    Received = 17,
    Clipboard = 18,
};

// Which line the entry row is, what becomes of it, and what its fields hold.
enum class EntryText {
    Line = 1,
    NewLine = 2,
    WithFieldsOf = 3,
    WithFieldsOfDeleted = 4,
    Before = 5,
    Replaces = 6,
    ReplacesLine = 7,
    CarriedOver = 8,
    Range = 9,
    RangeIn = 10,
    CodeHelp = 11,
};

// What the questions about an unsaved program tell of it.
enum class FoundText {
    Program = 1,
    WithoutFile = 2,
    CancelledSave = 3,
};

// What the quiet line tells, and the words around explanations and printed pages.
enum class NoticeText {
    Saved = 1,
    Printed = 2,
    LinesSent = 3,
    SendingStopped = 4,
    FeedReplaced = 5,
    NoSuchFeed = 6,
    NothingFound = 7,
    Received = 8,
    Restored = 9,
    Copied = 10,
    NoLinesYet = 11,
    NothingChanged = 12,
    DocumentOpen = 13,
    IsSending = 14,
    IsReceiving = 15,
    NoFeed = 16,
    UnitsAlready = 17,
    FindingAt = 18,
    NoFinding = 19,
    FileGone = 20,
    SampleOpened = 21,
    TheControl = 22,
    Why = 23,
    WhatHelps = 24,
    OrMore = 25,
    OrLess = 26,
    PageOf = 27,
    DrawingName = 28,
    NoName = 29,
    PrintToPdf = 30,
    PaperUnits = 31,
};

// The names of the entries: an entry can be looked up in its own table alone.
namespace text {
using enum ProgramErrorText;
using enum ErrorText;
using enum MessageText;
using enum DrawErrorText;
using enum DialogText;
using enum NoticeText;
}  // namespace text

// All texts that the logic shows or tests.
struct Texts {
    Texts();

    TextsOf<ProgramErrorText> ProgramErrorTexts;
    TextsOf<ErrorText> ErrorTexts;
    TextsOf<MessageText> MessageTexts;
    TextsOf<DrawErrorText> DrawErrorTexts;
    TextsOf<DialogText> DialogTexts;
    TextsOf<StepText> StepTexts;
    TextsOf<EntryText> EntryTexts;
    TextsOf<FoundText> FoundTexts;
    TextsOf<NoticeText> NoticeTexts;
    // Three for each finding: see explanations.h.
    TextsOf<int> ExplanationTexts;
    // Those of the browser page itself: see page_texts.h.
    TextsOf<int> PageTexts;
    std::string ErrorHeaderText = "Error in line";
    std::string EntryCaption = "Parameters";
    // The entries of the draw window's View menu, by their order.
    TextsOf<int> DrawViewTexts;

    // What the module in use says of itself; all empty while there is none.
    std::string ModuleFile;  // its path
    std::string LanguageName;
    std::string TranslatedBy;
    std::string LanguageCode;  // "de"; see SystemService::UseLanguage
};

// A sentence about a file, "The file "name" cannot be read.", by its end.
std::string FileMessage(const Texts& texts, std::string_view name, ErrorText end);

// A sentence with "%1", "%2" and so on replaced by values.
std::string Filled(std::string_view sentence, std::initializer_list<std::string> values);

}  // namespace kvt
