#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "console/script_session.h"

namespace kvt {

class ScriptRun;

// One action of the language: its word, the form of its arguments, what it does. A user's action is one that the
// workbench may answer; inside a wait the workbench gets control back after each of them.
struct ScriptAction {
    std::string_view Word;
    Shape Arguments;
    void (*Do)(ScriptRun& run, const kvt::Arguments& arguments);
    bool OfUser = false;
};

// The actions, and what can follow `expect`.
std::span<const ScriptAction> ScriptActions();
std::span<const ScriptAction> ScriptExpectations();
// The action of a word; null for an unknown one.
const ScriptAction* FindAction(std::span<const ScriptAction> actions, std::string_view word);

// Runs the lines of a script. While the workbench waits inside one line, the next ones run inside that wait.
class ScriptRun {
public:
    // name is how notes and failures call the script.
    ScriptRun(std::string name, std::string_view script, const ScriptOptions& options);
    ScriptRun(const ScriptRun&) = delete;
    ScriptRun& operator=(const ScriptRun&) = delete;

    // Gives the exit status.
    int Run();

    ScriptSession Session;
    // How many of the message boxes shown have been expected, and how many printed.
    std::size_t ExpectedBoxes = 0;
    std::size_t PrintedBoxes = 0;
    // The numbers of the drawing operations behind the last `ops`, and behind the last count of them.
    long long OperationsMark = 0;
    long long CountMark = 0;
    // How much of what the port was given has been expected.
    std::size_t ExpectedSent = 0;
    // How much of what the printer was given has been expected.
    std::size_t ExpectedPrint = 0;
    std::size_t ExpectedPreview = 0;
    // How many printed windows have been expected.
    int ExpectedDrawings = 0;

    // Something that is worth knowing about the line, on standard error.
    void Note(const std::string& text);
    // Counts a failure and tells it; both are told as they are.
    void Fail(const std::string& expected, const std::string& got);
    // Fails where two texts differ.
    void Compare(const std::string& expected, const std::string& got);
    // What NAME.PROPERTY or state.NAME holds, in UTF-8; an unknown one is a ScriptError.
    std::string ValueNamed(std::string_view name);
    // Runs an action in a later wait of what the next line starts, 1 for the first one.
    void Defer(int wait, const std::string& action);
    // Whether the line was reached from the script itself, not from inside a wait.
    bool AtTopLevel() const { return depth_ == 1; }

private:
    struct DeferredAction {
        int Line;
        std::string Text;
    };
    using DeferredActions = std::multimap<int, DeferredAction>;
    // A line that is being run, with the waits that it has begun.
    struct Frame {
        DeferredActions InWaits;
        int Waits = 0;
    };

    bool RunNextLine();
    bool RunAction(std::string_view text, int line);
    void Do(const ScriptAction& action, std::string_view arguments);
    bool RunDeferred(Frame& frame);
    bool ServeWait();
    void ServeTimedWait();
    bool GoesOn() const { return !broken_ && next_ < static_cast<int>(lines_.size()); }
    void Break(const std::string& why);
    void Tell(const std::string& text) const;

    std::string name_;
    std::vector<std::string> lines_;
    int next_ = 0;
    int line_ = 0;
    int depth_ = 0;
    Frame* frame_ = nullptr;
    DeferredActions deferred_;
    int failures_ = 0;
    bool broken_ = false;
};

}  // namespace kvt
