#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace kvt {

// text if it is not blank after trimming, else the default.
std::string_view LanguageText(std::string_view defaultText, std::string_view text);

struct DefaultText {
    int Index;
    const char* Text;
};

// One table of messages, indexed from 1. The entries come from a language module; a blank one gives the
// built-in English.
class TextTable {
public:
    template <std::size_t N>
    TextTable(int size, const DefaultText (&defaults)[N])
        : entries_(static_cast<std::size_t>(size)), defaults_(defaults), defaultCount_(N) {}

    int Size() const { return static_cast<int>(entries_.size()); }
    // The text to show; an index outside the table is error 9.
    std::string_view operator()(int index) const;
    // What the language module set; an index outside the table is error 9.
    void Set(int index, std::string_view text);

private:
    std::vector<std::string> entries_;
    const DefaultText* defaults_;
    std::size_t defaultCount_;
};

// All texts that the logic shows or tests.
struct Texts {
    Texts();

    TextTable ProgramErrorTexts;
    TextTable ErrorTexts;
    TextTable MessageTexts;
    TextTable DrawErrorTexts;
    std::string ErrorHeaderText = "Error in line";
    std::string EntryCaption = "Parameters";
    // The entries of the draw window's View menu.
    TextTable DrawViewTexts;

    // What the module in use says of itself; all empty while there is none.
    std::string ModuleFile;  // its path
    std::string LanguageName;
    std::string TranslatedBy;
};

// A sentence about a file, "The file "name" cannot be read.": index is that of its end in ErrorTexts.
std::string FileMessage(const Texts& texts, std::string_view name, int index);

// A sentence with "%1", "%2" and so on replaced by values.
std::string Filled(std::string_view sentence, std::initializer_list<std::string> values);

// Indices that several places use.
namespace text {
inline constexpr int UnknownControlCommand = 1, StartAndEndSame = 2, OneQuadrantMax = 3, G24BeforeG90 = 4,
                     InvalidSub = 5, MaxNestedSubs = 6, EndlessLoop = 7, NoSuchLine = 8, ReturnWithoutSub = 9,
                     MustFollowArc = 10, DivisionOfCut = 12, NotFullQuadrant = 13, InvalidArc = 14,
                     RadiusTooSmall = 15, MustFollowM06 = 16, PocketTooSmall = 17, TooManyLines = 18;
inline constexpr int NoLines = 1, DeleteLine = 3, MaximumLines = 4, MustBeNumeric = 6, No3d = 8,
                     UnknownCode = 9, NoPercent = 10, CannotRead = 11, CannotWrite = 12, OpenTitle = 13,
                     SaveTitle = 14, DeleteTitle = 15, PortProblem = 16, NoPrinter = 17, SerialPort = 18,
                     PortGone = 19, PortGoneAfter = 20, SettingsRefused = 21, ReceivedKept = 22, LineOf = 23,
                     TimeLeft = 24, ReceivedCount = 25, NotFound = 5, NotSent = 7;
inline constexpr int SaveNow = 1, ClearAnyway = 2, ContinueTitle = 3, ClearTitle = 4, NoFileSpecified = 5,
                     NoCalculator = 6, StillAtWork = 7, NoProgramLeft = 8, NotStarted = 9,
                     OldResultStays = 10, NoSerialPort = 18, PortStayedClosed = 22, SwitchedOff = 31,
                     Minimum = 11, Maximum = 12, TheFile = 15, NotACncFile = 16, RecognizingProblem = 17,
                     ProgramVersion = 13, LanguageModule = 14, Overwrite = 19, LowestValue = 20,
                     HighestValue = 21, LeftAngle = 24, RightAngle = 25, DragTaskbar = 26,
                     BlockedByTaskbar = 27, RestoreUnsaved = 28, DataNotWritable = 29;
// In DrawErrorTexts.
inline constexpr int HasBeenSaved = 1, TooManyCalls = 2, MostCalls = 3, NotRecognised = 6, NotWritten = 7;
}  // namespace text

}  // namespace kvt
