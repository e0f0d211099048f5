#include "console/script_run.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "basic/code_page.h"
#include "basic/number.h"
#include "console/commands.h"
#include "console/state.h"

namespace kvt {

namespace {

std::vector<std::string> LinesOf(std::string_view script) {
    if (script.substr(0, 3) == "\xEF\xBB\xBF") script.remove_prefix(3);
    std::vector<std::string> lines;
    while (!script.empty()) {
        const std::size_t end = std::min(script.find('\n'), script.size());
        std::string_view line = script.substr(0, end);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        lines.emplace_back(line);
        script.remove_prefix(std::min(end + 1, script.size()));
    }
    return lines;
}

// Sets a variable back at the end of a block.
template <class T>
class Restored {
public:
    Restored(T& variable, T now) : variable_(variable), before_(std::exchange(variable, now)) {}
    ~Restored() { variable_ = before_; }
    Restored(const Restored&) = delete;
    Restored& operator=(const Restored&) = delete;

private:
    T& variable_;
    T before_;
};

}  // namespace

const ScriptAction* FindAction(std::span<const ScriptAction> actions, std::string_view word) {
    const auto found = std::find_if(actions.begin(), actions.end(),
                                    [&](const ScriptAction& action) { return action.Word == word; });
    return found == actions.end() ? nullptr : &*found;
}

ScriptRun::ScriptRun(std::string name, std::string_view script, const ScriptOptions& options)
    : Session(options), name_(std::move(name)), lines_(LinesOf(script)) {
    Session.Platform.System.NextEvent = [this] { return ServeWait(); };
    Session.Platform.System.NextInTimedWait = [this] { ServeTimedWait(); };
    Session.SetRefusal([this](const std::string& path) { Break(NoPlaceForWrites(path)); });
    Session.Platform.Dialogs.OnUnanswered = [this](const MessageBox& box) {
        Note("no answer for the message box " + Quoted(ShownToUtf8(box.Text)) + ", it takes its default");
    };
}

int ScriptRun::Run() {
    while (GoesOn()) RunNextLine();
    if (broken_) return status::Usage;
    return failures_ > 0 ? status::Finding : status::Succeeded;
}

bool ScriptRun::RunNextLine() {
    const int index = next_++;
    return RunAction(lines_[static_cast<std::size_t>(index)], index + 1);
}

// Runs one line; true where it was a user's action.
bool ScriptRun::RunAction(std::string_view text, int line) {
    const std::string_view word = text.substr(0, 1) == "#" ? std::string_view() : NextWord(text);
    if (word.empty()) return false;
    const Restored<int> lineAgain(line_, line);
    const Restored<int> depthAgain(depth_, depth_ + 1);
    try {
        const ScriptAction* const action = FindAction(ScriptActions(), word);
        if (!action) throw ScriptError{"unknown action " + Quoted(word)};
        Do(*action, text);
        return action->OfUser;
    } catch (const ScriptError& error) {
        Break(error.Description);
    } catch (const RunTimeError& error) {
        Fail("no run-time error", PlainNumber(error.Number) + " " + Quoted(error.Description));
    }
    return true;
}

void ScriptRun::Do(const ScriptAction& action, std::string_view text) {
    const Arguments arguments(text, action.Arguments, Session.Variables());
    Frame frame;
    frame.InWaits = std::exchange(deferred_, {});
    Frame* const around = frame_;
    {
        const Restored<Frame*> frameAgain(frame_, &frame);
        Session.Platform.System.Run([&] { action.Do(*this, arguments); });
    }
    if (broken_) return;
    for (const auto& [wait, deferred] : frame.InWaits) {
        if (around) {
            // What a line inside a wait has started may wait only when that line has ended.
            around->InWaits.insert({around->Waits + wait - frame.Waits, deferred});
        } else {
            Note("wait " + PlainNumber(wait) + " did not come, line " + PlainNumber(deferred.Line) +
                 " was not done");
        }
    }
}

// Begins a wait and does what was deferred to it; true where something of it was a user's action.
bool ScriptRun::RunDeferred(Frame& frame) {
    ++frame.Waits;
    bool acted = false;
    for (auto due = frame.InWaits.find(frame.Waits); due != frame.InWaits.end();
         due = frame.InWaits.find(frame.Waits)) {
        const DeferredAction action = std::move(due->second);
        frame.InWaits.erase(due);
        if (RunAction(action.Text, action.Line)) acted = true;
    }
    return acted;
}

// What comes up while the workbench waits. Lines that only look or prepare something do not end its turn.
bool ScriptRun::ServeWait() {
    if (!frame_ || broken_) return false;
    if (RunDeferred(*frame_)) return !broken_;
    while (GoesOn() && !Session.Platform.System.Ended) {
        if (RunNextLine()) return !broken_;
    }
    return false;
}

// A wait that ends by itself: the lines behind it are for later.
void ScriptRun::ServeTimedWait() {
    if (frame_ && !broken_) RunDeferred(*frame_);
}

std::string ScriptRun::ValueNamed(std::string_view name) {
    const std::size_t point = name.rfind('.');
    if (point == std::string_view::npos) throw ScriptError{"not NAME.PROPERTY: " + Quoted(name)};
    const std::string_view owner = name.substr(0, point);
    const std::string_view property = name.substr(point + 1);
    if (owner == "state") {
        if (property == "file") return Session.CommandLine();
        if (const std::optional<PlainValue> value = StateScalar(property, Session.Workbench()))
            return TextOf(*value);
    } else {
        const Control& control = Session.Named(owner);
        if (const std::optional<PlainValue> value = ReadProperty(control, property)) return TextOf(*value);
        if (IsProperty(property)) throw ScriptError{Quoted(owner) + " has no property " + Quoted(property)};
    }
    throw ScriptError{"unknown property " + Quoted(property)};
}

void ScriptRun::Defer(int wait, const std::string& action) {
    if (wait < 1) throw ScriptError{"waits are counted from 1"};
    // Several such lines in a row all mean the line behind them.
    std::swap(deferred_, frame_->InWaits);
    deferred_.insert({wait, {line_, action}});
}

// What the workbench still does on its way out of the line is not told any more.
void ScriptRun::Break(const std::string& why) {
    if (!broken_) Tell(why);
    broken_ = true;
}

void ScriptRun::Note(const std::string& text) {
    if (!broken_) Tell("note: " + text);
}

void ScriptRun::Fail(const std::string& expected, const std::string& got) {
    ++failures_;
    if (!broken_) Tell("expected " + expected + ", got " + got);
}

void ScriptRun::Compare(const std::string& expected, const std::string& got) {
    if (expected != got) Fail(Quoted(expected), Quoted(got));
}

void ScriptRun::Tell(const std::string& text) const {
    std::fflush(stdout);
    const std::string told = WithoutControls(name_ + ":" + PlainNumber(line_) + ": " + text);
    std::fprintf(stderr, "%s\n", told.c_str());
}

}  // namespace kvt
